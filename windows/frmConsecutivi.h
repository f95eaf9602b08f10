// frmConsecutivi: the condition on the longest run of consecutive numbers in a column. One cell
// for each run length, and the longest run inside the forecast as a hint.
#pragma once

#include "core/dialogs/Celle.h"
#include "windows/DialoghiCondizione.h"

namespace dv {

class frmConsecutivi : public Dialogo {
    Q_OBJECT
public:
    frmConsecutivi(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
    TabellaCelle* celle() const { return m_celle; }

protected:
    bool chiudi() override;

private:
    DialogoConsecutivi m_logica;
    TabellaCelle* m_celle;
};

} // namespace dv
