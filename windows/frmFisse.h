// frmFisse: the fixed numbers, chosen on a grid of the ninety numbers among those of the forecast.
#pragma once

#include "core/dialogs/Celle.h"
#include "windows/DialoghiCondizione.h"

class QLabel;

namespace dv {

class frmFisse : public Dialogo {
    Q_OBJECT
public:
    frmFisse(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
    TabellaCelle* celle() const { return m_celle; }

protected:
    bool chiudi() override;

private:
    void mostraCella(int i);

    DialogoFisse m_logica;
    TabellaCelle* m_celle;
    QLabel* m_l1;
};

} // namespace dv
