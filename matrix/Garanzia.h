// The guarantee of a matrix or a system, checked exactly: for every M-subset of the V numbers,
// whether some column holds at least T of it.
#pragma once

#include "core/engine/Mask.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace dv {

struct MATRIX_STRUCTURE;
struct Corpo;

// Subsets above this count are not enumerated: the check would run for hours.
constexpr uint64_t MaxSottoinsiemiGaranzia = 5'000'000'000ull;

struct EsitoGaranzia {
    uint64_t subsets = 0;
    uint64_t covered = 0;
    // The first holes in lexicographic order, as indices 1..V (at most the number asked for).
    std::vector<std::vector<uint8_t>> firstHoles;
    bool stopped = false; // the progress callback asked to stop
};

// Called every 1/100 of the subsets with the share done; false stops the check.
using ProgressoGaranzia = std::function<bool(double)>;

// Columns are sets of indices 1..v (bit i is index i). Subsets are walked in lexicographic order;
// each is first tried against the column that covered the one before.
EsitoGaranzia VerificaGaranzia(int v, int m, int t, const std::vector<engine::Mask>& colonne, size_t maxBuchi,
                               const ProgressoGaranzia& progresso = {});

// The number of M-subsets of V, saturated at UINT64_MAX.
uint64_t NumeroSottoinsiemi(int v, int m);

// The columns of a matrix as sets of its indices.
std::vector<engine::Mask> ColonneMatrice(const MATRIX_STRUCTURE& m);
// The columns of the stored system as sets of indices of the forecast: the forecast's numbers in
// ascending order are indices 1..Quanti; numbers outside the forecast are left out.
std::vector<engine::Mask> ColonneSistema(const Corpo& c);

} // namespace dv
