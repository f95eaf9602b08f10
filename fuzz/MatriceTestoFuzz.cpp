// Fuzz target of the text matrix reader: any text gives an answer; a matrix that is ready holds
// every index of 1..V in columns of K (a short line padded with 0) and, written as a matrix file, reads back
// the same.
#include "fuzz/FuzzSupport.h"
#include "matrix/ImportaTesto.h"
#include "matrix/Matrice.h"
#include "tests/support/FakeUi.h"

#include <vector>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input = InputFuzz("matrice.txt", data, size);
    static const std::string copia = PercorsoFuzz("copia.mqvn");
    dv::test::FakeUi ui;
    const dv::MATRIX_STRUCTURE m = dv::ImportMatrixText(input, ui, 46000.0);
    Verifica(m.COLUMNS_OF_MATRIX_C >= 0 && m.COLUMNS_OF_MATRIX_C <= dv::MaxRigheMatriceTesto, "C in range");
    if (m.MATRIX_READY != -1) return 0;
    Verifica(ui.boxes.empty(), "a ready matrix showed no error");
    if (m.COLUMNS_OF_MATRIX_C == 0) return 0; // an empty text is an empty matrix
    const int v = m.NUMBERS_OF_MATRIX_V, k = m.LENGTH_OF_COLUMN_K;
    const int32_t c = m.COLUMNS_OF_MATRIX_C;
    Verifica(v >= 1 && v <= 90 && k >= 1 && c >= 1, "a ready matrix has V, K and C");
    Verifica(m.COLUMS.size() == static_cast<size_t>(k) * static_cast<size_t>(c), "K * C indices");
    std::vector<bool> visto(static_cast<size_t>(v) + 1);
    for (const uint8_t n : m.COLUMS) {
        Verifica(n <= v, "indices up to V"); // a short line leaves its last positions 0
        visto[n] = true;
    }
    for (int n = 1; n <= v; ++n)
        Verifica(visto[static_cast<size_t>(n)], "every index of 1..V appears");

    dv::ScriviMatrice(copia, m);
    Verifica(dv::CheckMatrixCrc(copia), "a written matrix is sealed");
    const dv::MATRIX_STRUCTURE r = dv::ReadMatrix(copia);
    Verifica(r.NUMBERS_OF_MATRIX_V == m.NUMBERS_OF_MATRIX_V && r.LENGTH_OF_COLUMN_K == m.LENGTH_OF_COLUMN_K &&
                 r.COLUMNS_OF_MATRIX_C == m.COLUMNS_OF_MATRIX_C && r.COLUMS == m.COLUMS,
             "the matrix reads back the same");
    return 0;
}
