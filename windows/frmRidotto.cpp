#include "windows/frmRidotto.h"

namespace dv {

frmRidotto::frmRidotto(Corpo& corpo, Ui& ui, QWidget* parent)
    : DialogoRiduzione(
          corpo, ui, parent,
          {"frmRidotto", "Ridotto a Garanzia", "hsRidottoNx", "lblRidottoNx", CaricaRidotto, ChiudiRidotto},
          corpo.condizioni.CondRidotto) {}

} // namespace dv
