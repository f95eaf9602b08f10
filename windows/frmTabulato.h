// "Stampa Tabulato": prints the listing of the current system on the listing's printer of the
// settings ("PDF" asks for a file), previews it, or saves it as PDF. The job runs on a worker
// thread while the window is disabled.
#pragma once

#include "core/Corpo.h"
#include "print/Tabulato.h"
#include "settings/Impostazioni.h"

#include <QDialog>

#include <functional>
#include <memory>

class QCheckBox;
class QLabel;
class QPushButton;
class QScrollBar;

namespace dv {

class DialogService;
class LavoroInSottofondo;
class LavoroStampa;
class Ui;

class frmTabulato : public QDialog {
    Q_OBJECT
public:
    frmTabulato(Corpo& corpo, Ui& ui, Impostazioni& impostazioni, QWidget* parent = nullptr);
    ~frmTabulato() override;

    // The settings window, opened by cmdImpostazioni; the settings are read again after it.
    std::function<void()> apriImpostazioni;

    // The options as the controls give them.
    OpzioniTabulato opzioni() const;

    void cmdStampa_Click();
    void cmdAnteprima_Click();
    void cmdPdf_Click();
    void VsCopie_Change(int value);
    // Waits for a job still running (tests).
    void attendi();

protected:
    // The window stays while its job is printing.
    void reject() override;

private:
    void creaControlli();
    void stampa(std::unique_ptr<LavoroStampa> job);

    Corpo& m_corpo;
    Ui& m_ui;
    Impostazioni& m_imp;
    std::unique_ptr<LavoroInSottofondo> m_lavoro;

    QCheckBox* m_chkCol = nullptr;
    QCheckBox* m_chkProno = nullptr;
    QCheckBox* m_chkColor = nullptr;
    QScrollBar* m_VsCopie = nullptr;
    QLabel* m_lblCopie = nullptr;
    QLabel* m_labCopie = nullptr;
    QPushButton* m_cmdStampa = nullptr;
    QPushButton* m_cmdImpostazioni = nullptr;
    QPushButton* m_cmdAnteprima = nullptr;
    QPushButton* m_cmdPdf = nullptr;
};

} // namespace dv
