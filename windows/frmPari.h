// frmPari: the even/odd condition. One cell for each count of even numbers a column may hold.
#pragma once

#include "core/dialogs/Celle.h"
#include "windows/DialoghiCondizione.h"

namespace dv {

class frmPari : public Dialogo {
    Q_OBJECT
public:
    frmPari(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
    TabellaCelle* celle() const { return m_celle; }

private:
    DialogoPari m_logica;
    TabellaCelle* m_celle;
};

} // namespace dv
