// The Ultimate search over 30 days of five-minute draws (8,640): ambo, terno and quaterna with
// Q = 1, the literal search and the program's in one run, their times, the ratio, and a signature
// of each result (count and checksum of the combinations, in order). Exits with 1 when a
// signature differs.
#include "archive/Ultimate.h"
#include "bench/Cronometro.h"
#include "tests/reference/UltimateLetterale.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <numeric>
#include <random>

using namespace dv;
using dv::bench::Secondi;

namespace {

ArrayEstrazioni Archivio() {
    ArrayEstrazioni a(1);
    std::mt19937 g(20261122);
    std::array<uint8_t, 90> tutti{};
    std::iota(tutti.begin(), tutti.end(), uint8_t{1});
    for (int k = 0; k < 30 * 288; ++k) {
        Estrazione e;
        char data[24];
        std::snprintf(data, sizeof data, "%02d/11/2026", 1 + k / 288);
        std::copy_n(data, 10, e.Data.begin());
        e.Concorso = static_cast<int16_t>(k % 288 + 1);
        for (int i = 0; i < 20; ++i)
            std::swap(tutti[static_cast<size_t>(i)], tutti[static_cast<size_t>(i + g() % (90 - i))]);
        std::copy_n(tutti.begin(), 20, e.Numeri.begin() + 1);
        a.push_back(e);
    }
    return a;
}

struct Firma {
    int32_t trovate;
    uint64_t somma;
    bool operator==(const Firma&) const = default;
};

Firma FirmaDi(const RisultatoUltimate& r) {
    uint64_t h = 1469598103934665603ull;
    for (uint8_t v : r.numeri)
        h = (h ^ v) * 1099511628211ull;
    return {r.trovate(), h};
}

} // namespace

int main() {
    const ArrayEstrazioni a = Archivio();
    bool uguali = true;
    std::printf("Ultimate over %d five-minute draws, Q = 1\n", UBound(a));
    for (int n : {2, 3, 4}) {
        const int32_t e = UltimateEstrazioni(n, 1);
        RisultatoUltimate letterale, nostra;
        RunControl ctl;
        EngineObserver obs;
        // Each side as the best of many runs, as many as fit in a fraction of a second (the
        // literal quaterna, of many seconds, once).
        const int volteL = n == 2 ? 400 : n == 3 ? 5 : 1;
        const int volteN = n == 2 ? 20000 : n == 3 ? 2000 : 20;
        const double tL =
            Secondi([&] { letterale = test::UltimateCalcolaLetterale(a, n, e, ctl, obs); }, volteL);
        const double tN = Secondi([&] { nostra = UltimateCerca(a, n, e, ctl, obs); }, volteN);
        const Firma fL = FirmaDi(letterale), fN = FirmaDi(nostra);
        const char* nome = n == 2 ? "ambo" : n == 3 ? "terno" : "quaterna";
        std::printf(
            "%-9s E = %5d  literal %10.6f s  ours %10.7f s  ratio %8.1fx  signature literal %d/%016llx "
            "ours %d/%016llx%s\n",
            nome, e, tL, tN, tL / tN, fL.trovate, static_cast<unsigned long long>(fL.somma), fN.trovate,
            static_cast<unsigned long long>(fN.somma), fL == fN ? "" : "  DIFFERENT");
        uguali = uguali && fL == fN;
    }
    return uguali ? 0 : 1;
}
