// The controls of the main window: grid, column length, kind of play, stake, buttons, status line.
#include "windows/frmMAIN.h"

#include "core/Finestra.h"
#include "windows/frmMAINGriglia.h"
#include "windows/QtUi.h"

#include "core/Sistema.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace dv {

namespace {
const QString StileOpzioni =
    QStringLiteral("QRadioButton:checked { font-weight: bold; color: rgb(255,128,0); }");

QGroupBox* riquadro(const char* name, const QString& caption, QWidget* parent) {
    auto* box = new QGroupBox(caption, parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}
} // namespace

void frmMAIN::costruisciControlli() {
    auto* central = new QWidget(this);
    auto* columns = new QHBoxLayout(central);

    // The forecast: its counter, the opener of the forecast menu, and the grid.
    auto* left = new QVBoxLayout;
    auto* top = new QHBoxLayout;
    m_labnumeri = new QLabel(QStringLiteral("Numeri in gioco [00]"), central);
    m_labnumeri->setObjectName(QStringLiteral("labnumeri"));
    m_labnumeri->setStyleSheet(QStringLiteral("font-weight: bold; color: rgb(255,128,0);"));
    m_labnumeri->installEventFilter(this);
    m_lbMnu = new QLabel(QStringLiteral("\u25BC"), central);
    m_lbMnu->setObjectName(QStringLiteral("lbMnu"));
    m_lbMnu->setStyleSheet(QStringLiteral("color: rgb(255,128,0);"));
    m_lbMnu->installEventFilter(this);
    top->addWidget(m_labnumeri);
    top->addStretch();
    top->addWidget(m_lbMnu);
    left->addLayout(top);
    m_griglia = new GrigliaNumeri(QStringLiteral("grnum"), central);
    m_griglia->setObjectName(QStringLiteral("frameNumeri"));
    connect(m_griglia, &GrigliaNumeri::cellaCliccata, this,
            [this](int index) { GrigliaNumeriClick(m_corpo, *m_ui, index); });
    left->addWidget(m_griglia, 1);
    columns->addLayout(left, 3);

    columns->addWidget(costruisciGiocata(), 2);
    columns->addWidget(costruisciPulsanti(), 0);
    setCentralWidget(central);

    auto* bar = new QStatusBar(this);
    bar->setObjectName(QStringLiteral("StBar"));
    bar->setSizeGripEnabled(true);
    const int stretch[4] = {2, 1, 1, 4};
    for (int i = 0; i < 4; ++i) {
        m_pannelli[i] = new QLabel(bar);
        m_pannelli[i]->setObjectName(QStringLiteral("StBar_%1").arg(i + 1));
        m_pannelli[i]->setProperty("index", i + 1);
        m_pannelli[i]->setFrameShape(QFrame::StyledPanel);
        m_pannelli[i]->setMinimumWidth(60);
        bar->addPermanentWidget(m_pannelli[i], stretch[i]);
    }
    m_lblAvviso = new QLabel(bar);
    m_lblAvviso->setObjectName(QStringLiteral("lblAvviso"));
    m_lblAvviso->setStyleSheet(QStringLiteral("color: rgb(200,0,0); font-weight: bold;"));
    m_lblAvviso->setVisible(false);
    bar->addPermanentWidget(m_lblAvviso, 3);
    m_pannelli[1]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_pannelli[2]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setStatusBar(bar);
}

QWidget* frmMAIN::costruisciGiocata() {
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);

    auto* frameLenCol = riquadro("frameLenCol", QStringLiteral("Lunghezza Colonna  "), panel);
    auto* lenLayout = new QHBoxLayout(frameLenCol);
    m_hsLenCol = new QScrollBar(Qt::Horizontal, frameLenCol);
    m_hsLenCol->setObjectName(QStringLiteral("hsLenCol"));
    m_hsLenCol->setRange(1, 25);
    m_hsLenCol->setPageStep(1);
    m_hsLenCol->setFocusPolicy(Qt::StrongFocus); // the arrow keys change the length
    m_hsLenCol->setValue(m_corpo.LenColonna);
    m_lbLenCol = new QLabel(QString::number(m_corpo.LenColonna), frameLenCol);
    m_lbLenCol->setObjectName(QStringLiteral("lbLenCol"));
    m_lbLenCol->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000")));
    m_lbLenCol->setAlignment(Qt::AlignCenter);
    m_lbLenCol->setStyleSheet(QStringLiteral("font-weight: bold; font-size: 14pt; color: rgb(255,128,0);"));
    lenLayout->addWidget(m_hsLenCol, 1);
    lenLayout->addWidget(m_lbLenCol);
    connect(m_hsLenCol, &QScrollBar::valueChanged, this, &frmMAIN::lenColonnaCambiata);
    layout->addWidget(frameLenCol);

