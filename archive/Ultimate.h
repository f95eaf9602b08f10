// The Ultimate forecast of the five-minute game: the ambi, terni or quaterne that none of the
// latest E draws holds, E being the number of draws after which only Q such combinations are
// expected to stay unseen.
#pragma once

#include "archive/Estrazione.h"
#include "core/Engine.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dv {

class ColumnStore;
class Ui;
struct Corpo;

// The progress window is updated this many times in a whole search.
constexpr int PassiUltimate = 75;

struct ParametriUltimate {
    double combinazioni90 = 0; // combinations of n out of 90
    double combinazioni20 = 0; // combinations of n out of the 20 numbers of a draw
    double decadimento = 0; // ln((c90 - c20) / c90): the share of unseen combinations decays by it per draw
    int32_t estrazioni = 0; // E, the draws to evaluate
};

// The decay and E for combinations of n (2..4) numbers and Q (1..10) forecasts wanted; E is
// ln(Q / c90) / decadimento rounded to nearest, halves to even.
ParametriUltimate UltimateParametri(int n, int q);
inline int32_t UltimateEstrazioni(int n, int q) {
    return UltimateParametri(n, q).estrazioni;
}

struct RisultatoUltimate {
    int n = 0;
    std::vector<uint8_t> numeri; // n numbers per combination found, in the generator's order
    double elaborate = 0;        // combinations walked, as the progress window counts them
    bool interrotta = false;     // stopped by the user
    bool overflow = false;       // the 16-bit count of found combinations ran past 32767

    int32_t trovate() const { return n > 0 ? static_cast<int32_t>(numeri.size()) / n : 0; }
    const uint8_t* combinazione(int32_t i) const { return numeri.data() + static_cast<size_t>(i) * n; }
};

// The search over the draws archivio[max(1, UBound - e + 1)..UBound]: every combination of n out
// of 90, in lexicographic order, that none of those draws holds in full. Progress goes to obs at
// the 75 steps of the walk (bar k * 100 / 75, counter the combinations walked, kept the ones
// found); a stop asked through ctl (which the caller clears before) is seen at the next step and
// keeps what was found. The count of found combinations is 16-bit: the 32,768th ends the search
// with overflow set and 32,767 kept.
// Numbers outside 1..90 in a draw are ignored.
RisultatoUltimate UltimateCerca(const ArrayEstrazioni& archivio, int n, int32_t e, RunControl& ctl,
                                EngineObserver& obs);

// The result text: each combination's numbers in plain decimal, each followed by a blank, then a
// line break (CRLF). Empty when nothing was found.
std::string TestoUltimate(const RisultatoUltimate& r);

// Writes found combination i as column i of the store (positions 1..n); the system's column count
// stays as it is, so an open system's columns there are overwritten.
void ScriviColonneUltimate(ColumnStore& colonne, const RisultatoUltimate& r);

// The text of the failure that ends an overflowing search: "Error 6 (Overflow" and the closing part.
std::string TestoOverflowUltimate(const std::string& chiusura);

} // namespace dv
