#include "matrix/Garanzia.h"

#include "core/Corpo.h"
#include "matrix/Matrice.h"

#include <algorithm>
#include <array>

namespace dv {

using engine::Mask;

uint64_t NumeroSottoinsiemi(int v, int m) {
    if (m < 0 || v < 0 || m > v) return 0;
    m = std::min(m, v - m);
    unsigned __int128 r = 1;
    for (int i = 1; i <= m; ++i) {
        r = r * static_cast<unsigned>(v - m + i) / static_cast<unsigned>(i);
        if (r > UINT64_MAX) return UINT64_MAX;
    }
    return static_cast<uint64_t>(r);
}

EsitoGaranzia VerificaGaranzia(int v, int m, int t, const std::vector<Mask>& colonne, size_t maxBuchi,
                               const ProgressoGaranzia& progresso) {
    EsitoGaranzia out;
    if (v < 0 || v > 127 || m < 0 || m > v) return out;
    out.subsets = NumeroSottoinsiemi(v, m);
    if (out.subsets > MaxSottoinsiemiGaranzia) {
        out.subsets = 0;
        return out;
    }
    const size_t nc = colonne.size();
    const Mask* col = colonne.data();
    // s[0..m-1]: the current subset, ascending; pref[i] the set of its first i members.
    std::array<int, 128> s{};
    std::array<Mask, 129> pref{};
    for (int i = 0; i < m; ++i) {
        s[static_cast<size_t>(i)] = i + 1;
        pref[static_cast<size_t>(i) + 1] = pref[static_cast<size_t>(i)] | Mask::bit(i + 1);
    }
    const uint64_t passo = std::max<uint64_t>(1, out.subsets / 100);
    uint64_t prossimo = passo;
    size_t ultimo = 0; // the column that covered the subset before
    for (uint64_t n = 0; n < out.subsets; ++n) {
        const Mask sub = pref[static_cast<size_t>(m)];
        bool coperto = false;
        if (!coperto && nc > 0) {
            if (engine::Common(col[ultimo], sub) >= t) {
                coperto = true;
            } else {
                for (size_t j = 0; j < nc; ++j)
                    if (engine::Common(col[j], sub) >= t) {
                        ultimo = j;
                        coperto = true;
                        break;
                    }
            }
        }
        if (coperto) {
            ++out.covered;
        } else if (out.firstHoles.size() < maxBuchi) {
            out.firstHoles.emplace_back(s.begin(), s.begin() + m);
        }
        if (n + 1 == prossimo) {
            prossimo += passo;
            if (progresso && !progresso(static_cast<double>(n + 1) / static_cast<double>(out.subsets))) {
                out.stopped = true;
                return out;
            }
        }
        // The next subset in lexicographic order: raise the last member that can rise.
        int i = m - 1;
        while (i >= 0 && s[static_cast<size_t>(i)] == v - m + i + 1)
            --i;
        if (i < 0) break;
        ++s[static_cast<size_t>(i)];
        for (int j = i + 1; j < m; ++j)
            s[static_cast<size_t>(j)] = s[static_cast<size_t>(j) - 1] + 1;
        for (int j = i; j < m; ++j)
            pref[static_cast<size_t>(j) + 1] =
                pref[static_cast<size_t>(j)] | Mask::bit(s[static_cast<size_t>(j)]);
    }
    return out;
}

std::vector<Mask> ColonneMatrice(const MATRIX_STRUCTURE& m) {
    std::vector<Mask> out(static_cast<size_t>(std::max(0, m.COLUMNS_OF_MATRIX_C)));
    if (m.COLUMS.size() != static_cast<size_t>(m.LENGTH_OF_COLUMN_K) * out.size()) return {};
    for (int p = 1; p <= m.LENGTH_OF_COLUMN_K; ++p)
        for (int32_t c = 1; c <= m.COLUMNS_OF_MATRIX_C; ++c) {
            const uint8_t i = m.colum(p, c);
            if (i >= 1 && i <= 127) out[static_cast<size_t>(c - 1)] |= Mask::bit(i);
        }
    return out;
}

std::vector<Mask> ColonneSistema(const Corpo& c) {
    std::array<int, 91> indice{};
    std::array<uint8_t, 90> numeri = c.pronostico.Numeri;
    const int quanti = std::min<int>(c.pronostico.Quanti, 90);
    std::sort(numeri.begin(), numeri.begin() + quanti);
    for (int i = 0; i < quanti; ++i)
        if (numeri[static_cast<size_t>(i)] <= 90) indice[numeri[static_cast<size_t>(i)]] = i + 1;
    std::vector<Mask> out(static_cast<size_t>(std::max(0, c.pronostico.NumColonne)));
    const int len = std::clamp<int>(c.LenColonna, 0, StorePositions);
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j)
        for (int p = 1; p <= len; ++p) {
            const uint8_t n = c.Colonne.get(j, p);
            if (n >= 1 && n <= 90 && indice[n] > 0) out[static_cast<size_t>(j - 1)] |= Mask::bit(indice[n]);
        }
    return out;
}

} // namespace dv
