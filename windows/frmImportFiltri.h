// The import of a whole filter table, opened modally from the filter window: the draws of a range
// of the archive in memory, or the lines of a text file, become the table's filter columns.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "filters/EditorFiltri.h"
#include "filters/ImportFiltri.h"

#include <QDialog>

#include <array>

class QComboBox;
class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QRadioButton;

namespace dv {

class frmImportFiltri : public QDialog {
    Q_OBJECT
public:
    frmImportFiltri(Corpo& corpo, Ui& ui, TipoFiltro tipo, QWidget* parent = nullptr);

    TipoFiltro tipoFiltro() const { return m_tipo; }
    QMenu* menuPopup() const { return m_menuPopup; }
    const std::string& fileScelto() const { return m_file; }

    void cmdImportaFiltri_Click();
    void cmdProcess_Click();
    // A ready-made range into the four lists.
    void mostraIntervallo(const IntervalloImport& r);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void costruisci();
    void carica();
    void optImportSource_Click(int index);
    void mostraPresenza(int k);
    void apriMenu(const QPoint& globalPos);

    Corpo& m_corpo;
    Ui& m_ui;
    TipoFiltro m_tipo;
    std::string m_file;
    std::array<bool, 26> m_presenze{};
    std::array<QRadioButton*, 2> m_optImportSource{};
    std::array<QLabel*, 26> m_lbPresenze{};
    std::array<QLabel*, 2> m_lblConc{};
    QGroupBox* m_frameDaFile = nullptr;
    QGroupBox* m_frameDateArchivio = nullptr;
    QPushButton* m_cmdImportaFiltri = nullptr;
    QPushButton* m_cmdProcess = nullptr;
    QComboBox* m_cmbDal = nullptr;
    QComboBox* m_cmbAl = nullptr;
    QComboBox* m_cmbConcDal = nullptr;
    QComboBox* m_cmbConcAl = nullptr;
    QLabel* m_lbMnu = nullptr;
    QMenu* m_menuPopup = nullptr;
};

} // namespace dv
