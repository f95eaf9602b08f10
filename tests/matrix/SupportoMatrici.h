// Small matrices and data folders for the matrix tests.
#pragma once

#include "matrix/Matrice.h"
#include "system_files/ErroreEsecuzione.h"
#include "tests/settings/TempDir.h"

#include <string>
#include <vector>

namespace dv::test {

// A sealed matrix over indices 1..v whose columns are given as lists of indices.
inline MATRIX_STRUCTURE MatriceDi(int v, int t, int m, const std::vector<std::vector<uint8_t>>& colonne,
                                  double dal = 40000, double al = 80000) {
    MATRIX_STRUCTURE x;
    x.NUMBERS_OF_MATRIX_V = static_cast<uint8_t>(v);
    x.GARANTY_T = static_cast<uint8_t>(t);
    x.PICK_UP_NUMBERS_M = static_cast<uint8_t>(m);
    x.dimensiona(static_cast<uint8_t>(colonne.empty() ? 0 : colonne.front().size()),
                 static_cast<int32_t>(colonne.size()));
    for (size_t c = 0; c < colonne.size(); ++c)
        for (size_t p = 0; p < colonne[c].size(); ++p)
            x.colum(static_cast<int>(p + 1), static_cast<int32_t>(c + 1)) = colonne[c][p];
    x.PERCENTAGE_COVER = "100";
    x.AUTHOR = "Test";
    x.DESCRIPTION = "Matrice di prova";
    x.VALID_FROM = dal;
    x.VALID_TO = al;
    x.MATRIX_READY = -1;
    x.MATRIX_SIGNATURE = FirmaMatrice;
    return x;
}

// The number and text of the run-time error that f raises, or "none".
template <typename F> std::string Errore(F f) {
    try {
        f();
    } catch (const ErroreEsecuzione& e) {
        return std::to_string(e.numero()) + " " + e.descrizione();
    }
    return "none";
}

// A fresh data folder with the sub-folders the matrix code uses, removed at the end of the test.
class CartellaTemporanea : public TempDir {
public:
    explicit CartellaTemporanea(const std::string& = {}) {
        for (const char* sub : {"matrici", "temp", "txt", "sistemi"})
            std::filesystem::create_directories(file(sub));
    }
    std::string str() const { return path(); }
    std::string in(const std::string& rel) const { return file(rel); }
};

} // namespace dv::test
