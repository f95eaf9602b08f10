#include "windows/frmConsecutivi.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace dv {

frmConsecutivi::frmConsecutivi(Corpo& corpo, Ui& ui, QWidget* parent)
    : Dialogo(corpo, ui, parent), m_logica(corpo) {
    auto* layout = impagina("frmConsecutivi", "Numeri Consecutivi");
    auto* frameCondizione = condizione("optCond", corpo.consecutivi.CondConsecutivi);

    m_celle = new TabellaCelle(QStringLiteral("lbPresenze"), DialogoConsecutivi::Prima,
                               DialogoConsecutivi::Ultima, 9, true, this);
    m_celle->setObjectName(QStringLiteral("framePresenze"));
    layout->addWidget(m_celle);
    for (int i = DialogoConsecutivi::Prima; i <= DialogoConsecutivi::Ultima; ++i) {
        m_celle->cella(i)->setVisible(m_logica.visibile(i));
        m_celle->mostraAcceso(i, m_logica.acceso(i));
    }
    connect(m_celle, &TabellaCelle::cellaCliccata, this,
            [this](int i) { m_celle->mostraAcceso(i, m_logica.click(i)); });

    auto* riga = new QHBoxLayout;
    auto* lblMax = new QLabel(QStringLiteral("Max"), this);
    lblMax->setObjectName(QStringLiteral("lblMax"));
    auto* l1 = new QLabel(QString::asprintf("%02d", m_logica.sequenzaMassima()), this);
    l1->setObjectName(QStringLiteral("l1"));
    l1->setFrameShape(QFrame::StyledPanel);
    riga->addWidget(lblMax);
    riga->addWidget(l1);
    riga->addStretch();
    layout->addLayout(riga);

    soloLettura({frameCondizione, m_celle});
    applicaLingua();
}

bool frmConsecutivi::chiudi() {
    m_logica.chiudi();
    return true;
}

} // namespace dv
