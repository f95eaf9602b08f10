// A matrix typed by hand: one column a line, indices separated by blanks or tabs.
#pragma once

#include "core/Ui.h"
#include "matrix/Matrice.h"

#include <string>

namespace dv {

constexpr int32_t MaxRigheMatriceTesto = 100'000;
constexpr const char* ErroreLunghezzaMultipla = "Matrice con colonne a lunghezza multipla";
constexpr const char* ErroreNonSequenziale = "Matrice con sviluppo non sequenziale";

// Reads the text matrix at path. K is the count of the first line's indices; C the count of
// non-empty lines, at most 100,000 (what follows is ignored); V the greatest index, and every
// index from 1 to V must appear. A line longer than K, an index of 0 or above 90, or any other
// fault shows "Error <n> (<text>) " in an exclamation box titled "ERROR" and returns what was
// read with MATRIX_READY 0 (V stays 0). On success the matrix is valid from oggi to oggi and
// MATRIX_READY is -1; T, M, F and the texts stay empty.
MATRIX_STRUCTURE ImportMatrixText(const std::string& path, Ui& ui, double oggi);

} // namespace dv
