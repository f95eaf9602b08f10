// "Stampa Schedine": prints the columns of the system onto 10eLotto play slips, one slip a column,
// at the positions of the chosen printer's calibration. The range and the kinds of draw are
// chosen here; frmPrnInCorso shows the progress and stops the job, which runs on a worker thread.
// Also a preview and "save as PDF" ("PDF" in the printer list does the same).
#pragma once

#include "core/Corpo.h"
#include "print/Schedine.h"
#include "settings/Impostazioni.h"

#include <QWidget>

#include <atomic>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace dv {

class DialogService;
class LavoroInSottofondo;
class LavoroStampa;
class Ui;
class frmPrnInCorso;

class frmStampa : public QWidget {
    Q_OBJECT
public:
    // cal is the calibration in memory, shared with the calibration window.
    frmStampa(Corpo& corpo, Ui& ui, DialogService& dialogs, Impostazioni& impostazioni, SlipCalibration& cal,
              QWidget* parent = nullptr);
    ~frmStampa() override;

    // Load: the printers, the range 1..NumColonne, "5 Min" ticked.
    void carica();
    // The calibration window for a printer, shown modally by cmdTaratura.
    std::function<void(const std::string& stampante)> apriTaratura;
    // Called when the window closes (the main window is enabled again).
    std::function<void()> chiusa;

    void cmdStampa_Click();
    void cmdAnteprima_Click();
    void cmdPdf_Click();
    void cmdTaratura_Click();
    void chkTipoEstrazione_Click(int index);

    OpzioniSchedine opzioni() const;
    frmPrnInCorso& progresso() { return *m_frmPrnInCorso; }
    bool inStampa() const;
    // Waits for a job still running (tests).
    void attendi();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void creaControlli();
    // Checks the range and loads the calibration of the printer chosen; false when refused.
    bool prepara(IntervalloSchedine& r);
    void stampa(std::unique_ptr<LavoroStampa> job, IntervalloSchedine r);

    Corpo& m_corpo;
    Ui& m_ui;
    DialogService& m_dialogs;
    Impostazioni& m_imp;
    SlipCalibration& m_cal;
    std::atomic<bool> m_fermata{false};
    std::unique_ptr<LavoroInSottofondo> m_lavoro;
    std::unique_ptr<frmPrnInCorso> m_frmPrnInCorso;

    QGroupBox* m_frameStampante = nullptr;
    QComboBox* m_cmbStampante = nullptr;
    QGroupBox* m_frameTipoEstrazione = nullptr;
    QCheckBox* m_chkTipoEstrazione[3] = {};
    QLabel* m_lblDa = nullptr;
    QLabel* m_lblA = nullptr;
    QLineEdit* m_meDa = nullptr;
    QLineEdit* m_meA = nullptr;
    QPushButton* m_cmdStampa = nullptr;
    QPushButton* m_cmdTaratura = nullptr;
    QPushButton* m_cmdAnteprima = nullptr;
    QPushButton* m_cmdPdf = nullptr;
    QLabel* m_imgScheda = nullptr;
};

} // namespace dv
