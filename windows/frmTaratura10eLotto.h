// "Taratura Scheda 10eLotto": the twelve positions of the play slip as scroll bars in tenths of a
// millimetre, with their values in millimetres beside them; the printer and its print quality;
// a test page with every box marked, and the saving of the printer's calibration file.
#pragma once

#include "core/Corpo.h"
#include "print/TaraturaScheda.h"
#include "settings/Impostazioni.h"

#include <QDialog>

#include <string>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace dv {

class Ui;

class frmTaratura10eLotto : public QDialog {
    Q_OBJECT
public:
    // STAMPANTE is the device name of the printer to calibrate; cal the calibration in memory.
    frmTaratura10eLotto(Corpo& corpo, Ui& ui, Impostazioni& impostazioni, SlipCalibration& cal,
                        std::string STAMPANTE, QWidget* parent = nullptr);

    // Load: the calibration file of STAMPANTE, shown.
    void carica();
    void ShowCalibration();
    void ReadBars();
    void optColor_Click(int index);
    void cmdSalva_Click();
    void cmdTest_Click();

    QScrollBar* barra(int i) const { return m_vs[i]; }
    QLineEdit* casella(int i) const { return m_txt[i]; }
    const std::string& STAMPANTE() const { return m_stampante; }

private:
    void creaControlli();
    std::string percorso() const;

    Corpo& m_corpo;
    Ui& m_ui;
    Impostazioni& m_imp;
    SlipCalibration& m_cal;
    std::string m_stampante;

    QScrollBar* m_vs[NumeroValoriTaratura] = {};
    QLineEdit* m_txt[NumeroValoriTaratura] = {};
    QGroupBox* m_frameStampante = nullptr;
    QComboBox* m_cmbStampante = nullptr;
    QGroupBox* m_frameQualitaStampa = nullptr;
    QRadioButton* m_optColor[2] = {};
    QPushButton* m_cmdTest = nullptr;
    QPushButton* m_cmdSalva = nullptr;
    QLabel* m_Image1 = nullptr;
};

} // namespace dv
