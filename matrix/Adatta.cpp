#include "matrix/Adatta.h"

#include "core/ColumnStore.h"
#include "core/Helpers.h"
#include "core/Sistema.h"
#include "matrix/ImportaTesto.h"
#include "system_files/ErroreEsecuzione.h"

#include <algorithm>
#include <cstdio>

namespace dv {

namespace {

// A whole number 1..90 written with digits only (blanks around allowed); 0 otherwise.
int NumeroIntero(const std::string& s) {
    const size_t a = s.find_first_not_of(' ');
    if (a == std::string::npos) return 0;
    const size_t b = s.find_last_not_of(' ');
    int v = 0;
    for (size_t i = a; i <= b; ++i) {
        if (s[i] < '0' || s[i] > '9') return 0;
        if (v < 1000) v = v * 10 + (s[i] - '0');
    }
    return v >= 1 && v <= 90 ? v : 0;
}

int PostoNelPronostico(const Pronostico& p, int n) {
    for (int i = 0; i < p.Quanti; ++i)
        if (p.Numeri[static_cast<size_t>(i)] == n) return i;
    return -1;
}

std::string DueCifre(int n) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d", n);
    return buf;
}

// 1. The fixed numbers, each asked until a number of the forecast is given, moved to the head.
void ChiediFisse(Corpo& c, Ui& ui, int f, FisseMatrice& fisse, const ChiediNumero& chiedi) {
    auto& numeri = c.pronostico.Numeri;
    std::string elenco;
    for (int i = 0; i < f; ++i) {
        const std::string prompt = ui.Lang("0015") + std::to_string(i + 1) + ui.Lang("0016") + " ?";
        const int posto = i < 90 ? i : 89;
        int n = 0;
        int trovato = -1;
        while (trovato < 0) {
            const std::optional<std::string> risposta =
                chiedi(prompt, std::to_string(numeri[static_cast<size_t>(posto)]));
            n = NumeroIntero(risposta.value_or(std::string()));
            if (n > 0) trovato = PostoNelPronostico(c.pronostico, n);
        }
        std::swap(numeri[static_cast<size_t>(trovato)], numeri[static_cast<size_t>(posto)]);
        elenco += DueCifre(n) + "   ";
        if (f <= fisse.consentite) fisse.numeri[static_cast<size_t>(i + 1)] = static_cast<uint8_t>(n);
    }
    ui.messageBox(ui.Lang("0014") + "\n\n" + elenco + "\n\n", "", BoxIcon::None);
}

} // namespace

FisseMatrice::FisseMatrice(int lenColonna)
    : consentite(std::max(0, lenColonna - 1)), numeri(static_cast<size_t>(consentite) + 1, 0) {}

bool AdaptMatrix(Corpo& c, Ui& ui, const MATRIX_STRUCTURE& m, FisseMatrice& fisse, const ChiediNumero& chiedi,
                 const AvanzamentoAdattamento& avanzamento) {
    const int f = m.FIXED_NUMBERS_OF_MATRIX_F;
    if (f > 0) ChiediFisse(c, ui, f, fisse, chiedi);

    // 2. The store holds 4,000,000 columns.
    const int32_t colonne = m.COLUMNS_OF_MATRIX_C;
    if (colonne > MaxColonne)
        throw ErroreEsecuzione(NumeroErroreMatrice, ui.Lang("0012") + "\n" + ui.Lang("0013"));
    const int k = m.LENGTH_OF_COLUMN_K;
    const int quanti = c.pronostico.Quanti;
    // Every index must name a number of the forecast: checked before the system is touched.
    if (colonne < 0 || k > StorePositions ||
        m.COLUMS.size() != static_cast<size_t>(k) * static_cast<size_t>(colonne) ||
        std::any_of(m.COLUMS.begin(), m.COLUMS.end(), [quanti](uint8_t i) { return i < 1 || i > quanti; }))
        throw errori::IndiceFuoriIntervallo();

    // 3.
    ResetSistema(c, ui, true);

    // 4. Index i is the forecast's number at place i; each column ascending over LenColonna.
    const int len = std::clamp<int>(c.LenColonna, 0, StorePositions);
    uint8_t col[StorePositions];
    for (int32_t j = 1; j <= colonne; ++j) {
        if (avanzamento && (j & 0xFFFF) == 1 && !avanzamento(j - 1, colonne)) return false;
        std::fill(std::begin(col), std::end(col), uint8_t{0});
        for (int p = 1; p <= k; ++p)
            col[p - 1] = c.pronostico.Numeri[static_cast<size_t>(m.colum(p, j) - 1)];
        OrdinaColonna(col, len);
        c.Colonne.setColumn(j, col, std::max(k, len));
    }

    // 5.
    c.pronostico.NumColonne = colonne;
    return true;
}

