#include "core/Sistema.h"

#include <algorithm>
#include <cctype>

namespace dv {

void ResetSistema(Corpo& c, Ui& ui, bool mantieniPronostico) {
    UnlockGUI(c, ui);
    ui.UnlockMenuConditions();
    if (!mantieniPronostico) CancellaPronostico(c, ui);
    c.Colonne.erase();
    c.pronostico.NumColonne = 0;
    c.pronostico.Descrizione.clear();
    ui.ViewStatusBar();
    c.condizioni = Condizioni{};
    c.FiltriAND.clear();
    c.consecutivi = Consecutivi{};
    c.CondizioniDistanza.clear();
    c.distanzaMinima = DistanzaMinima{};
    c.SistemaBloccato = 0;
}

void GrigliaNumeriClick(Corpo& c, Ui& ui, int index) {
    if (index < 0 || index > 89) return;
    auto& cell = c.Griglia[static_cast<size_t>(index)];
    cell = !cell;
    c.pronostico.Quanti = static_cast<uint8_t>(c.pronostico.Quanti + (cell ? 1 : -1));
    ui.gridChanged();
}

void CancellaPronostico(Corpo& c, Ui& ui) {
    c.pronostico.Quanti = 0;
    c.Griglia.fill(false);
    ui.gridChanged();
}

void AggiornaPronostico(Corpo& c) {
    size_t k = 0;
    for (size_t i = 0; i < 90; ++i) {
        if (c.Griglia[i]) {
            c.pronostico.Numeri[k] = static_cast<uint8_t>(i + 1);
            ++k;
        } else {
            c.pronostico.Numeri[k] = 0;
        }
    }
    for (; k < 90; ++k) c.pronostico.Numeri[k] = 0;
}

void LockGUI(Corpo& c, Ui& ui) {
    c.SistemaBloccato = -1;
    ui.LockGUI();
}

void UnlockGUI(Corpo& c, Ui& ui) {
    c.SistemaBloccato = 0;
    ui.UnlockGUI();
}

void Sblocca_x_Ricalcolo(Corpo& c, Ui& ui) {
    if (c.pronostico.Quanti >= c.LenColonna) {
        c.SistemaBloccato = 0;
        ui.Sblocca_x_Ricalcolo();
    }
}

void ModificaSistema(Corpo& c, Ui& ui) {
    UnlockGUI(c, ui);
    c.Colonne.erase();
    c.pronostico.NumColonne = 0;
    c.pronostico.Descrizione.clear();
    ui.ViewStatusBar();
}

std::string TitoloDaPath(const std::string& path) {
    auto slash = path.find_last_of("/\\");
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::tolower(ch)); });
    return name;
}

} // namespace dv
