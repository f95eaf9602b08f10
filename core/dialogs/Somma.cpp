#include "core/dialogs/Somma.h"

#include "core/dialogs/Condizione.h"
#include "core/Sistema.h"

#include <algorithm>
#include <string>

namespace dv {

LimitiSomma CaricaSomma(Corpo& c) {
    AggiornaPronostico(c);
    const auto& numeri = c.pronostico.Numeri;
    const int len = c.LenColonna;
    const int quanti = c.pronostico.Quanti;
    LimitiSomma l;
    for (int i = 0; i < len && i < 90; ++i)
        l.labMin += numeri[static_cast<size_t>(i)];
    for (int i = std::max(0, quanti - len); i < quanti; ++i)
        l.labMax += numeri[static_cast<size_t>(i)];
    return l;
}

int ValoreSommaIniziale(int stored, const LimitiSomma& limiti, int fallback) {
    if (stored != 0 && stored >= limiti.labMin && stored <= limiti.labMax) return stored;
    return fallback;
}

EsitoSomma ChiudiSomma(Corpo& c, Ui& ui, const LimitiSomma& limiti, std::optional<int> da,
                       std::optional<int> a, const std::function<void()>& beep) {
    EsitoSomma esito;
    if (SoloLettura(c)) return esito;

    auto rifiuta = [&](const char* key, CampoSomma focus) {
        if (beep) beep();
        ui.messageBox(ui.Lang(key), " !!! ERROR !!! ", BoxIcon::Exclamation);
        esito.chiudi = false;
        esito.focus = focus;
    };
    // An empty box reads as 0 where a check compares it.
    if (da.value_or(0) > a.value_or(0)) rifiuta("0022", CampoSomma::A);
    if (da && limiti.labMin > *da) rifiuta("0023", CampoSomma::Da);
    if (a && limiti.labMax < *a) rifiuta("0024", CampoSomma::A);

    if (da) c.condizioni.SommaMinMax[0] = static_cast<int16_t>(*da);
    if (a) c.condizioni.SommaMinMax[1] = static_cast<int16_t>(*a);
    return esito;
}

} // namespace dv
