// Runs cmdCalcolo off the window thread: the main window is disabled, frmCalcolo shows the
// progress that the engine reports, and the window comes back when the run has ended. Boxes that
// the run shows (the limit, the elapsed time) go through QtUi, which runs them on the window
// thread while the worker waits.
#pragma once

#include "core/Corpo.h"
#include "core/Engine.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <thread>

namespace dv {

class frmCalcolo;
class QtUi;

class frmCalcoloWorker : public QObject {
    Q_OBJECT
public:
    frmCalcoloWorker(Corpo& corpo, QtUi& ui, QWidget& mainWindow);
    ~frmCalcoloWorker() override;

    // Starts a development, or a re-development when columns are held. Does nothing while a
    // run is on.
    void avvia();
    bool inCorso() const { return m_inCorso; }
    // The progress window of the current or last run; null before the first.
    frmCalcolo* finestra() const { return m_finestra.get(); }
    RunResult ultimoRisultato() const { return m_risultato; }
    // The flags and live counts of the current or last run.
    const RunControl& controllo() const { return m_control; }

signals:
    // The run has ended and the main window is enabled again.
    void conclusa();

private:
    void concludi();

    Corpo& m_corpo;
    QtUi& m_ui;
    QWidget& m_main;
    RunControl m_control;
    std::unique_ptr<frmCalcolo> m_finestra;
    std::thread m_thread;
    std::atomic<bool> m_inCorso{false};
    std::atomic<bool> m_threadFinito{true};
    RunResult m_risultato;
};

} // namespace dv
