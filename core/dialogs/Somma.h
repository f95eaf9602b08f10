// frmSomma without its window: the limits of a sum of the forecast, the values shown at load,
// and the checks of its closing.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

#include <functional>
#include <optional>

namespace dv {

struct LimitiSomma {
    int labMin = 0; // least possible sum of a column of the forecast
    int labMax = 0; // greatest possible sum
};

// Sorts Numeri (AggiornaPronostico) and returns the sums of the first LenColonna numbers and
// of the last LenColonna numbers of the forecast.
LimitiSomma CaricaSomma(Corpo& c);

// What a box shows at load: the stored value when it is not 0 and lies within the limits,
// otherwise the fallback (labMin for meDa, labMax for meA).
int ValoreSommaIniziale(int stored, const LimitiSomma& limiti, int fallback);

enum class CampoSomma { Nessuno, Da, A };

struct EsitoSomma {
    bool chiudi = true;                     // false: the window stays open
    CampoSomma focus = CampoSomma::Nessuno; // the box that takes the focus after a refusal
};

// The closing of frmSomma. da and a are the values of meDa and meA, empty when the box is.
// Read-only dialogs close without a check. Otherwise the three checks run one after the other;
// each failure calls beep, shows its box and moves the focus. Then, refused or not, a value in
// a box is written to SommaMinMax.
EsitoSomma ChiudiSomma(Corpo& c, Ui& ui, const LimitiSomma& limiti, std::optional<int> da,
                       std::optional<int> a, const std::function<void()>& beep = {});

} // namespace dv
