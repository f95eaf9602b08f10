// The rules of the game as the program knows them: what one column wins by its length, its hits
// and the kind of play, what a column costs, and how euro are rounded and added up.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace dv {

// A prize table: [length L 0..10][hits h 0..10], the prize of one column at a stake of 1. Slice
// L = 0 holds, at h = n, the number of prize categories of a column of length n.
using TabellaPremi = std::array<std::array<int32_t, 11>, 11>;

extern const TabellaPremi PremiClassico;
extern const TabellaPremi PremiNumeroOro;
extern const TabellaPremi PremiDoppioOro;

// The longest column that has prizes.
constexpr int LunghezzaMassimaPremi = 10;

// True when a check can run for columns of length len (at most 10). The tables are fixed in
// the program, so this length test is all that the start of a check needs.
inline bool InitPremi(int len) {
    return len >= 0 && len <= LunghezzaMassimaPremi;
}

// The table that values a column: Classico for kind 1; for kind 2 Numero ORO when the column
// holds the draw's Numero Oro among its hits; for kind 3 Doppio ORO when it holds both Oro
// numbers, Numero ORO when it holds one of them. No fall-back from a zero cell.
const TabellaPremi& ScegliTabella(int tipo, bool oro1, bool oro2);

// The table's cell for length len and h hits; 0 means the column has not won.
inline int32_t Premio(const TabellaPremi& tabella, int len, int h) {
    return tabella[static_cast<size_t>(len)][static_cast<size_t>(h)];
}

// The cost of one column: kind of play (1..3) times the stake.
inline float CostoColonna(int tipo, float importo) {
    return static_cast<float>(tipo) * importo;
}

// A sum of euro held in a 32-bit integer: it wraps around without a word.
inline int32_t Somma32(int32_t a, int64_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<int64_t>(a) + b));
}

// A value in euro brought to a 32-bit integer: rounded to nearest with ties to even, and
// wrapped around when it leaves the 32-bit range.
inline int32_t ArrotondaEuro(double value) {
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<int64_t>(std::nearbyint(value))));
}

// The prize in half euro of one cell at a stake: the product is a whole number of half euro
// for every stake of the main window (tenths 10, 15, 20, ..., 2000).
inline int64_t MezziEuro(int32_t cell, float importo) {
    return static_cast<int64_t>(
        std::nearbyint(static_cast<double>(cell) * static_cast<double>(importo) * 2.0));
}

// True when every product cell x stake is a whole number of half euro, which the fast checks
// rely on; any other stake is checked by the slower per-column rounding.
bool ImportoAMezziEuro(float importo);

} // namespace dv
