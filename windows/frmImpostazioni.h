// "Impostazioni": the settings window. Edits the header of slips and listings, the listing's
// printer, the recalculation mode and source, and the language; lists and downloads language files.
//
// Open it modally and run ReadConfiguration when it closes:
//     dv::frmImpostazioni f(impostazioni, lingua, ui, this);
//     f.exec();
//     dv::ReadConfiguration(corpo, impostazioni, lingua);
// The window's load runs in the constructor: it reads the settings of lingua.AppDir into
// impostazioni and, when no language is in use yet, downloads the language files first. Choosing a
// language sets lingua.CurrentLanguage at once and applies it to every open window; the settings
// file changes only on cmdSalva.
#pragma once

#include "core/Ui.h"
#include "settings/Impostazioni.h"
#include "settings/Online.h"

#include <QDialog>

#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace dv {

// What the window asks of the platform; tests give their own.
struct ServiziImpostazioni {
    std::function<std::vector<std::string>()> stampanti; // printers' device names
    Scaricatore download;                                 // downloads from the web server
};

class frmImpostazioni : public QDialog {
    Q_OBJECT
public:
    frmImpostazioni(Impostazioni& impostazioni, Lingua& lingua, Ui& ui, QWidget* parent = nullptr,
                    ServiziImpostazioni servizi = {});

    // Lists the language files of AppDir into cmbLingua, selecting the one of the settings.
    void ElencaLingue();

    void cmdLangUpdate_Click();
    void cmdInfoLanguage_Click();
    void cmdSalva_Click();
    void cmbLingua_Click();

private:
    void creaControlli();
    void Form_Load();
    void mostraOpzioni();
    // Downloads the language files and lists them; false when the server could not be reached.
    bool scaricaLingue(size_t& installate, RapportoDownload& rapporto);
    void elencaStampanti(bool seleziona);
    // Runs f; an exception ends in the error box that names the procedure.
    void protetto(const char* procedura, const std::function<void()>& f);

    Impostazioni& m_imp;
    Lingua& m_lingua;
    Ui& m_ui;
    ServiziImpostazioni m_servizi;

    QLabel* m_lblIntestazione = nullptr;
    QLineEdit* m_mskIntestazione = nullptr;
    QLabel* m_lblStampanteTabulato = nullptr;
    QComboBox* m_cmbStampante = nullptr;
    QLabel* m_lbLanguage = nullptr;
    QComboBox* m_cmbLingua = nullptr;
    QPushButton* m_cmdInfoLanguage = nullptr;
    QPushButton* m_cmdLangUpdate = nullptr;
    QGroupBox* m_frameRicalcolo = nullptr;
    QCheckBox* m_chkStatoRicalcolo = nullptr;
    QRadioButton* m_optModoRicalcolo[2] = {nullptr, nullptr};
    QPushButton* m_cmdSalva = nullptr;
};

} // namespace dv
