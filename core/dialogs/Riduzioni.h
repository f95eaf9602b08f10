// frmRidotto and frmDistanzaMinima without their windows: the range of their scroll bars and
// the closing that writes the value and keeps the two reductions from being on together.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

namespace dv {

struct Barra {
    int minimo = 0;
    int massimo = 0;
    int valore = 0;
};

// hsRidottoNx: 0..LenColonna, ValRidotto cut down to the maximum.
Barra CaricaRidotto(const Corpo& c);
// hsDistanzaMinima: 1..LenColonna; a ValDistanzaMinima of 0 takes the bar's own value, the
// minimum; a greater value than the maximum is cut down.
Barra CaricaDistanzaMinima(const Corpo& c);

// ValRidotto = valore. When both reductions are on, warns with "0021" and switches the minimum
// distance off: the dialog closed last wins. Nothing is written for a locked system.
void ChiudiRidotto(Corpo& c, Ui& ui, int valore);
// ValDistanzaMinima = valore. When both are on, warns with "0005" and switches the guarantee off.
void ChiudiDistanzaMinima(Corpo& c, Ui& ui, int valore);

} // namespace dv
