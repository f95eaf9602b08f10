#include "windows/frmFiltriDistanzaNumeri.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace dv {

namespace {
// Colours of the panel, 0xBBGGRR.
constexpr uint32_t Bianco = 0xFFFFFF, Nero = 0x000000, Blu = 0xFF0000, Rosso = 0x0000FF;

QString DueCifre(int n) { return QString("%1").arg(n, 2, 10, QChar('0')); }

QGroupBox* Riquadro(QWidget* parent, const char* nome, const QString& titolo) {
    auto* g = new QGroupBox(titolo, parent);
    g->setObjectName(nome);
    return g;
}
} // namespace

frmFiltriDistanzaNumeri::frmFiltriDistanzaNumeri(Corpo& corpo, Ui& ui, QWidget* parent)
    : DialogoPannelli(ui, parent), m_pannello(std::make_unique<EditorDistanze>(corpo, corpo.CondizioniDistanza)) {
    collega(*m_pannello);
    costruisci();
    setWindowTitle("Distanza Numeri");
    completaCaricamento();
    mostraLimiti();
    ridisegna();
}

void frmFiltriDistanzaNumeri::costruisci() {
    setObjectName("frmFiltriDistanzaNumeri");
    auto* framePosizioni = Riquadro(m_frameCondizione, "framePosizioni", "Posizioni");
    auto* posizioni = new QGridLayout(framePosizioni);
    posizioni->setSpacing(2);
    for (int k = 1; k <= EditorDistanze::NumCoppie; ++k) {
        auto* l = nuovaCella("lbPFromPTo", k, QString("P%1 - P%2").arg(DueCifre(k), DueCifre(k + 1)));
        m_lbPFromPTo[static_cast<size_t>(k)] = l;
        posizioni->addWidget(l, (k - 1) % 12, (k - 1) / 12);
    }
    auto riquadroDistanze = [this](const char* nomeRiquadro, const QString& titolo, const char* nomeCelle,
                                   std::array<QLabel*, 90>& celle) {
        auto* g = Riquadro(m_frameCondizione, nomeRiquadro, titolo);
        auto* griglia = new QGridLayout(g);
        griglia->setSpacing(2);
        for (int d = 1; d <= EditorDistanze::NumDistanze; ++d) {
            celle[static_cast<size_t>(d)] = nuovaCella(nomeCelle, d, DueCifre(d));
            griglia->addWidget(celle[static_cast<size_t>(d)], (d - 1) / 10, (d - 1) % 10);
        }
        return g;
    };
    auto* frameDistanzaMin = riquadroDistanze("frameDistanzaMin", "Distanza Minima", "lbDistanzaMin", m_lbDistanzaMin);
    auto* frameDistanzaMax = riquadroDistanze("frameDistanzaMax", "Distanza Massima", "lbDistanzaMax", m_lbDistanzaMax);

    auto* lblDistMin = new QLabel("Min", this);
    lblDistMin->setObjectName("lblDistMin");
    auto* lblDistMax = new QLabel("Max", this);
    lblDistMax->setObjectName("lblDistMax");
    m_lblNumDistMin = new QLabel(this);
    m_lblNumDistMin->setObjectName("lblNumDistMin");
    m_lblNumDistMax = new QLabel(this);
    m_lblNumDistMax->setObjectName("lblNumDistMax");

    auto* frameStatoCond = Riquadro(m_frameCondizione, "frameStatoCond", "Condizione");
    auto* stato = new QHBoxLayout(frameStatoCond);
    stato->addWidget(m_optCond[0]);
    stato->addWidget(m_optCond[1]);

    auto* limiti = new QHBoxLayout;
    limiti->addWidget(lblDistMin);
    limiti->addWidget(m_lblNumDistMin);
    limiti->addSpacing(12);
    limiti->addWidget(lblDistMax);
    limiti->addWidget(m_lblNumDistMax);
    limiti->addStretch();
    limiti->addWidget(frameStatoCond);
    limiti->addWidget(m_cmdCancella);

    auto* distanze = new QHBoxLayout;
    distanze->addWidget(framePosizioni);
    distanze->addWidget(frameDistanzaMin);
    distanze->addWidget(frameDistanzaMax);
    auto* pannello = new QVBoxLayout(m_frameCondizione);
    pannello->addLayout(distanze);
    pannello->addLayout(limiti);

    auto* v = new QVBoxLayout(this);
    v->addWidget(m_frameCondizione);
    v->addLayout(barraNavigazione());
    v->addLayout(barraContatori());
}

void frmFiltriDistanzaNumeri::mostraLimiti() {
    // With an empty forecast the window stands as it was built.
    if (m_pannello->pronosticoVuoto()) return;
    const LimitiDistanza& l = m_pannello->limiti();
    m_lblNumDistMin->setText(l.calcolati ? DueCifre(l.minima) : QString());
    m_lblNumDistMax->setText(l.calcolati ? DueCifre(l.massima) : QString());
    for (int d = 1; d <= EditorDistanze::NumDistanze; ++d) {
        m_lbDistanzaMin[static_cast<size_t>(d)]->setVisible(m_pannello->distanzaVisibile(d));
        m_lbDistanzaMax[static_cast<size_t>(d)]->setVisible(m_pannello->distanzaVisibile(d));
    }
    for (int k = 1; k <= EditorDistanze::NumCoppie; ++k)
        m_lbPFromPTo[static_cast<size_t>(k)]->setVisible(m_pannello->coppiaVisibile(k));
}

void frmFiltriDistanzaNumeri::mostraCella(QLabel& cella) {
    const int i = cella.property("index").toInt();
    const QString nome = cella.objectName();
    if (nome == "lbPFromPTo")
        m_pannello->coppia(i) ? Colora(cella, Blu, Bianco) : Colora(cella, Bianco, Nero);
    else if (nome == "lbDistanzaMin" ? m_pannello->distanzaMin(i) : m_pannello->distanzaMax(i))
        Colora(cella, Rosso, Bianco);
    else
        Colora(cella, Bianco, Nero);
}

void frmFiltriDistanzaNumeri::mostraPannello() {
    for (int k = 1; k <= EditorDistanze::NumCoppie; ++k) mostraCella(*m_lbPFromPTo[static_cast<size_t>(k)]);
    for (int d = 1; d <= EditorDistanze::NumDistanze; ++d) {
        mostraCella(*m_lbDistanzaMin[static_cast<size_t>(d)]);
        mostraCella(*m_lbDistanzaMax[static_cast<size_t>(d)]);
    }
}

void frmFiltriDistanzaNumeri::cellaAttivata(QLabel& cella) {
    const int i = cella.property("index").toInt();
    const QString nome = cella.objectName();
    const bool cambiata = nome == "lbPFromPTo"      ? m_pannello->clickCoppia(i)
                          : nome == "lbDistanzaMin" ? m_pannello->clickDistanzaMin(i)
                                                    : m_pannello->clickDistanzaMax(i);
    if (cambiata) mostraCella(cella);
}

} // namespace dv
