// A matrix made the current system: each index i of the matrix stands for the forecast's i-th
// number in its current order, with the fixed numbers and the reduction the matrix carries.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "matrix/Matrice.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace dv {

constexpr int NumeroErroreMatrice = -2147211504;

// The fixed numbers of the matrix window: LenColonna - 1 are allowed; numeri[1..consentite] holds
// those chosen at the last adaptation (0 where none).
struct FisseMatrice {
    explicit FisseMatrice(int lenColonna);
    int consentite = 0;
    std::vector<uint8_t> numeri;
};

// Asks for one fixed number: the prompt and the proposed answer; nothing for Cancel.
using ChiediNumero =
    std::function<std::optional<std::string>(const std::string& prompt, const std::string& proposta)>;

// Told of the columns adapted so far, every few tens of thousands; false stops the adaptation,
// which then leaves the system empty.
using AvanzamentoAdattamento = std::function<bool(int32_t fatte, int32_t totale)>;

// Adapts m to the forecast. With F above 0 each fixed number is asked until the answer is a number
// of the forecast, which is then moved to the head of the forecast; the numbers chosen are shown.
// Then, with at most 4,000,000 columns and every index a place of the forecast, the system is
// reset keeping the forecast and column c becomes the forecast's numbers at the indices of the
// matrix's column c, ascending. Throws ErroreEsecuzione ("0012"/"0013" for too many columns, 9 for
// an index with no number) before anything of the system changes. Returns true, or false when
// avanzamento stopped it.
bool AdaptMatrix(Corpo& c, Ui& ui, const MATRIX_STRUCTURE& m, FisseMatrice& fisse, const ChiediNumero& chiedi,
                 const AvanzamentoAdattamento& avanzamento = {});

// What follows a successful adaptation in every way: the lock when the system has columns, the
// status line, and in recompute mode the unlock for a further pass.
void ConcludiAdattamento(Corpo& c, Ui& ui);

// cmdAdatta after the forecast's order was chosen: reads the matrix at path, adapts it, and sets
// the description "0017", the fixed numbers and, when K differs from T, the reduction to K - T
// with the description "0018 N-<K-T>". Throws ErroreEsecuzione on failure.
void AdattaMatriceCatalogo(Corpo& c, Ui& ui, const std::string& path, FisseMatrice& fisse,
                           const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento = {});

// cmdMatriceTXT before the order window: the text matrix at path, refused ("0008"/"0013") when
// it does not fit the forecast's count and the column length.
MATRIX_STRUCTURE ImportaMatricePerAdattare(Corpo& c, Ui& ui, const std::string& path, double oggi);
// cmdMatriceTXT after it: adapts m; with a chosen file the description becomes "0017". A
// cancelled file dialog comes here with an empty matrix, which leaves an empty system.
void AdattaMatriceTesto(Corpo& c, Ui& ui, const MATRIX_STRUCTURE& m, bool fileScelto, FisseMatrice& fisse,
                        const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento = {});

// "Salva come Matrice": true when the system could be a matrix (it has columns, its fixed numbers
// are the first ones, its forecast is 1, 2, 3 ... in order); otherwise warns with "0056", "0057" or
// "0058". Nothing is written.
bool SalvaComeMatrice(const Corpo& c, Ui& ui);

} // namespace dv
