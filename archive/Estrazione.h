// One draw of the archive, as held in memory and in the 34-byte records of the archive files.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace dv {

struct Estrazione {
    std::array<char, 10> Data{};     // the date as text, padded with blanks; compared as text
    int16_t Concorso = 0;            // the number of the draw (1..288 within a day, five-minute)
    std::array<uint8_t, 21> Numeri{}; // elements 1..20, in the order of the source; 0 none
    uint8_t NumeroOro = 0;
    uint8_t DoppioOro = 0;

    // The date with its trailing blanks removed.
    std::string dataTesto() const;
};

// An archive in memory with first index 1: element 0 is never used, elements 1..UBound are the
// draws, oldest first. It always holds at least one draw (a blank one for an empty archive).
using ArrayEstrazioni = std::vector<Estrazione>;

inline int32_t UBound(const ArrayEstrazioni& a) { return static_cast<int32_t>(a.size()) - 1; }

constexpr int DimensioneRecordEstrazione = 34;

// The archives the archive window can hold in mArrEstrazioni.
enum : int32_t { ArchivioSerale = 0, Archivio5Minuti = 1, ArchivioManuale = 2 };

} // namespace dv
