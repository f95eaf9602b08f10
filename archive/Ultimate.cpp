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

// A set of numbers 1..90 as a 128-bit mask: bit v for number v, element 0 holding 0..63 and
// element 1 64..127. One vector register, so that a union is one instruction.
using Maschera = uint64_t __attribute__((vector_size(16)));

// BitNumero[v]: the mask of number v, empty for a byte outside 1..90.
constexpr auto BitNumero = [] {
    std::array<Maschera, 256> t{};
    for (int v = 1; v <= 90; ++v)
        t[static_cast<size_t>(v)] =
            v < 64 ? Maschera{uint64_t{1} << v, 0} : Maschera{0, uint64_t{1} << (v - 64)};
    return t;
}();

// x rounded to the nearest integer, halves to even, for 0 <= x < 2^31.
int ArrotondaPari(double x) {
    const int i = static_cast<int>(x);
    const double resto = x - i;
    return resto > 0.5 || (resto == 0.5 && (i & 1)) ? i + 1 : i;
}

// For each prefix P of n - 1 numbers, the union of the draws that hold P. The combination P + {c}
// (c above the last of P) was seen exactly when bit c of P's mask is set. Prefixes are indexed by
// their colex rank, the sum over i of C(p_i - 1, i) for p_1 < ... < p_m; a prefix of one number by
// the number itself, with an entry for every byte so that a draw's numbers index it unchecked.
class TabellaPrefissi {
public:
    explicit TabellaPrefissi(int n) : m_m(n - 1), m_viste(n == 2 ? 256 : C(90, n - 1)) {}

    // Adds a draw: its mask goes into the entry of every prefix it holds.
    void marca(const Estrazione& e) {
        // The draw's mask of its numbers 1..90 (a repeated number counts once).
        Maschera maschera{};
        for (int i = 1; i <= 20; ++i)
            maschera |= BitNumero[e.Numeri[static_cast<size_t>(i)]];
        // A prefix of one number: each number of the draw takes the whole draw. A byte outside
        // 1..90 (its mask empty) marks an entry that no prefix reads, a repeated number its entry twice.
        if (m_m == 1) {
            for (int i = 1; i <= 20; ++i)
                m_viste[e.Numeri[static_cast<size_t>(i)]] |= maschera;
            return;
        }
        // Its numbers ascending.
        std::array<uint8_t, 20> x{};
        int k = 0;
        for (int parte = 0; parte < 2; ++parte)
            for (uint64_t bits = maschera[parte]; bits; bits &= bits - 1)
                x[static_cast<size_t>(k++)] = static_cast<uint8_t>(parte * 64 + std::countr_zero(bits));
        // The rank term of each number at each position of a prefix.
        for (int i = 1; i <= m_m; ++i)
            for (int j = 0; j < k; ++j)
                m_termini[static_cast<size_t>(i)][static_cast<size_t>(j)] =
                    C(x[static_cast<size_t>(j)] - 1, i);
        switch (m_m) {
        case 2:
            marcaDa<2>(1, 0, k, 0, maschera);
            break;
        case 3:
            marcaDa<3>(1, 0, k, 0, maschera);
            break;
        default:
            assert(false);
        }
    }

    // The numbers above p[m - 1] that no draw holding the prefix p[0..m-1] holds, as a mask.
    Maschera libere(const uint8_t* p) const {
        uint32_t rank = p[0];
        if (m_m > 1) {
            rank = 0;
            for (int i = 1; i <= m_m; ++i)
                rank += C(p[i - 1] - 1, i);
        }
        const Maschera& v = m_viste[rank];
        // Bits 1..90 above the prefix's last number.
        const int ultimo = p[m_m - 1];
        const Maschera sopra{ultimo >= 63 ? 0 : ~uint64_t{0} << (ultimo + 1),
                             (ultimo >= 64 ? ~uint64_t{0} << (ultimo - 63) : ~uint64_t{0}) &
                                 ((uint64_t{1} << (91 - 64)) - 1)};
        return ~v & sopra;
    }

private:
    template <int M> void marcaDa(int i, int start, int k, uint32_t rank, const Maschera& maschera) {
        const auto& t = m_termini[static_cast<size_t>(i)];
        for (int a = start; a <= k - (M - i) - 1; ++a) {
            const uint32_t r = rank + t[static_cast<size_t>(a)];
            if (i == M) {
                m_viste[r] |= maschera;
            } else {
                marcaDa<M>(i + 1, a + 1, k, r, maschera);
            }
        }
    }

    int m_m;
    std::vector<Maschera> m_viste;
    std::array<std::array<uint32_t, 20>, MaxN> m_termini{};
};

// A count of combinations done at which the walk stops: to show progress when its step differs
// from the last one shown, or at the end.
struct Taglio {
    int64_t done;
    int passo; // round(done / step), halves to even
};

