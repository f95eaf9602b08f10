#include "windows/frmDistanzaMinima.h"

namespace dv {

frmDistanzaMinima::frmDistanzaMinima(Corpo& corpo, Ui& ui, QWidget* parent)
    : DialogoRiduzione(corpo, ui, parent,
                       {"frmDistanzaMinima", "Ridotto Distanza Minima", "hsDistanzaMinima",
                        "lblDistanzaMinima", CaricaDistanzaMinima, ChiudiDistanzaMinima},
                       corpo.distanzaMinima.CondDistanzaMinima) {}

} // namespace dv
