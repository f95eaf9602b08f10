// frmOrdinaPronostico: the forecast's numbers in cells the user drags onto each other to put
// them in an order of choice, or puts in a random order. Closing writes the order to Numeri.
#pragma once

#include "core/dialogs/OrdinaPronostico.h"
#include "windows/DialoghiCondizione.h"

class QLabel;
class QPushButton;

namespace dv {

class frmOrdinaPronostico : public Dialogo {
    Q_OBJECT
public:
    frmOrdinaPronostico(Corpo& corpo, Ui& ui, QWidget* parent = nullptr);
    TabellaCelle* celle() const { return m_celle; }
    // The random order of cmdPronosticoRnd drawn from seed, for tests.
    void ordineCasuale(uint32_t seed);

protected:
    bool chiudi() override;

private:
    void mostraCella(int i);

    OrdinePronostico m_ordine;
    TabellaCelle* m_celle;
    QLabel* m_l1;
};

} // namespace dv
