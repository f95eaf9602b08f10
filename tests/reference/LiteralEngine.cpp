#include "tests/reference/LiteralEngine.h"

#include "core/ColumnTests.h"

#include <array>
#include <chrono>
#include <cmath>
#include <vector>

namespace dv::reference {

namespace {

struct Chain {
    const Corpo& c;
    int len;
    ConsecutiviAmmessi consecutivi;
    std::array<uint8_t, 256> presenza{};

    Chain(const Corpo& corpo) : c(corpo), len(corpo.LenColonna), consecutivi(corpo.consecutivi, corpo.LenColonna) {}

    bool testRidotto(const uint8_t* cand, int32_t kept) {
        if (kept == 0) return true;
        const int limit = LimiteRidotto(len, c.condizioni.ValRidotto);
        std::array<uint8_t, MaxLenColonna> k{};
        for (int32_t j = kept; j >= 1; --j) {
            c.Colonne.getColumn(j, k.data(), len);
            if (NumeriComuni(k.data(), len, presenza.data()) >= limit) return false;
        }
        (void)cand;
        return true;
    }

    bool testDistanzaMinima(int32_t kept) {
        if (kept == 0) return true;
        const int limit = LimiteDistanzaMinima(len, c.distanzaMinima.ValDistanzaMinima);
        std::array<uint8_t, MaxLenColonna> k{};
        for (int32_t j = kept; j >= 1; --j) {
            c.Colonne.getColumn(j, k.data(), len);
            if (NumeriComuni(k.data(), len, presenza.data()) > limit) return false;
        }
        return true;
    }

    void mark(const uint8_t* cand, uint8_t v) {
        for (int i = 0; i < len; ++i)
            if (cand[i] != 0) presenza[cand[i]] = v;
    }

    // The whole chain of tests for one candidate.
    bool passes(const uint8_t* cand, int32_t kept) {
        const Condizioni& k = c.condizioni;
        bool ok = k.CondFisse ? TestFisse(cand, len, k) : true;
        if (ok && k.CondSomma) ok = TestSomma(cand, len, k);
        if (ok && k.CondPari) ok = TestPari(cand, len, k);
        for (int i = 1; ok && i <= c.FiltriAND.count(); ++i) ok = ColonnaFiltroMatch(cand, len, c.FiltriAND[i]);
        if (!ok) return false;
        if (c.FiltriOR.count() > 0) {
            ok = false;
            for (int i = 1; !ok && i <= c.FiltriOR.count(); ++i) ok = ColonnaFiltroMatch(cand, len, c.FiltriOR[i]);
            if (!ok) return false;
        }
        if (c.FiltriXOR.count() > 0) {
            int count = 0;
            for (int i = 1; count < 2 && i <= c.FiltriXOR.count(); ++i)
                if (ColonnaFiltroMatch(cand, len, c.FiltriXOR[i])) ++count;
            ok = count == 1;
        }
        if (ok && c.consecutivi.CondConsecutivi) ok = TestConsecutivi(cand, len, consecutivi);
        if (!ok) return false;
        if (c.CondizioniDistanza.count() != 0) {
            ok = false;
            for (int i = 1; !ok && i <= c.CondizioniDistanza.count(); ++i)
                ok = CondizioneDistanzaMatch(cand, len, c.CondizioniDistanza[i]);
            if (!ok) return false;
        }
        if (k.CondRidotto) {
            mark(cand, 1);
            ok = testRidotto(cand, kept);
            mark(cand, 0);
        }
        if (ok && c.distanzaMinima.CondDistanzaMinima) {
            mark(cand, 1);
            ok = testDistanzaMinima(kept);
            mark(cand, 0);
        }
        return ok;
    }
};

double AdessoInGiorni() {
    using namespace std::chrono;
    const double secs = duration<double>(system_clock::now().time_since_epoch()).count();
    return secs / 86400.0 + 25569.0; // days since 30 December 1899
}

} // namespace

RunResult SviluppaIntegrale(Corpo& c, int n, const uint8_t* numeri, RunControl& ctl, EngineObserver& obs,
                            const std::string& descrizione) {
    const int len = c.LenColonna;
    ctl.StopElaborazione = false;
    double counter = 1.0;
    int32_t kept = 0;
    int lastStep = -1;
    Chain chain(c);
    const double total = ColonneIntegrali(n, len);
    obs.started(total);
    const double stepSize = total / 250.0;
    c.Colonne.erase();
    std::vector<int> index(static_cast<size_t>(len) + 1);
    std::vector<uint8_t> cand(static_cast<size_t>(len));
    c.InizioElaborazione = AdessoInGiorni();
    const auto start = std::chrono::steady_clock::now();
    bool stopped = false;
    double shown = 0.0; // colonneElaborate

    while (counter <= total) {
        if (counter == 1.0) {
            for (int i = 1; i <= len; ++i) index[static_cast<size_t>(i)] = i;
        } else {
            int j = len;
            while (index[static_cast<size_t>(j)] >= j - len + n) --j;
            ++index[static_cast<size_t>(j)];
            for (int p = j + 1; p <= len; ++p) index[static_cast<size_t>(p)] = index[static_cast<size_t>(p - 1)] + 1;
        }
        for (int i = 1; i <= len; ++i) cand[static_cast<size_t>(i - 1)] = numeri[index[static_cast<size_t>(i)] - 1];

        // A full store, or a stop set meanwhile from another thread, skips the tests.
        if (!(kept >= MaxColonne || stopped || ctl.StopElaborazione)) {
            if (chain.passes(cand.data(), kept)) {
                ++kept;
                c.Colonne.setColumn(kept, cand.data(), len);
            }
        }
        shown = counter;
        const int s = static_cast<int>(std::nearbyint(counter / stepSize));
        if (s != lastStep) {
            lastStep = s;
            ProgressInfo info{s, static_cast<int>(std::nearbyint(s * 0.4)), total, counter, kept};
            obs.progress(info);
            if (ctl.StopElaborazione) stopped = true;
        }
        if (kept >= MaxColonne) {
            obs.limitReached(ProgressInfo{lastStep, static_cast<int>(std::nearbyint(lastStep * 0.4)), total, counter, kept});
            stopped = true;
        }
        if (stopped || ctl.StopElaborazione) {
            stopped = true;
            break;
        }
        counter += 1.0;
    }

    c.pronostico.Descrizione = descrizione + (stopped ? " - ***" : "");
    c.StopElaborazione = stopped ? Vero : Falso;
    c.pronostico.NumColonne = kept;
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start);
    obs.finished(elapsed.count());
    return RunResult{shown, kept, stopped};
}

