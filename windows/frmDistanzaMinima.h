// frmDistanzaMinima: the reduction to a minimum distance. A kept column differs from every
// column kept before it in at least ValDistanzaMinima numbers.
#pragma once

#include "windows/DialoghiCondizione.h"

namespace dv {

class frmDistanzaMinima : public DialogoRiduzione {
    Q_OBJECT
public:
    frmDistanzaMinima(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
};

} // namespace dv
