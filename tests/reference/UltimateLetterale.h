// The Ultimate search as the literal loop: every combination of the generator tested against one
// filter record per evaluated draw, failing at the first draw that holds it. The reference that
// the program's search is checked against, in tests and benchmarks only.
#pragma once

#include "archive/Ultimate.h"
#include "core/cCombinazioni.h"
#include "core/ColumnTests.h"
#include "filters/ImportFiltri.h"

#include <cmath>
#include <vector>

namespace dv::test {

inline RisultatoUltimate UltimateCalcolaLetterale(const ArrayEstrazioni& archivio, int n, int32_t e,
                                                  RunControl& ctl, EngineObserver& obs) {
    RisultatoUltimate r;
    r.n = n;
    // Allowed counts 0..n-1: a column with all n numbers in a draw is refused.
    int32_t mask = 0;
    for (int k = 0; k < n; ++k)
        mask += Potenze2[static_cast<size_t>(k)];
    std::vector<ColonnaFiltro> tabella(1);
    for (int32_t i = UBound(archivio); i >= 1 && i >= UBound(archivio) - e + 1; --i)
        tabella.push_back(ColonnaFiltroDaNumeri(&archivio[static_cast<size_t>(i)].Numeri[1], 20, mask));
    const auto conta = static_cast<int32_t>(tabella.size()) - 1;

    cCombinazioni gen;
    gen.create(90, static_cast<uint8_t>(n));
    obs.started(gen.size());
    const double step = gen.size() / PassiUltimate;
    int16_t trovate = 0;
    double fatte = 0;
    int ultimoK = 0;
    while (gen.hasNext() && !ctl.StopElaborazione) {
        gen.getNext();
        const std::vector<uint8_t> a = gen.toByteArray();
        bool passa = true;
        for (int32_t j = 1; j <= conta && tabella[static_cast<size_t>(j)].Stato != 0; ++j)
            if (!ColonnaFiltroMatch(&a[1], n, tabella[static_cast<size_t>(j)])) {
                passa = false;
                break;
            }
        if (passa) {
            if (trovate == 32767) {
                r.overflow = true;
                r.elaborate = fatte;
                return r;
            }
            ++trovate;
            r.numeri.insert(r.numeri.end(), a.begin() + 1, a.end());
        }
        fatte += 1;
        r.elaborate = fatte;
        const int k = static_cast<int>(std::nearbyint(fatte / step));
        if (k != ultimoK) {
            ultimoK = k;
            ProgressInfo info;
            info.step = k;
            info.bar = static_cast<int16_t>(std::nearbyint(k * 100.0 / PassiUltimate));
            info.total = gen.size();
            info.counter = fatte;
            info.kept = trovate;
            obs.progress(info);
        }
    }
    r.interrotta = ctl.StopElaborazione;
    return r;
}

} // namespace dv::test
