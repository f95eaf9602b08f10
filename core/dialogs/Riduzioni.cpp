#include "core/dialogs/Riduzioni.h"

#include "core/dialogs/Condizione.h"

#include <algorithm>

namespace dv {

namespace {
// The two reductions exclude each other: when both are on, the one named by altra goes off
// after the warning of key.
void Escludi(Corpo& c, Ui& ui, const char* key, int16_t& altra) {
    if (c.condizioni.CondRidotto == Falso || c.distanzaMinima.CondDistanzaMinima == Falso) return;
    ui.messageBox(ui.Lang(key), "", BoxIcon::Exclamation);
    altra = Falso;
}
} // namespace

Barra CaricaRidotto(const Corpo& c) {
    Barra b{0, c.LenColonna, 0};
    b.valore = std::min<int>(c.condizioni.ValRidotto, b.massimo);
    return b;
}

Barra CaricaDistanzaMinima(const Corpo& c) {
    Barra b{1, c.LenColonna, 1};
    const int stored = c.distanzaMinima.ValDistanzaMinima;
    b.valore = stored == 0 ? b.minimo : std::min(stored, b.massimo);
    return b;
}

void ChiudiRidotto(Corpo& c, Ui& ui, int valore) {
    if (SoloLettura(c)) return;
    c.condizioni.ValRidotto = static_cast<uint8_t>(valore);
    Escludi(c, ui, "0021", c.distanzaMinima.CondDistanzaMinima);
}

void ChiudiDistanzaMinima(Corpo& c, Ui& ui, int valore) {
    if (SoloLettura(c)) return;
    c.distanzaMinima.ValDistanzaMinima = static_cast<uint8_t>(valore);
    Escludi(c, ui, "0005", c.condizioni.CondRidotto);
}

} // namespace dv
