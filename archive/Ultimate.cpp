#include "archive/Ultimate.h"

#include "core/ColumnStore.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cmath>

namespace dv {

namespace {

constexpr int MaxN = 4;
constexpr int32_t MaxTrovate = 32767;

// Binomiali[v][i] = C(v, i) for v 0..90, i 0..4.
constexpr auto Binomiali = [] {
    std::array<std::array<uint32_t, MaxN + 1>, 91> b{};
    for (int v = 0; v <= 90; ++v) {
        b[static_cast<size_t>(v)][0] = 1;
        for (int i = 1; i <= MaxN; ++i)
            b[static_cast<size_t>(v)][static_cast<size_t>(i)] =
                v == 0 ? 0
                       : b[static_cast<size_t>(v - 1)][static_cast<size_t>(i - 1)] +
                             b[static_cast<size_t>(v - 1)][static_cast<size_t>(i)];
    }
    return b;
}();

uint32_t C(int v, int i) {
    return Binomiali[static_cast<size_t>(v)][static_cast<size_t>(i)];
}

// The table of the search is indexed by a rank that falls by one at each step of the
// lexicographic walk: for c1 < ... < cn, the sum over j of C(90 - cj, n + 1 - j). The first
// combination of the walk has rank total - 1, the last rank 0.
class TabellaViste {
public:
    TabellaViste(int n) : m_n(n), m_total(C(90, n)), m_bits((m_total + 63) / 64, 0) {}

    uint32_t total() const { return m_total; }
    bool vista(uint32_t rank) const { return (m_bits[rank >> 6] >> (rank & 63)) & 1; }

    // Marks every combination of n numbers that the draw holds in full.
    void marca(const Estrazione& e) {
        // The draw's distinct numbers of 1..90, ascending.
        std::array<bool, 91> presente{};
        for (int i = 1; i <= 20; ++i) {
            const uint8_t v = e.Numeri[static_cast<size_t>(i)];
            if (v >= 1 && v <= 90) presente[v] = true;
        }
        int m = 0;
        for (int v = 1; v <= 90; ++v)
            if (presente[static_cast<size_t>(v)]) {
                // The rank term of number v at each position j (1..n) of a combination.
                for (int j = 1; j <= m_n; ++j)
                    m_termini[static_cast<size_t>(j)][static_cast<size_t>(m)] = C(90 - v, m_n + 1 - j);
                ++m;
            }
        switch (m_n) {
        case 2:
            marcaDa<2>(1, 0, m, 0);
            break;
        case 3:
            marcaDa<3>(1, 0, m, 0);
            break;
        case 4:
            marcaDa<4>(1, 0, m, 0);
            break;
        default:
            assert(false);
        }
    }

    // The combination of the given rank, ascending, into out[0..n-1].
    void combinazione(uint32_t rank, uint8_t* out) const {
        // Position j holds the least number above the one before whose term is not above what is
        // left of the rank.
        int v = 1;
        for (int j = 1; j <= m_n; ++j) {
            const int i = m_n + 1 - j;
            while (C(90 - v, i) > rank)
                ++v;
            rank -= C(90 - v, i);
            out[j - 1] = static_cast<uint8_t>(v);
            ++v;
        }
    }

    // The highest unmarked rank below `to` and at or above `from`; `from - 1` (wrapping) when none.
    // Walking the ranks downwards is walking the combinations in lexicographic order.
    int64_t ultimaNonVista(int64_t from, int64_t to) const {
        while (to > from) {
            const int64_t top = to - 1;
            const int spare = 63 - static_cast<int>(top & 63);
            const uint64_t liberi = (~m_bits[static_cast<size_t>(top >> 6)]) << spare;
            if (liberi) {
                const int64_t r = top - std::countl_zero(liberi);
                return r >= from ? r : from - 1;
            }
            to = top - (top & 63);
        }
        return from - 1;
    }

private:
    template <int N> void marcaDa(int j, int start, int m, uint32_t rank) {
        const auto& t = m_termini[static_cast<size_t>(j)];
        for (int a = start; a <= m - (N - j) - 1; ++a) {
            const uint32_t r = rank + t[static_cast<size_t>(a)];
            if (j == N)
                m_bits[r >> 6] |= uint64_t{1} << (r & 63);
            else
                marcaDa<N>(j + 1, a + 1, m, r);
        }
    }

