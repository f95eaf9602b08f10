#include "core/dialogs/Riduzioni.h"

#include "core/dialogs/Condizione.h"

#include <algorithm>

namespace dv {

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
    if (c.condizioni.CondRidotto != Falso && c.distanzaMinima.CondDistanzaMinima != Falso) {
        ui.messageBox(ui.Lang("0021"), "", BoxIcon::Exclamation);
        c.distanzaMinima.CondDistanzaMinima = Falso;
    }
}

void ChiudiDistanzaMinima(Corpo& c, Ui& ui, int valore) {
    if (SoloLettura(c)) return;
    c.distanzaMinima.ValDistanzaMinima = static_cast<uint8_t>(valore);
    if (c.condizioni.CondRidotto != Falso && c.distanzaMinima.CondDistanzaMinima != Falso) {
        ui.messageBox(ui.Lang("0005"), "", BoxIcon::Exclamation);
        c.condizioni.CondRidotto = Falso;
    }
}

} // namespace dv