void ConcludiAdattamento(Corpo& c, Ui& ui) {
    if (c.pronostico.NumColonne > 0) LockGUI(c, ui);
    ui.ViewStatusBar();
    if (c.ModalitaRicalcolo) Sblocca_x_Ricalcolo(c, ui);
}

void AdattaMatriceCatalogo(Corpo& c, Ui& ui, const std::string& path, FisseMatrice& fisse,
                           const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento) {
    const MATRIX_STRUCTURE m = ReadMatrix(path);
    if (!AdaptMatrix(c, ui, m, fisse, chiedi, avanzamento)) return;
    c.pronostico.Descrizione = ui.Lang("0017");
    auto& cond = c.condizioni;
    if (m.FIXED_NUMBERS_OF_MATRIX_F != 0) {
        cond.NumFisse = m.FIXED_NUMBERS_OF_MATRIX_F;
        for (size_t i = 1; i < fisse.numeri.size(); ++i)
            if (fisse.numeri[i] >= 1 && fisse.numeri[i] <= 90) cond.TabFisse[fisse.numeri[i]] = 1;
        cond.CondFisse = Vero;
    }
    if (m.LENGTH_OF_COLUMN_K != m.GARANTY_T) {
        const int riduzione = m.LENGTH_OF_COLUMN_K - m.GARANTY_T;
        cond.CondRidotto = Vero;
        cond.ValRidotto = static_cast<uint8_t>(riduzione);
        c.pronostico.Descrizione = ui.Lang("0018") + " N-" + std::to_string(riduzione);
    }
    ui.conditionMarksChanged();
    ConcludiAdattamento(c, ui);
}

MATRIX_STRUCTURE ImportaMatricePerAdattare(Corpo& c, Ui& ui, const std::string& path, double oggi) {
    MATRIX_STRUCTURE m = ImportMatrixText(path, ui, oggi);
    if (m.LENGTH_OF_COLUMN_K != c.LenColonna || m.NUMBERS_OF_MATRIX_V != c.pronostico.Quanti)
        throw ErroreEsecuzione(NumeroErroreMatrice, ui.Lang("0008") + "\n" + ui.Lang("0013"));
    return m;
}

void AdattaMatriceTesto(Corpo& c, Ui& ui, const MATRIX_STRUCTURE& m, bool fileScelto, FisseMatrice& fisse,
                        const ChiediNumero& chiedi, const AvanzamentoAdattamento& avanzamento) {
    if (!AdaptMatrix(c, ui, m, fisse, chiedi, avanzamento)) return;
    if (fileScelto) c.pronostico.Descrizione = ui.Lang("0017");
    ConcludiAdattamento(c, ui);
}

bool SalvaComeMatrice(const Corpo& c, Ui& ui) {
    if (c.pronostico.NumColonne == 0) {
        ui.messageBox(ui.Lang("0056"), ui.Lang("0055"), BoxIcon::Exclamation);
        return false;
    }
    const auto& cond = c.condizioni;
    if (cond.CondFisse) {
        for (int i = 1; i <= cond.NumFisse && i <= 90; ++i)
            if (cond.TabFisse[static_cast<size_t>(i)] != 1) {
                ui.messageBox(ui.Lang("0057"), ui.Lang("0055"), BoxIcon::Exclamation);
                return false;
            }
    }
    for (int i = 0; i < c.pronostico.Quanti; ++i)
        if (c.pronostico.Numeri[static_cast<size_t>(i)] != i + 1) {
            ui.messageBox(ui.Lang("0058"), ui.Lang("0055"), BoxIcon::Exclamation);
            return false;
        }
    return true;
}

} // namespace dv
