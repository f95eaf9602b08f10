// A progress bar on stderr drawn from the engine's reports, only when stderr is a terminal
// and the run has lasted a moment.
#pragma once

#include "core/Engine.h"

#include <chrono>
#include <cstdio>

namespace dv::cli {

class BarraProgresso : public EngineObserver {
public:
    // sep groups the thousands of the counts, as the language in use does.
    explicit BarraProgresso(std::FILE* out, char sep = '.');
    ~BarraProgresso() override { chiudi(); }

    void started(double total) override;
    void progress(const ProgressInfo& info) override;
    void limitReached(const ProgressInfo& info) override;
    // Clears the bar's line, if one was drawn.
    void chiudi();

private:
    std::FILE* m_out;
    bool m_terminale;
    char m_sep;
    bool m_disegnata = false;
    std::chrono::steady_clock::time_point m_inizio;
};

} // namespace dv::cli
