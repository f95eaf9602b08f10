#include "core/Engine.h"

#include "core/engine/ColumnChecker.h"
#include "core/engine/Progress.h"
#include "core/engine/Walk.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <vector>

namespace dv {

namespace {

using engine::Mask;

double AdessoInGiorni() {
    using namespace std::chrono;
    const double secs = duration<double>(system_clock::now().time_since_epoch()).count();
    return secs / 86400.0 + 25569.0; // days since 30 December 1899
}

// The combinations of a forecast that cannot be walked as sets (a 0, a repeat or a byte above
// 127 among its numbers), one by one in lexicographic order.
void CheckEveryCombination(Corpo& c, int n, const uint8_t* numeri, engine::RunProgress& progress) {
    const int len = c.LenColonna;
    engine::ColumnChecker checker(c, Mask{}, false);
    std::array<int, MaxLenColonna + 1> index{};
    std::array<uint8_t, MaxLenColonna> cand{};
    for (int i = 1; i <= len; ++i)
        index[static_cast<size_t>(i)] = i;
    for (;;) {
        for (int i = 1; i <= len; ++i)
            cand[static_cast<size_t>(i - 1)] = numeri[index[static_cast<size_t>(i)] - 1];
        if (checker.passes(cand.data(), progress.kept())) {
            c.Colonne.setColumn(progress.kept() + 1, cand.data(), len);
            checker.add(cand.data());
            if (!progress.keep()) return;
        } else if (!progress.reject(1)) {
            return;
        }
        int j = len;
        while (j >= 1 && index[static_cast<size_t>(j)] >= j - len + n)
            --j;
        if (j == 0) return;
        ++index[static_cast<size_t>(j)];
        for (int p = j + 1; p <= len; ++p)
            index[static_cast<size_t>(p)] = index[static_cast<size_t>(p - 1)] + 1;
    }
}

void Concludi(Corpo& c, const engine::RunProgress& progress, const std::string& descrizione) {
    progress.publishFinal();
    c.pronostico.Descrizione = descrizione + (progress.stopped() ? " - ***" : "");
    c.StopElaborazione = progress.stopped() ? Vero : Falso;
    c.pronostico.NumColonne = progress.kept();
}

} // namespace

RunResult SviluppaIntegrale(Corpo& c, int n, const uint8_t* numeri, RunControl& ctl, EngineObserver& obs,
                            const std::string& descrizione) {
    const int len = c.LenColonna;
    assert(n >= 0 && n <= 90 && len >= 1 && len <= MaxLenColonna);
    n = std::clamp(n, 0, 90); // Numeri holds 90 numbers
    ctl.StopElaborazione = false;
    const double total = ColonneIntegrali(n, len);
    obs.started(total);
    c.Colonne.erase();
    c.InizioElaborazione = AdessoInGiorni();
    const auto start = std::chrono::steady_clock::now();
    engine::RunProgress progress(total, engine::Scale::Development, ctl, obs);
    if (total > 0 && len >= 1 && len <= MaxLenColonna) {
        if (engine::CanWalk(numeri, n))
            engine::WalkIntegral(c, numeri, n, progress);
        else
            CheckEveryCombination(c, n, numeri, progress);
    }
    Concludi(c, progress, descrizione);
    obs.finished(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    return RunResult{progress.counter(), progress.kept(), progress.stopped()};
}

RunResult RielaboraColonne(Corpo& c, RunControl& ctl, EngineObserver& obs, const std::string& descrizione) {
    const int len = c.LenColonna;
    const int32_t source = c.pronostico.NumColonne;
    assert(len >= 1 && len <= MaxLenColonna && source >= 0 && source <= MaxColonne);
    // 1. The private copy of the held columns, and whether all of them are sets.
    std::vector<uint8_t> copy(static_cast<size_t>(source) * static_cast<size_t>(len));
    bool sets = true;
    Mask universe;
    for (int32_t j = 1; j <= source; ++j) {
        uint8_t* row = &copy[static_cast<size_t>(j - 1) * static_cast<size_t>(len)];
        c.Colonne.getColumn(j, row, len);
        sets = sets && engine::IsSet(row, len);
        for (int i = 0; i < len && sets; ++i)
            universe |= Mask::bit(row[i]);
    }
    ctl.StopElaborazione = false;
    const double total = source;
    obs.started(total);
    c.Colonne.erase();
    engine::RunProgress progress(total, engine::Scale::Redevelopment, ctl, obs);
    // 2. Every held column in its order through the chain.
    engine::ColumnChecker checker(c, universe, sets);
    for (int32_t row = 1; row <= source; ++row) {
        const uint8_t* cand = &copy[static_cast<size_t>(row - 1) * static_cast<size_t>(len)];
        if (checker.passes(cand, progress.kept())) {
            c.Colonne.setColumn(progress.kept() + 1, cand, len);
            checker.add(cand);
            if (!progress.keep()) break;
        } else if (!progress.reject(1)) {
            break;
        }
    }
    Concludi(c, progress, descrizione);
    return RunResult{progress.counter(), progress.kept(), progress.stopped()};
}

} // namespace dv
