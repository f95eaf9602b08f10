// The progress window of a development: the three counts, the bar, and the button that stops
// the run. It is shown without a parent, since the main window is disabled while a run lasts.
#pragma once

#include "core/Engine.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace dv {

class QtUi;

class frmCalcolo : public QWidget {
    Q_OBJECT
public:
    frmCalcolo(QtUi& ui, RunControl& control, QWidget* parent = nullptr);

    // The counts of the run, as the question on stopping shows them.
    double colonneElaborate() const { return m_colonneElaborate; }
    double colonneSistema() const { return m_colonneSistema; }
    double colonneIntegrale() const { return m_colonneIntegrale; }

    // The run's total, written once before the walk.
    void mostraIntegrale(double total);
    // One progress step: bar and the three counts.
    void mostraAvanzamento(const ProgressInfo& info);
    // The limit of columns: labAllarm takes "0012" and the counts are refreshed.
    void mostraLimite(const ProgressInfo& info);
    // The bar and the counts that the run has published; a timer calls it ten times a second and
    // more, and the end of the run once more for its final counts.
    void mostraConteggiVivi();

    // cmdSvilAnnulla: pauses the run, asks with its counts at the pause, and on yes asks the run
    // to stop; either way the run then goes on (to its end, or to the stop).
    void annulla();

protected:
    // Closing the window while a run is on is the same as cmdSvilAnnulla.
    void closeEvent(QCloseEvent* event) override;

private:
    QString conta(double value) const;

    QtUi& m_ui;
    RunControl& m_control;
    QProgressBar* m_pb;
    QLabel* m_labAllarm;
    QLabel* m_lblNumColIntegrali;
    QLabel* m_lblNumColElaborate;
    QLabel* m_lblNumColSistema;
    QPushButton* m_cmdSvilAnnulla;
    QTimer* m_timer;
    double m_colonneElaborate = 0;
    double m_colonneSistema = 0;
    double m_colonneIntegrale = 0;
    char m_migliaia; // the language's separator of thousands
};

} // namespace dv
