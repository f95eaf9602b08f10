// The two ways a development is started, as the main window and the command line run them.
#pragma once

#include "core/Corpo.h"
#include "core/Engine.h"
#include "core/Ui.h"

namespace dv {

// Before a development of the forecast: Numeri from the grid, and fixed numbers no longer on
// the grid dropped from TabFisse (NumFisse decremented as a byte, wrapping from 0 to 255).
void PreparaSviluppo(Corpo& c);
// Before a re-development: the same drop of fixed numbers, counted only while NumFisse is not 0.
void PreparaRielaborazione(Corpo& c);
// After either run: status line, and the lock when the run kept columns.
void ConcludiElaborazione(Corpo& c, Ui& ui);

// Adapts the engine's reports to the Ui: the limit warning and the elapsed-time box.
class UiEngineObserver : public EngineObserver {
public:
    explicit UiEngineObserver(Ui& ui, EngineObserver* inner = nullptr) : m_ui(ui), m_inner(inner) {}
    void started(double total) override;
    void progress(const ProgressInfo& info) override;
    void limitReached(const ProgressInfo& info) override;
    void finished(double elapsedSeconds) override;

private:
    Ui& m_ui;
    EngineObserver* m_inner;
};

// The whole of cmdCalcolo, run on the calling thread: a development when no columns are held,
// a re-development otherwise, then Sblocca_x_Ricalcolo in recompute mode.
RunResult Elabora(Corpo& c, Ui& ui, RunControl& ctl, EngineObserver& progress);

} // namespace dv
