// What a draw chosen in the archive becomes: the forecast, or the draw under check.
#pragma once

#include "archive/Estrazione.h"

#include <cstdint>
#include <string>

namespace dv {

struct Corpo;
class Ui;

// The forecast from the draw at index UBound - offset of mArrEstrazioni: the forecast cleared,
// then the draw's numbers clicked on the grid in their order (a 0 or a number above 90 is
// skipped). Returns that index; an offset outside the archive changes nothing and returns 0.
int32_t PronosticoDaArchivioEstrazione(Corpo& c, Ui& ui, int32_t offset);

// The draw copied into NumeriSpoglio, OroSpoglio and DoppioOroSpoglio.
void EstrazioneInSpoglio(Corpo& c, const Estrazione& e);

// The box after a draw was taken: the text of "0050", a blank, a line break, the numbers joined
// by one blank, a line break, Data, a blank, and the text of chiave ("0051" when the draw became
// the forecast, "0052" when it is ready for the check).
std::string TestoEstrazioneScelta(const Estrazione& e, Ui& ui, const char* chiave);

} // namespace dv
