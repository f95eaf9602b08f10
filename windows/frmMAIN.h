// The main window: the grid of ninety, column length, kind of play and stake, the buttons, the
// menus and the status line. It owns no data: it shows and edits the working state it is given.
// Each menu area lives in a helper the window owns (file, operations, conditions, forecast).
#pragma once

#include "core/Corpo.h"
#include "windows/Finestre.h"
#include "settings/Impostazioni.h"
#include "settings/Lingua.h"

#include <QAction>
#include <QMainWindow>
#include <QPushButton>

#include <initializer_list>
#include <memory>

class QLabel;
class QMenu;
class QScrollBar;
class QRadioButton;

namespace dv {

class DialogService;
class GrigliaNumeri;
class QtUi;
class frmMAINCondizioni;
class frmMAINFile;
class frmMAINOperazioni;
class frmMAINPronostico;

class frmMAIN : public QMainWindow {
    Q_OBJECT
public:
    frmMAIN(Corpo& corpo, DialogService& dialogs, QWidget* parent = nullptr);
    ~frmMAIN() override;

    // The load of the window: title, settings and language, length, stake and kind of play,
    // an empty system named "nuovo.dvs".
    void carica();

    Corpo& corpo() { return m_corpo; }
    QtUi& ui() { return *m_ui; }
    frmMAINFile& file() { return *m_file; }
    frmMAINOperazioni& operazioni() { return *m_operazioni; }
    Impostazioni& impostazioni() { return m_impostazioni; }
    Lingua& lingua() { return m_lingua; }
    DialogService& dialogs() { return m_dialogs; }
    // The windows of the other areas, as those areas offer them.
    Finestre& finestre() { return m_finestre; }

    // The operations the logic calls through QtUi.
    void LockGUI();
    void UnlockGUI();
    void UnlockMenuConditions();
    void ViewStatusBar();
    void Sblocca_x_Ricalcolo();
    void AggiornaIntegrale();
    // The grid, labnumeri, the enabling of the operations and the integral, from the state.
    void refreshGrid();
    // A warning about the system in memory, in the status line until the system is reset.
    void mostraAvviso(const QString& text);
    // hsLenCol and lbLenCol take LenColonna.
    void refreshLenColonna();
    void refreshConditionMarks();
    // The texts built from the state (labnumeri, lbLenCol, lblIntegrale, the status line), written
    // again in the language in use; what is enabled is left as it is.
    void aggiornaTesti();

    // A menu entry or a control by its name; null when there is none.
    QAction* azione(const QString& name) const;
    QMenu* menu(const QString& name) const;
    QPushButton* pulsante(const QString& name) const;
    // Enables or disables the named menu entries, menus and controls.
    void abilita(std::initializer_list<const char*> names, bool enabled);
    // Connects the named menu entry or button to slot and shows it: its window is part of the
    // program.
    template <typename F> void collega(const char* name, F slot) {
        const QString n = QString::fromLatin1(name);
        if (QPushButton* b = pulsante(n))
            connect(b, &QPushButton::clicked, this, slot);
        else if (QAction* a = azione(n))
            connect(a, &QAction::triggered, this, slot);
        mostraVoce(n);
    }
    // Shows a menu entry (or button) whose window has become part of the program.
    void mostraVoce(const QString& name);
    // Hides the menus left without a visible entry.
    void aggiornaVisibilitaMenu();

protected:
    void closeEvent(QCloseEvent* event) override;
    // A new language: the captions came from the language file, the texts built from the state
    // are written again.
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void costruisciControlli();
    void costruisciMenu();
    QWidget* costruisciGiocata();
    QWidget* costruisciPulsanti();
    // Step 4 of a click on the grid: the operations are enabled once enough numbers are chosen.
    void abilitaOperazioni();
    void lenColonnaCambiata(int value);
    void tipoGiocataCliccato(int index);
    void importoCliccato(int index);

    Corpo& m_corpo;
    DialogService& m_dialogs;
    Finestre m_finestre;
    Impostazioni m_impostazioni;
    Lingua m_lingua;
    std::unique_ptr<QtUi> m_ui;
    GrigliaNumeri* m_griglia = nullptr;
    QLabel* m_labnumeri = nullptr;
    QLabel* m_lbMnu = nullptr;
    QScrollBar* m_hsLenCol = nullptr;
    QLabel* m_lbLenCol = nullptr;
    QLabel* m_lblIntegrale = nullptr;
    QRadioButton* m_optTipoGiocata[3] = {};
    QRadioButton* m_optImporto[10] = {};
    QLabel* m_pannelli[4] = {};
    QLabel* m_lblAvviso = nullptr;
    std::unique_ptr<frmMAINFile> m_file;
    std::unique_ptr<frmMAINOperazioni> m_operazioni;
    std::unique_ptr<frmMAINCondizioni> m_condizioni;
    std::unique_ptr<frmMAINPronostico> m_pronostico;
};

} // namespace dv
