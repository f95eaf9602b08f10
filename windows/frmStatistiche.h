// frmStatistiche: six counts over a range of the archive in memory, one of them at a time as a
// bar chart, and the CSV file of the range. Loaded unseen at start, hidden rather than closed.
#pragma once

#include "archive/Statistiche.h"

#include <QWidget>

#include <array>
#include <string>

class QChartView;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QRadioButton;
class QScrollArea;

namespace dv {

struct Corpo;
class DialogService;
class QtUi;

class frmStatistiche : public QWidget {
    Q_OBJECT
public:
    frmStatistiche(Corpo& corpo, QtUi& ui, DialogService& dialogs, QWidget* parent = nullptr);

    // The load: language texts, the draw-number lists 1..288, the date lists, the first computation.
    void carica();

    // Rebuilds the date lists from the archive in memory; false when it has too many dates.
    bool populateCmbEstrazioni();
    // Names a new CSV file, recomputes everything and shows the first chart.
    void refreshStat();
    // True when the archive in memory holds both dates that the lists show.
    bool intervalloNellArchivio() const;
    // Shows chart index (0..5) and marks its option.
    void optStat(int index);
    // Opens the CSV file with the desktop's handler.
    void cmdTxt();

    // The frequency table as sorted by the last computation.
    const std::array<std::array<int32_t, 2>, 91>& arrayFrequenzaNumeri() const { return m_tabelle.frequenza; }
    const TabelleStatistiche& tabelle() const { return m_tabelle; }
    const std::string& percorsoCsv() const { return m_csvPath; }
    int graficoMostrato() const { return m_grafico; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void costruisci();
    IntervalloStatistiche intervallo() const;

    Corpo& m_corpo;
    QtUi& m_ui;
    DialogService& m_dialogs;
    TabelleStatistiche m_tabelle;
    std::string m_csvPath;
    int m_grafico = -1;

    QComboBox* m_cmbDal = nullptr;
    QComboBox* m_cmbAl = nullptr;
    QComboBox* m_cmbConcDal = nullptr;
    QComboBox* m_cmbConcAl = nullptr;
    std::array<QLabel*, 2> m_lblConc{};
    QFrame* m_frameContainer = nullptr;
    std::array<QRadioButton*, NumeroGrafici> m_optStat{};
    QScrollArea* m_area = nullptr;
    QChartView* m_chartStat = nullptr;
    QLabel* m_lbElaborazione = nullptr;
};

} // namespace dv
