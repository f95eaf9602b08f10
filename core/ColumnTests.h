// The column tests: pure functions of one candidate column and one piece of condition data.
// A column is len bytes, col[0..len-1]. Columns read from text files may hold 0 or repeated
// numbers: a 0 is never fixed, never a filter's number and never present in a presence map,
// and a repeated number counts once for each time it stands in the column.
#pragma once

#include "core/Corpo.h"

#include <cstdint>

namespace dv {

// The count of the column's numbers flagged in TabFisse equals NumFisse exactly.
inline bool TestFisse(const uint8_t* col, int len, const Condizioni& k) {
    int count = 0;
    for (int i = 0; i < len; ++i)
        if (col[i] <= 90 && k.TabFisse[col[i]] == 1) ++count;
    return count == k.NumFisse;
}

// The sum, added in a 16-bit unsigned variable and compared as signed, lies within min..max.
inline bool TestSomma(const uint8_t* col, int len, int min, int max) {
    uint16_t sum = 0;
    for (int i = 0; i < len; ++i) sum = static_cast<uint16_t>(sum + col[i]);
    const auto s = static_cast<int16_t>(sum);
    return s >= min && s <= max;
}

// The sum lies within both limits of SommaMinMax.
inline bool TestSomma(const uint8_t* col, int len, const Condizioni& k) {
    return TestSomma(col, len, k.SommaMinMax[0], k.SommaMinMax[1]);
}

inline int ContaPari(const uint8_t* col, int len) {
    int e = 0;
    for (int i = 0; i < len; ++i)
        if (col[i] % 2 == 0) ++e;
    return e;
}

// TabPari[e] is true, e being the count of even numbers in the column.
inline bool TestPari(const uint8_t* col, int len, const Condizioni& k) {
    return k.TabPari[static_cast<size_t>(ContaPari(col, len))] != 0;
}

// The column holds p of the filter's numbers and bit p of Presenze is set.
inline bool ColonnaFiltroMatch(const uint8_t* col, int len, const ColonnaFiltro& f) {
    int p = 0;
    for (int i = 0; i < len; ++i)
        if (col[i] <= 90 && f.Numeri[col[i]] == 1) ++p;
    return (Potenze2[static_cast<size_t>(p)] & f.Presenze) > 0;
}

// The longest run of numbers that each exceed the one before by exactly 1; at least 1.
inline int RunPiuLunga(const uint8_t* col, int len) {
    int best = 1, run = 1;
    for (int i = 1; i < len; ++i) {
        run = (col[i] == static_cast<uint8_t>(col[i - 1] + 1)) ? run + 1 : 1;
        if (run > best) best = run;
    }
    return best;
}

// allowed[r] for r in 1..len, built once per run from MaskConsecutivi.
struct ConsecutiviAmmessi {
    std::array<int16_t, MaxLenColonna + 1> allowed{};
    ConsecutiviAmmessi(const Consecutivi& c, int len) {
        for (int i = 1; i <= len; ++i) allowed[static_cast<size_t>(i)] = (c.MaskConsecutivi & Potenze2[static_cast<size_t>(i)]) ? Vero : Falso;
    }
};

inline bool TestConsecutivi(const uint8_t* col, int len, const ConsecutiviAmmessi& a) {
    return a.allowed[static_cast<size_t>(RunPiuLunga(col, len))] != 0;
}

// Element d of a distance table as the record in memory reads it: element 0 is the count
// in front of the table, and no distance lies past 89.
inline int16_t DistanzaAmmessa(const std::array<int16_t, 90>& table, uint8_t count, int d) {
    if (d == 0) return count;
    if (d > 89) return 0;
    return table[static_cast<size_t>(d)];
}

// The least and greatest gap over the chosen pairs, each allowed by its table (or untested).
inline bool CondizioneDistanzaMatch(const uint8_t* col, int len, const CondizioneDistanza& cd) {
    int least = 89, greatest = 0;
    for (int i = 1; i <= cd.NumPosizioni && i <= 25; ++i) {
        const int p = cd.Posizioni[static_cast<size_t>(i)];
        if (p >= 1 && p < len) {
            const int d = static_cast<uint8_t>(col[p] - col[p - 1]);
            if (d <= least) least = d;
            if (d >= greatest) greatest = d;
        }
    }
    const int16_t a = cd.NumDistanzeMin == 0 ? Vero : DistanzaAmmessa(cd.DistanzaMin, cd.NumDistanzeMin, least);
    const int16_t b = cd.NumDistanzeMax == 0 ? Vero : DistanzaAmmessa(cd.DistanzaMax, cd.NumDistanzeMax, greatest);
    return static_cast<int16_t>(a & b) != 0;
}

// Common numbers of a kept column with a candidate whose presence map is given (index n for n).
inline int NumeriComuni(const uint8_t* kept, int len, const uint8_t* presenza) {
    int common = 0;
    for (int i = 0; i < len; ++i) common += presenza[kept[i]];
    return common;
}

// The limits of the two comparing tests.
inline int LimiteRidotto(int len, uint8_t valRidotto) { return static_cast<int16_t>(len - valRidotto); }
inline int LimiteDistanzaMinima(int len, uint8_t valDistanza) { return static_cast<uint8_t>(len - valDistanza); }

} // namespace dv
