// Helpers to build working states in tests.
#pragma once

#include "core/Corpo.h"

#include <initializer_list>
#include <vector>

namespace dv::test {

// Selects the given numbers on the grid and sets Quanti and Numeri (ascending).
inline void SetForecast(Corpo& c, const std::vector<int>& numbers) {
    c.Griglia.fill(false);
    for (int n : numbers) c.Griglia[static_cast<size_t>(n - 1)] = true;
    c.pronostico.Numeri.fill(0);
    uint8_t k = 0;
    for (int i = 1; i <= 90; ++i)
        if (c.Griglia[static_cast<size_t>(i - 1)]) c.pronostico.Numeri[k++] = static_cast<uint8_t>(i);
    c.pronostico.Quanti = k;
}

inline std::vector<int> Range(int from, int to) {
    std::vector<int> v;
    for (int i = from; i <= to; ++i) v.push_back(i);
    return v;
}

inline ColonnaFiltro Filtro(std::initializer_list<int> numbers, int32_t presenze) {
    ColonnaFiltro f;
    for (int n : numbers) f.Numeri[static_cast<size_t>(n)] = 1;
    f.Presenze = presenze;
    f.Stato = Vero;
    return f;
}

// The stored columns 1..NumColonne, each as its len numbers.
inline std::vector<std::vector<int>> StoredColumns(const Corpo& c) {
    std::vector<std::vector<int>> out;
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j) {
        std::vector<int> col;
        for (int p = 1; p <= c.LenColonna; ++p) col.push_back(c.Colonne.get(j, p));
        out.push_back(col);
    }
    return out;
}

} // namespace dv::test