// The cuts of a walk over total combinations: every count at which the step of the 75 changes,
// then the total, then one past every count. The step is total / 75 and a count's step is
// round(done / step), in doubles as the progress window computes them.
std::vector<Taglio> CalcolaTagli(double total) {
    const double step = total / PassiUltimate;
    auto passo = [step](double done) { return ArrotondaPari(done / step); };
    std::vector<Taglio> tagli;
    int ultimoPasso = 0;
    double done = 0;
    while (done < total) {
        // The first count after done at which the step changes, or the total.
        double fine = std::clamp(static_cast<double>(static_cast<int64_t>((ultimoPasso + 0.5) * step)),
                                 done + 1, total);
        while (fine > done + 1 && passo(fine - 1) != ultimoPasso)
            --fine;
        while (fine < total && passo(fine) == ultimoPasso)
            ++fine;
        tagli.push_back({static_cast<int64_t>(fine), passo(fine)});
        ultimoPasso = tagli.back().passo;
        done = fine;
    }
    tagli.push_back({INT64_MAX, ultimoPasso});
    return tagli;
}

// The cuts of the walk over the combinations of n out of 90, made once for each n.
const std::vector<Taglio>& TagliUltimate(int n) {
    static const auto tagli = [] {
        std::array<std::vector<Taglio>, MaxN + 1> t;
        for (int k = 2; k <= MaxN; ++k)
            t[static_cast<size_t>(k)] = CalcolaTagli(C(90, k));
        return t;
    }();
    return tagli[static_cast<size_t>(n)];
}

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
    TabellaPrefissi tabella(n);
    const double total = C(90, n);

    // 1. What each of the latest e draws holds, from the newest back, stopping at the first.
    const int32_t ultima = UBound(archivio);
    for (int32_t i = ultima; i >= 1 && i > ultima - e; --i)
        tabella.marca(archivio[static_cast<size_t>(i)]);

    // 2. The combinations in lexicographic order: each prefix in that order, then its last number
    // ascending. The walk stops at each of the 75 steps (where round(done / step) changes) to
    // report progress and to see a stop: after the combination of that count, before the next.
    obs.started(total);
    const Taglio* taglio = TagliUltimate(n).data();
    int ultimoPasso = 0;
    // Shows the steps of the cuts up to the count fino; true when a stop was asked at one.
    auto mostra = [&](int64_t fino) {
        for (; taglio->done <= fino; ++taglio) {
            if (taglio->passo == ultimoPasso) continue;
            ultimoPasso = taglio->passo;
            ProgressInfo info;
            info.step = ultimoPasso;
            info.bar = static_cast<int16_t>(ArrotondaPari(ultimoPasso * 100.0 / PassiUltimate));
            info.total = total;
            info.counter = static_cast<double>(taglio->done);
            info.kept = r.trovate();
            obs.progress(info);
            if (ctl.StopElaborazione) {
                r.interrotta = true;
                r.elaborate = info.counter;
                return true;
            }
        }
        return false;
    };
    int64_t done = 0; // the combinations before the current prefix's
    std::array<uint8_t, MaxN> c{};
    const int m = n - 1;
    for (int i = 0; i < m; ++i)
        c[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    for (;;) {
        // The prefix's combinations are done + 1 .. fine, their last numbers primo..90.
        const int primo = c[static_cast<size_t>(m - 1)] + 1;
        const int64_t fine = done + (91 - primo);
        const Maschera libere = tabella.libere(c.data());
        for (int parte = 0; parte < 2; ++parte)
            for (uint64_t bits = libere[parte]; bits; bits &= bits - 1) {
                const int v = parte * 64 + std::countr_zero(bits);
                const int64_t conta = done + (v - primo) + 1;
                if (mostra(conta - 1)) return r;
                if (r.trovate() == MaxTrovate) {
                    r.overflow = true;
                    r.elaborate = static_cast<double>(conta - 1);
                    return r;
                }
                c[static_cast<size_t>(m)] = static_cast<uint8_t>(v);
                r.numeri.insert(r.numeri.end(), c.begin(), c.begin() + n);
            }
        if (taglio->done <= fine && mostra(fine)) return r;
        done = fine;
        r.elaborate = static_cast<double>(done);
        // The next prefix: the last position that can still grow, and the ones after it in a row.
        int j = m - 1;
        while (j >= 0 && c[static_cast<size_t>(j)] >= 90 - n + j + 1)
            --j;
        if (j < 0) return r;
        ++c[static_cast<size_t>(j)];
        for (int p = j + 1; p < m; ++p)
            c[static_cast<size_t>(p)] = static_cast<uint8_t>(c[static_cast<size_t>(p - 1)] + 1);
    }
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
