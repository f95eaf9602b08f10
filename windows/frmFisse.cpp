#include "windows/frmFisse.h"

#include "core/dialogs/Condizione.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace dv {

frmFisse::frmFisse(Corpo& corpo, Ui& ui, QWidget* parent) : Dialogo(corpo, ui, parent), m_logica(corpo) {
    auto* layout = impagina("frmFisse", "Fisse");
    auto* frameCondizione = condizione("optCondFisse", corpo.condizioni.CondFisse);

    // The grid counts its cells from 0, each showing its number i+1.
    m_celle = new TabellaCelle(QStringLiteral("labGriglia"), 0, DialogoFisse::Celle, 10, true, this);
    m_celle->setObjectName(QStringLiteral("frameGriglia"));
    layout->addWidget(m_celle);
    for (int i = 0; i < DialogoFisse::Celle; ++i) {
        m_celle->cella(i)->setText(QString::asprintf("%02d", i + 1));
        mostraCella(i);
    }

    auto* riga = new QHBoxLayout;
    m_l1 = new QLabel(this);
    m_l1->setObjectName(QStringLiteral("l1"));
    m_l1->setFrameShape(QFrame::StyledPanel);
    m_l1->setMinimumWidth(40);
    m_l1->setAlignment(Qt::AlignCenter);
    m_l1->setText(QString::number(m_logica.conteggio()));
    riga->addStretch();
    riga->addWidget(m_l1);
    layout->addLayout(riga);

    connect(m_celle, &TabellaCelle::cellaCliccata, this, [this](int i) {
        if (!m_logica.click(i)) return;
        mostraCella(i);
        m_l1->setText(QString::number(m_logica.conteggio()));
    });

    soloLettura({frameCondizione, m_celle});
    applicaLingua();
}

void frmFisse::mostraCella(int i) {
    if (m_logica.abilitato(i)) {
        m_celle->mostraAcceso(i, m_logica.acceso(i));
        return;
    }
    // A number outside the forecast cannot be chosen.
    m_celle->cella(i)->setProperty("tag", QStringLiteral("0"));
    m_celle->cella(i)->setStyleSheet(StileCella(ColoreGrigio, 0xA0A0A0, false));
}

bool frmFisse::chiudi() {
    m_logica.chiudi();
    return true;
}

} // namespace dv
