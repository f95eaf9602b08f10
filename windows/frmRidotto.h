// frmRidotto: the reduction to a guarantee. A kept column differs from every column kept
// before it in more than ValRidotto numbers.
#pragma once

#include "windows/DialoghiCondizione.h"

namespace dv {

class frmRidotto : public DialogoRiduzione {
    Q_OBJECT
public:
    frmRidotto(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
};

} // namespace dv
