#include "windows/frmOrdinaPronostico.h"

#include "core/dialogs/Condizione.h"
#include "core/Helpers.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dv {

frmOrdinaPronostico::frmOrdinaPronostico(Corpo& corpo, Ui& ui, QWidget* parent)
    : Dialogo(corpo, ui, parent), m_ordine(corpo) {
    auto* layout = impagina("frmOrdinaPronostico", "Ordina Pronostico");

    auto* frame = new QGroupBox(QStringLiteral("Trascina i numeri per cambiargli posto"), this);
    frame->setObjectName(QStringLiteral("titleOrdinePronostico"));
    auto* frameLayout = new QVBoxLayout(frame);
    m_celle = new TabellaCelle(QStringLiteral("labPronosticoOrdinato"), 0, 90, 10, false, frame);
    frameLayout->addWidget(m_celle);
    layout->addWidget(frame);
    for (int i = 0; i < 90; ++i) {
        m_celle->cella(i)->setVisible(i < m_ordine.quanti());
        if (i < m_ordine.quanti()) mostraCella(i);
    }

    auto* riga = new QHBoxLayout;
    auto* rnd = new QPushButton(QStringLiteral("&Rnd"), this);
    rnd->setObjectName(QStringLiteral("cmdPronosticoRnd"));
    rnd->setToolTip(QStringLiteral("Ordina il pronostico in modo casuale"));
    rnd->setAutoDefault(false);
    m_l1 = new QLabel(this);
    m_l1->setObjectName(QStringLiteral("l1"));
    m_l1->setFrameShape(QFrame::StyledPanel);
    m_l1->setAlignment(Qt::AlignCenter);
    m_l1->setMinimumWidth(40);
    riga->addWidget(rnd);
    riga->addStretch();
    riga->addWidget(m_l1);
    layout->addLayout(riga);

    connect(rnd, &QPushButton::clicked, this, [this] { ordineCasuale(SecondiDaMezzanotte()); });
    connect(m_celle, &TabellaCelle::trascinata, this, [this](int sorgente, int sopra) {
        m_l1->setText(sopra >= 0 ? m_celle->cella(sorgente)->text() : QString());
    });
    connect(m_celle, &TabellaCelle::rilasciata, this, [this](int sorgente, int destinazione) {
        if (m_ordine.rilascia(sorgente, destinazione)) {
            mostraCella(sorgente);
            mostraCella(destinazione);
        }
        m_l1->clear();
    });

    // The order of a locked system's forecast can still be drawn at random, not by hand.
    frame->setEnabled(!SoloLettura(corpo));
    applicaLingua();
}

void frmOrdinaPronostico::mostraCella(int i) {
    QLabel* cell = m_celle->cella(i);
    cell->setText(QString::asprintf("%02d", m_ordine.numero(i)));
    cell->setProperty("tag", QStringLiteral("1"));
    cell->setStyleSheet(StileCella(ColoreBlu, m_ordine.coloreTesto(i), true));
}

void frmOrdinaPronostico::ordineCasuale(uint32_t seed) {
    m_ordine.casuale(seed);
    for (int i = 0; i < m_ordine.quanti(); ++i)
        mostraCella(i);
}

bool frmOrdinaPronostico::chiudi() {
    m_ordine.chiudi();
    return true;
}

} // namespace dv