    auto* frameTipo = riquadro("frameTipoGiocata", QString(), panel);
    frameTipo->setStyleSheet(StileOpzioni);
    auto* tipoLayout = new QVBoxLayout(frameTipo);
    auto* tipi = new QButtonGroup(this);
    for (int i = 0; i < 3; ++i) {
        m_optTipoGiocata[i] =
            new QRadioButton(QString::fromLatin1(TipiGiocata[static_cast<size_t>(i)]), frameTipo);
        m_optTipoGiocata[i]->setObjectName(QStringLiteral("optTipoGiocata"));
        m_optTipoGiocata[i]->setProperty("index", i);
        m_optTipoGiocata[i]->setProperty("tag", QString::number(i + 1));
        tipi->addButton(m_optTipoGiocata[i], i);
        tipoLayout->addWidget(m_optTipoGiocata[i]);
    }
    connect(tipi, &QButtonGroup::idClicked, this, &frmMAIN::tipoGiocataCliccato);
    layout->addWidget(frameTipo);

    auto* frameImporto = riquadro("frameImporto", QStringLiteral("Importo giocata "), panel);
    frameImporto->setStyleSheet(StileOpzioni);
    auto* importoLayout = new QGridLayout(frameImporto);
    auto* importi = new QButtonGroup(this);
    for (int i = 0; i < 10; ++i) {
        const auto& opzione = ImportiGiocata[static_cast<size_t>(i)];
        m_optImporto[i] = new QRadioButton(QString::fromLatin1(opzione.caption), frameImporto);
        m_optImporto[i]->setObjectName(QStringLiteral("optImporto"));
        m_optImporto[i]->setProperty("index", i);
        m_optImporto[i]->setProperty("tag", QString::number(opzione.decimi));
        importi->addButton(m_optImporto[i], i);
        importoLayout->addWidget(m_optImporto[i], i / 5, i % 5);
    }
    connect(importi, &QButtonGroup::idClicked, this, &frmMAIN::importoCliccato);
    layout->addWidget(frameImporto);

    auto* integrale = new QHBoxLayout;
    auto* caption = new QLabel(QStringLiteral("Colonne Integrali"), panel);
    caption->setObjectName(QStringLiteral("lblCaptionColonneIntegrali"));
    m_lblIntegrale = new QLabel(QStringLiteral("0"), panel);
    m_lblIntegrale->setObjectName(QStringLiteral("lblIntegrale"));
    m_lblIntegrale->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_lblIntegrale->setStyleSheet(QStringLiteral("font-weight: bold;"));
    integrale->addWidget(caption);
    integrale->addWidget(m_lblIntegrale, 1);
    layout->addLayout(integrale);
    layout->addStretch();
    return panel;
}

QWidget* frmMAIN::costruisciPulsanti() {
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    // Buttons whose windows are not part of the program yet stay hidden. Each caption carries a
    // mnemonic of its own, clear of the menu bar's letters.
    const struct {
        const char* name;
        const char* caption;
        bool visible;
    } buttons[] = {
        {"cmdArchivio", "&Archivio Estrazioni", false},  {"cmdModifiche", "&Modifica Sistema", true},
        {"cmdAdatta", "A&datta Matrice", false},         {"cmdSpoglio", "S&poglio Sistema", false},
        {"cmdVisualizza", "&Visualizza Sistema", false}, {"cmdCancella", "Cance&lla Sistema", true},
        {"cmdCalcolo", "&Elabora Sistema", true},        {"cmdTabulato", "Stampa &Tabulato", false},
        {"cmdSchedine", "Stampa Sc&hedine", false},
    };
    for (const auto& b : buttons) {
        auto* button = new QPushButton(QString::fromLatin1(b.caption), panel);
        button->setObjectName(QString::fromLatin1(b.name));
        button->setMinimumHeight(30);
        button->setVisible(b.visible);
        layout->addWidget(button);
    }
    layout->addStretch();
    return panel;
}

void frmMAIN::lenColonnaCambiata(int value) {
    m_corpo.LenColonna = static_cast<int16_t>(value);
    m_lbLenCol->setText(QString::number(value));
    abilitaOperazioni();
    AggiornaIntegrale();
}

void frmMAIN::tipoGiocataCliccato(int index) {
    m_optTipoGiocata[index]->setChecked(true);
    ImpostaTipoGiocata(m_corpo, *m_ui, m_optTipoGiocata[index]->property("tag").toInt());
}

void frmMAIN::importoCliccato(int index) {
    m_optImporto[index]->setChecked(true);
    ImpostaImporto(m_corpo, *m_ui, index);
}

} // namespace dv
