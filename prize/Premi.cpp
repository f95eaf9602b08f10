#include "prize/Premi.h"

namespace dv {

namespace {

// The tables are written as the rules print them, a row per count of hits and a column per
// length 1..10, with the count of categories per length last; Trasponi turns them into
// [length][hits] and puts the counts into slice 0.
using Righe = std::array<std::array<int32_t, 10>, 12>;

constexpr TabellaPremi Trasponi(const Righe& r) {
    TabellaPremi t{};
    for (size_t len = 1; len <= 10; ++len) {
        for (size_t h = 0; h <= 10; ++h)
            t[len][h] = r[h][len - 1];
        t[0][len] = r[11][len - 1];
    }
    return t;
}

// clang-format off
constexpr Righe RigheClassico{{
    {0, 0, 0, 0, 0, 0, 1, 1, 2, 2},
    {3, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {0, 14, 2, 1, 1, 0, 0, 0, 0, 0},
    {0, 0, 45, 10, 4, 2, 0, 0, 0, 0},
    {0, 0, 0, 90, 15, 10, 4, 0, 0, 0},
    {0, 0, 0, 0, 140, 100, 40, 20, 10, 5},
    {0, 0, 0, 0, 0, 1000, 400, 200, 40, 15},
    {0, 0, 0, 0, 0, 0, 1600, 800, 400, 150},
    {0, 0, 0, 0, 0, 0, 0, 10000, 2000, 1000},
    {0, 0, 0, 0, 0, 0, 0, 0, 100000, 20000},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 1000000},
    {1, 1, 2, 3, 4, 4, 5, 5, 6, 7},
}};

constexpr Righe RigheNumeroOro{{
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {63, 25, 15, 10, 10, 10, 10, 8, 5, 10},
    {0, 70, 25, 15, 14, 10, 7, 3, 3, 3},
    {0, 0, 130, 40, 20, 10, 7, 5, 5, 3},
    {0, 0, 0, 300, 30, 20, 10, 10, 10, 5},
    {0, 0, 0, 0, 300, 200, 75, 45, 25, 20},
    {0, 0, 0, 0, 0, 2500, 750, 450, 80, 25},
    {0, 0, 0, 0, 0, 0, 5000, 2000, 800, 250},
    {0, 0, 0, 0, 0, 0, 0, 30000, 5000, 2500},
    {0, 0, 0, 0, 0, 0, 0, 0, 250000, 50000},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 2500000},
    {1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
}};

constexpr Righe RigheDoppioOro{{
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {0, 250, 75, 40, 25, 20, 15, 10, 10, 10},
    {0, 0, 300, 80, 40, 25, 25, 15, 15, 15},
    {0, 0, 0, 800, 100, 50, 40, 25, 25, 20},
    {0, 0, 0, 0, 1000, 500, 150, 100, 50, 30},
    {0, 0, 0, 0, 0, 6000, 1500, 1000, 200, 70},
    {0, 0, 0, 0, 0, 0, 15000, 5000, 2000, 500},
    {0, 0, 0, 0, 0, 0, 0, 100000, 20000, 5000},
    {0, 0, 0, 0, 0, 0, 0, 0, 500000, 100000},
    {0, 0, 0, 0, 0, 0, 0, 0, 0, 5000000},
    {0, 1, 2, 3, 4, 5, 6, 7, 8, 9},
}};
// clang-format on

} // namespace

const TabellaPremi PremiClassico = Trasponi(RigheClassico);
const TabellaPremi PremiNumeroOro = Trasponi(RigheNumeroOro);
const TabellaPremi PremiDoppioOro = Trasponi(RigheDoppioOro);

const TabellaPremi& ScegliTabella(int tipo, bool oro1, bool oro2) {
    if (tipo == 2) return oro1 ? PremiNumeroOro : PremiClassico;
    if (tipo == 3) {
        if (oro1 && oro2) return PremiDoppioOro;
        if (oro1 || oro2) return PremiNumeroOro;
    }
    return PremiClassico;
}

bool ImportoAMezziEuro(float importo) {
    const double doppio = static_cast<double>(importo) * 2.0;
    return doppio >= 0 && doppio < 1e6 && doppio == std::nearbyint(doppio);
}

} // namespace dv
