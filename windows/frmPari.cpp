#include "windows/frmPari.h"

#include <QLabel>
#include <QVBoxLayout>

namespace dv {

frmPari::frmPari(Corpo& corpo, Ui& ui, QWidget* parent) : Dialogo(corpo, ui, parent), m_logica(corpo) {
    auto* layout = impagina("frmPari", "Pari e Dispari");
    auto* frameCondizione = condizione("optCondizione", corpo.condizioni.CondPari);

    auto* lblPari = new QLabel(QStringLiteral("PARI"), this);
    lblPari->setObjectName(QStringLiteral("lblPari"));
    layout->addWidget(lblPari);
    m_celle = new TabellaCelle(QStringLiteral("labPariDispari"), 0, DialogoPari::Celle, 9, true, this);
    m_celle->setObjectName(QStringLiteral("framePari"));
    layout->addWidget(m_celle);
    for (int i = 0; i < DialogoPari::Celle; ++i) {
        m_celle->cella(i)->setVisible(m_logica.visibile(i));
        m_celle->mostraAcceso(i, m_logica.acceso(i));
    }
    connect(m_celle, &TabellaCelle::cellaCliccata, this,
            [this](int i) { m_celle->mostraAcceso(i, m_logica.click(i)); });

    soloLettura({frameCondizione, m_celle});
    applicaLingua();
}

} // namespace dv