RunResult RielaboraColonne(Corpo& c, RunControl& ctl, EngineObserver& obs, const std::string& descrizione) {
    const int len = c.LenColonna;
    const int32_t source = c.pronostico.NumColonne;
    std::vector<uint8_t> copy(static_cast<size_t>(source) * static_cast<size_t>(len));
    for (int32_t j = 1; j <= source; ++j) c.Colonne.getColumn(j, &copy[static_cast<size_t>(j - 1) * static_cast<size_t>(len)], len);

    ctl.StopElaborazione = false;
    double counter = 0.0;
    int32_t kept = 0;
    int lastStep = -1;
    Chain chain(c);
    const double total = source;
    obs.started(total);
    const double stepSize = total / 100.0;
    c.Colonne.erase();
    bool stopped = false;

    for (int32_t row = 1; row <= source; ++row) {
        const uint8_t* cand = &copy[static_cast<size_t>(row - 1) * static_cast<size_t>(len)];
        // A full store, or a stop set meanwhile from another thread, skips the tests.
        if (!(kept >= MaxColonne || stopped || ctl.StopElaborazione)) {
            if (chain.passes(cand, kept)) {
                ++kept;
                c.Colonne.setColumn(kept, cand, len);
            }
        }
        counter += 1.0;
        const int s = static_cast<int>(std::nearbyint(counter / stepSize));
        if (s != lastStep) {
            lastStep = s;
            obs.progress(ProgressInfo{s, static_cast<uint8_t>(s), total, counter, kept});
            if (ctl.StopElaborazione) stopped = true;
        }
        if (kept >= MaxColonne) {
            obs.limitReached(ProgressInfo{lastStep, static_cast<uint8_t>(lastStep), total, counter, kept});
            stopped = true;
        }
        if (stopped || ctl.StopElaborazione) {
            stopped = true;
            break;
        }
    }

    c.pronostico.Descrizione = descrizione + (stopped ? " - ***" : "");
    c.StopElaborazione = stopped ? Vero : Falso;
    c.pronostico.NumColonne = kept;
    return RunResult{counter, kept, stopped};
}

} // namespace dv::reference
