#include "windows/frmFiltri.h"

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
constexpr uint32_t Bianco = 0xFFFFFF, Nero = 0x000000, Blu = 0xFF0000, Rosso = 0x0000FF, Giallo = 0x00FFFF;
constexpr uint32_t Grigio = 0xE0E0E0;

TipoFiltro TipoDellaTabella(const Corpo& c, const TabellaFiltri& t) {
    if (&t == &c.FiltriOR) return TipoFiltro::OR;
    if (&t == &c.FiltriXOR) return TipoFiltro::XOR;
    return TipoFiltro::AND;
}

QString TitoloDelTipo(TipoFiltro tipo) {
    switch (tipo) {
    case TipoFiltro::OR: return " - OR";
    case TipoFiltro::XOR: return " - XOR";
    case TipoFiltro::AND: break;
    }
    return " - AND";
}

QString DueCifre(int n) { return QString("%1").arg(n, 2, 10, QChar('0')); }
} // namespace

frmFiltri::frmFiltri(Corpo& corpo, Ui& ui, TabellaFiltri& table, QWidget* parent)
    : frmFiltri(corpo, ui, TipoDellaTabella(corpo, table), parent) {}

frmFiltri::frmFiltri(Corpo& corpo, Ui& ui, TipoFiltro tipo, QWidget* parent)
    : DialogoPannelli(ui, parent), m_corpo(corpo), m_tipo(tipo) {
    costruisci();
    carica();
}

void frmFiltri::costruisci() {
    setObjectName("frmFiltri");
    auto* griglia = new QGridLayout;
    griglia->setSpacing(2);
    for (int i = 0; i < 90; ++i) {
        m_labGriglia[static_cast<size_t>(i)] = nuovaCella("labGriglia", i, DueCifre(i + 1));
        griglia->addWidget(m_labGriglia[static_cast<size_t>(i)], i / 10, i % 10);
    }
    auto* presenze = new QGridLayout;
    presenze->setSpacing(2);
    for (int k = 0; k <= MaxLenColonna; ++k) {
        m_lbPresenze[static_cast<size_t>(k)] = nuovaCella("lbPresenze", k, QString::number(k));
        presenze->addWidget(m_lbPresenze[static_cast<size_t>(k)], k / 13, k % 13);
    }
    m_lblNumSelezionati = new QLabel(this);
    m_lblNumSelezionati->setObjectName("lblNumSelezionati");
    m_cmdCancellaTutto = new QPushButton("Cancella Tutto", this);
    m_cmdCancellaTutto->setObjectName("cmdCancellaTutto");
    m_cmdCancellaTutto->setAutoDefault(false);
    connect(m_cmdCancellaTutto, &QPushButton::clicked, this, [this] {
        if (m_pannello->cancellaTabella(m_ui)) ridisegna();
    });
    // Shown once the program offers the import window.
    m_cmdLoadFiltri = new QPushButton("Importa", this);
    m_cmdLoadFiltri->setObjectName("cmdLoadFiltri");
    m_cmdLoadFiltri->setAutoDefault(false);
    m_cmdLoadFiltri->setVisible(false);
    connect(m_cmdLoadFiltri, &QPushButton::clicked, this, &frmFiltri::cmdLoadFiltri_Click);

    auto* comandi = new QHBoxLayout;
    comandi->addWidget(m_optCond[0]);
    comandi->addWidget(m_optCond[1]);
    comandi->addStretch();
    comandi->addWidget(new QLabel("Numeri:", this));
    comandi->addWidget(m_lblNumSelezionati);
    comandi->addStretch();
    comandi->addWidget(m_cmdCancella);
    comandi->addWidget(m_cmdCancellaTutto);
    comandi->addWidget(m_cmdLoadFiltri);
    auto* pannello = new QVBoxLayout(m_frameCondizione);
    pannello->addLayout(griglia);
    pannello->addLayout(presenze);
    pannello->addLayout(comandi);

    // Part of the layout, with no behaviour: nothing reads or sets it.
    auto* frameRecuperoErrori = new QGroupBox("Recupero Errori ", this);
    frameRecuperoErrori->setObjectName("frameRecuperoErrori");
    auto* errori = new QHBoxLayout(frameRecuperoErrori);
    errori->setSpacing(2);
    for (int k = 0; k <= MaxLenColonna; ++k) {
        auto* l = new QLabel(QString::number(k), frameRecuperoErrori);
        l->setObjectName("lbErrori");
        l->setProperty("index", k);
        errori->addWidget(l);
    }

    auto* v = new QVBoxLayout(this);
    v->addWidget(m_frameCondizione);
    v->addWidget(frameRecuperoErrori);
    v->addLayout(barraNavigazione());
    v->addLayout(barraContatori());
}

void frmFiltri::carica() {
    m_pannello = std::make_unique<EditorFiltri>(m_corpo, TabellaDelTipo(m_corpo, m_tipo));
    collega(*m_pannello);
    setWindowTitle(" Colonne Filtro");
    completaCaricamento();
    setWindowTitle(windowTitle() + TitoloDelTipo(m_tipo));
    for (int k = 0; k <= MaxLenColonna; ++k) m_lbPresenze[static_cast<size_t>(k)]->setVisible(m_pannello->presenzaVisibile(k));
    ridisegna();
}

void frmFiltri::setTipoFiltro(TipoFiltro tipo) {
    m_tipo = tipo;
    carica();
}

void frmFiltri::setImporta(std::function<void(int)> importa) {
    m_importa = std::move(importa);
    m_cmdLoadFiltri->setVisible(static_cast<bool>(m_importa));
}

void frmFiltri::cmdLoadFiltri_Click() {
    if (!m_importa) return;
    m_importa(static_cast<int>(m_tipo) + 1);
    // What the panel held before is not saved: the table is what the import left.
    m_pannello->ricarica();
    ridisegna();
}

void frmFiltri::mostraNumero(int n) {
    QLabel& l = *m_labGriglia[static_cast<size_t>(n - 1)];
    if (!m_pannello->nelPronostico(n))
        Colora(l, Grigio, Nero);
    else if (m_pannello->numero(n))
        Colora(l, Blu, Bianco);
    else
        Colora(l, Bianco, Nero);
}

void frmFiltri::mostraPresenza(int k) {
    if (m_pannello->presenza(k))
        Colora(*m_lbPresenze[static_cast<size_t>(k)], Rosso, Giallo);
    else
        Colora(*m_lbPresenze[static_cast<size_t>(k)], Bianco, Nero);
}

void frmFiltri::mostraPannello() {
    for (int n = 1; n <= 90; ++n) mostraNumero(n);
    for (int k = 0; k <= MaxLenColonna; ++k) mostraPresenza(k);
    m_lblNumSelezionati->setText(QString::number(m_pannello->numSelezionati()));
}

void frmFiltri::cellaAttivata(QLabel& cella) {
    const int i = cella.property("index").toInt();
    if (cella.objectName() == "labGriglia") {
        if (!m_pannello->clickNumero(i + 1)) return;
        mostraNumero(i + 1);
        m_lblNumSelezionati->setText(QString::number(m_pannello->numSelezionati()));
    } else if (m_pannello->clickPresenza(i)) {
        mostraPresenza(i);
    }
}

} // namespace dv