    int m_n;
    uint32_t m_total;
    std::vector<uint64_t> m_bits;
    std::array<std::array<uint32_t, 20>, MaxN + 1> m_termini{};
};

} // namespace

ParametriUltimate UltimateParametri(int n, int q) {
    ParametriUltimate p;
    p.combinazioni90 = ColonneIntegrali(90, n);
    p.combinazioni20 = ColonneIntegrali(20, n);
    p.decadimento = std::log((p.combinazioni90 - p.combinazioni20) / p.combinazioni90);
    p.estrazioni = static_cast<int32_t>(std::nearbyint(std::log(q / p.combinazioni90) / p.decadimento));
    return p;
}

RisultatoUltimate UltimateCerca(const ArrayEstrazioni& archivio, int n, int32_t e, RunControl& ctl,
                                EngineObserver& obs) {
    assert(n >= 2 && n <= MaxN);
    RisultatoUltimate r;
    r.n = n;
    TabellaViste tabella(n);
    const double total = tabella.total();

    // 1. Mark what each of the latest e draws holds, from the newest back, stopping at the first.
    const int32_t ultima = UBound(archivio);
    for (int32_t i = ultima; i >= 1 && i > ultima - e; --i)
        tabella.marca(archivio[static_cast<size_t>(i)]);

    // 2. Walk the ranks from the first combination down, keeping the unmarked ones. The walk is
    // cut at each of the 75 steps (where round(done / step) changes) to report progress and to
    // see a stop.
    ctl.StopElaborazione = false;
    obs.started(total);
    const double step = total / PassiUltimate;
    auto passo = [step](double done) { return static_cast<int>(std::nearbyint(done / step)); };
    double done = 0;
    int ultimoPasso = 0;
    while (done < total) {
        // The last combination of this segment: the first at which the step changes, or the last.
        double fine = std::clamp(std::floor((ultimoPasso + 0.5) * step), done + 1, total);
        while (fine > done + 1 && passo(fine - 1) != ultimoPasso)
            --fine;
        while (fine < total && passo(fine) == ultimoPasso)
            ++fine;
        // Ranks of the combinations done + 1 .. fine run from total - done - 1 down to total - fine.
        const auto basso = static_cast<int64_t>(total - fine);
        std::array<uint8_t, MaxN> c{};
        for (int64_t alto = static_cast<int64_t>(total - done);;) {
            const int64_t rank = tabella.ultimaNonVista(basso, alto);
            if (rank < basso) break;
            if (r.trovate() == MaxTrovate) {
                r.overflow = true;
                r.elaborate = total - static_cast<double>(rank) - 1;
                return r;
            }
            tabella.combinazione(static_cast<uint32_t>(rank), c.data());
            r.numeri.insert(r.numeri.end(), c.begin(), c.begin() + n);
            alto = rank;
        }
        done = fine;
        r.elaborate = done;
        const int k = passo(done);
        if (k != ultimoPasso) {
            ultimoPasso = k;
            ProgressInfo info;
            info.step = k;
            info.bar = static_cast<int16_t>(std::nearbyint(k * 100.0 / PassiUltimate));
            info.total = total;
            info.counter = done;
            info.kept = r.trovate();
            obs.progress(info);
            if (ctl.StopElaborazione) {
                r.interrotta = true;
                return r;
            }
        }
    }
    return r;
}

std::string TestoUltimate(const RisultatoUltimate& r) {
    std::string testo;
    testo.reserve(static_cast<size_t>(r.trovate()) * (static_cast<size_t>(r.n) * 3 + 2));
    for (int32_t i = 0; i < r.trovate(); ++i) {
        const uint8_t* c = r.combinazione(i);
        for (int j = 0; j < r.n; ++j) {
            testo += std::to_string(c[j]);
            testo += ' ';
        }
        testo += "\r\n";
    }
    return testo;
}

void ScriviColonneUltimate(ColumnStore& colonne, const RisultatoUltimate& r) {
    for (int32_t i = 0; i < r.trovate(); ++i)
        colonne.setColumn(i + 1, r.combinazione(i), r.n);
}

std::string TestoOverflowUltimate(const std::string& chiusura) {
    return "Error 6 (Overflow" + chiusura;
}

} // namespace dv
