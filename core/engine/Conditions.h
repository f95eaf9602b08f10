// The conditions of a run, compiled once before the walk.
#pragma once

#include "core/ColumnTests.h"
#include "core/Corpo.h"
#include "core/engine/Filters.h"
#include "core/engine/Mask.h"

#include <cstdint>

namespace dv::engine {

// What a reduction asks of a candidate: to share fewer than `shared` numbers with every kept
// column. Both reductions have this form; with both on, the stricter one decides.
struct Reduction {
    bool on = false;
    int shared = 0; // may be 0 or less (nothing can be kept after the first column) or above len
};

// The two reductions of the state as one: guarantee N fails at len - N shared (a signed
// 16-bit difference), minimum distance D fails above len - D shared (a byte difference).
Reduction ReductionOf(const Corpo& c);

// The conditions on a column alone, as masks and bit sets.
struct CompiledConditions {
    int len = 0;
    bool fisse = false, somma = false, pari = false, consecutivi = false;
    Mask fixedNumbers;
    int numFisse = 0;
    int sommaMin = 0, sommaMax = 0;
    uint32_t pariAmmessi = 0;        // bit e: e even numbers pass
    uint32_t consecutiviAmmessi = 0; // bit r: a longest run of r passes
    CompiledTable andTable, orTable, xorTable;
    const TabellaDistanze* distanze = nullptr;
    Reduction reduction;

    // Columns are len distinct numbers drawn from `universe` (universeSize numbers, all
    // 1..127); with universeSize 0 they are any bytes.
    CompiledConditions(const Corpo& c, Mask universe, int universeSize);

    // The filter tables on a whole column.
    template <typename Hits> bool filtersPass(const Hits& hits) const {
        return andTable.passes(hits) && orTable.passes(hits) && xorTable.passes(hits);
    }
    // At least one distance record passes, or there is none.
    bool distancesPass(const uint8_t* col) const {
        const int n = distanze->count();
        for (int i = 1; i <= n; ++i)
            if (CondizioneDistanzaMatch(col, len, (*distanze)[i])) return true;
        return n == 0;
    }
    // Every test on a column alone; hits counts the column's numbers in a set (SetHits for a
    // column of distinct numbers 1..127, ByteHits for any column).
    template <typename Hits> bool passesAlone(const uint8_t* col, const Hits& hits) const;
};

template <typename Hits> bool CompiledConditions::passesAlone(const uint8_t* col, const Hits& hits) const {
    if (fisse && hits(fixedNumbers) != numFisse) return false;
    if (somma && !TestSomma(col, len, sommaMin, sommaMax)) return false;
    if (pari && ((pariAmmessi >> ContaPari(col, len)) & 1u) == 0) return false;
    if (!filtersPass(hits)) return false;
    if (consecutivi && ((consecutiviAmmessi >> RunPiuLunga(col, len)) & 1u) == 0) return false;
    return distancesPass(col);
}

// A column whose numbers are distinct and within 1..127 can be handled as a set.
bool IsSet(const uint8_t* col, int len);

} // namespace dv::engine
