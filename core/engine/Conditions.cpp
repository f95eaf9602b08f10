#include "core/engine/Conditions.h"

#include <algorithm>

namespace dv::engine {

Reduction ReductionOf(const Corpo& c) {
    Reduction r;
    const int len = c.LenColonna;
    if (c.condizioni.CondRidotto) {
        r.on = true;
        r.shared = LimiteRidotto(len, c.condizioni.ValRidotto);
    }
    if (c.distanzaMinima.CondDistanzaMinima) {
        const int shared = LimiteDistanzaMinima(len, c.distanzaMinima.ValDistanzaMinima) + 1;
        r.shared = r.on ? std::min(r.shared, shared) : shared;
        r.on = true;
    }
    return r;
}

CompiledConditions::CompiledConditions(const Corpo& c, Mask universe, int universeSize) : len(c.LenColonna) {
    const Condizioni& k = c.condizioni;
    fisse = k.CondFisse != 0;
    somma = k.CondSomma != 0;
    pari = k.CondPari != 0;
    consecutivi = c.consecutivi.CondConsecutivi != 0;
    for (int v = 0; v <= 90; ++v)
        if (k.TabFisse[static_cast<size_t>(v)] == 1) fixedNumbers |= Mask::bit(v);
    numFisse = k.NumFisse;
    sommaMin = k.SommaMinMax[0];
    sommaMax = k.SommaMinMax[1];
    for (int e = 0; e <= len; ++e)
        if (k.TabPari[static_cast<size_t>(e)] != 0) pariAmmessi |= uint32_t{1} << e;
    const ConsecutiviAmmessi runs(c.consecutivi, len);
    for (int r = 1; r <= len; ++r)
        if (runs.allowed[static_cast<size_t>(r)] != 0) consecutiviAmmessi |= uint32_t{1} << r;
    andTable.compile(c.FiltriAND, TableKind::And, universe, universeSize, len);
    orTable.compile(c.FiltriOR, TableKind::Or, universe, universeSize, len);
    xorTable.compile(c.FiltriXOR, TableKind::Xor, universe, universeSize, len);
    distanze = &c.CondizioniDistanza;
    reduction = ReductionOf(c);
}

bool IsSet(const uint8_t* col, int len) {
    Mask seen;
    for (int i = 0; i < len; ++i) {
        if (col[i] == 0 || col[i] > 127 || seen.has(col[i])) return false;
        seen |= Mask::bit(col[i]);
    }
    return true;
}

} // namespace dv::engine
