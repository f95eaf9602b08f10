// Operations on the working state that the main window, files and engine share.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

#include <string>

namespace dv {

// Empties system and conditions. FiltriOR and FiltriXOR survive, on purpose.
void ResetSistema(Corpo& c, Ui& ui, bool mantieniPronostico);

// Toggles cell index (0..89) of the grid and counts it in Quanti.
void GrigliaNumeriClick(Corpo& c, Ui& ui, int index);
// Deselects every cell; Quanti = 0.
void CancellaPronostico(Corpo& c, Ui& ui);
// Rebuilds Numeri from the grid, ascending and zeroed behind the last number. Quanti stays.
void AggiornaPronostico(Corpo& c);
// True when enough numbers are selected for the operations.
inline bool OperazioniAbilitate(const Corpo& c) { return c.pronostico.Quanti >= c.LenColonna; }

// Locks the state for a finished system, and back.
void LockGUI(Corpo& c, Ui& ui);
void UnlockGUI(Corpo& c, Ui& ui);
// In recompute mode: a finished system can be developed again.
void Sblocca_x_Ricalcolo(Corpo& c, Ui& ui);

// "Modifica Sistema" after the user said yes: columns given up, forecast and conditions kept.
void ModificaSistema(Corpo& c, Ui& ui);

// The lower-case file name of a path, for the status line.
std::string TitoloDaPath(const std::string& path);

} // namespace dv
