#include "windows/frmVisualizza.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dv {

frmVisualizza::frmVisualizza(Corpo& corpo, Ui& ui, QWidget* parent)
    : Dialogo(corpo, ui, parent), m_pannelli(corpo.pronostico.NumColonne) {
    auto* layout = impagina("frmVisualizza", "Visualizza Sistema");

    auto* righe = new QFrame(this);
    righe->setObjectName(QStringLiteral("frameColonne"));
    righe->setFrameShape(QFrame::StyledPanel);
    righe->setAutoFillBackground(true);
    QPalette p = righe->palette();
    p.setColor(QPalette::Window, Qt::white);
    p.setColor(QPalette::WindowText, Qt::black);
    righe->setPalette(p);
    auto* righeLayout = new QVBoxLayout(righe);
    QFont fisso = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (int i = 0; i < ColonnePerPannello; ++i) {
        auto* riga = new QLabel(righe);
        riga->setObjectName(QStringLiteral("labVisualizza"));
        riga->setProperty("index", i);
        riga->setFont(fisso);
        riga->setTextInteractionFlags(Qt::TextSelectableByMouse);
        // Room for 25 numbers: "  " and 25 times "00-".
        riga->setMinimumWidth(riga->fontMetrics().horizontalAdvance(QString(77, QLatin1Char('0'))));
        righeLayout->addWidget(riga);
        m_righe[static_cast<size_t>(i)] = riga;
    }
    layout->addWidget(righe);

    auto* pannello = new QHBoxLayout;
    auto* lblPannello = new QLabel(QStringLiteral("* Pannello n."), this);
    lblPannello->setObjectName(QStringLiteral("lblPannello"));
    m_labNscheda = new QLabel(this);
    m_labNscheda->setObjectName(QStringLiteral("labNscheda"));
    m_labNscheda->setFrameShape(QFrame::StyledPanel);
    m_labNscheda->setMinimumWidth(m_labNscheda->fontMetrics().horizontalAdvance(QStringLiteral("0000000")));
    m_labNscheda->setAlignment(Qt::AlignCenter);
    auto* lblInfo = new QLabel(QStringLiteral("* 1 Pannello = 10 Colonne"), this);
    lblInfo->setObjectName(QStringLiteral("lblInfo"));
    pannello->addWidget(lblPannello);
    pannello->addWidget(m_labNscheda);
    pannello->addStretch();
    pannello->addWidget(lblInfo);
    layout->addLayout(pannello);

    auto* comandi = new QHBoxLayout;
    comandi->addWidget(pulsante("cmdBOTTOM", QStringLiteral("|<"), QStringLiteral("Primo Pannello"),
                                [this] { m_pannelli.vaiAlPrimo(); }));
    comandi->addWidget(pulsante("cmdPrev2", QStringLiteral("<<"), QStringLiteral("Indietro di 10 pannelli"),
                                [this] { m_pannelli.indietro(10); }));
    comandi->addWidget(pulsante("cmdPrev1", QStringLiteral("<"), QStringLiteral("Indietro di 1 pannello"),
                                [this] { m_pannelli.indietro(1); }));
    comandi->addWidget(pulsante("cmdNext1", QStringLiteral(">"), QStringLiteral("Avanti di 1 pannello"),
                                [this] { m_pannelli.avanti(1); }));
    comandi->addWidget(pulsante("cmdNext2", QStringLiteral(">>"), QStringLiteral("Avanti di 10 pannelli"),
                                [this] { m_pannelli.avanti(10); }));
    comandi->addWidget(pulsante("cmdTOP", QStringLiteral(">|"), QStringLiteral("Ultimo Pannello"),
                                [this] { m_pannelli.vaiAllUltimo(); }));
    layout->addLayout(comandi);

    // A key pressed on a stepping button acts as a click, so holding it repeats the step.
    for (const char* nome : {"cmdNext1", "cmdNext2", "cmdPrev1", "cmdPrev2"}) {
        auto* b = findChild<QPushButton*>(QString::fromLatin1(nome));
        b->installEventFilter(this);
    }
    disegna();
    applicaLingua();
}

QPushButton* frmVisualizza::pulsante(const char* nome, const QString& testo, const QString& suggerimento,
                                     std::function<void()> azione) {
    auto* b = new QPushButton(testo, this);
    b->setObjectName(QString::fromLatin1(nome));
    b->setToolTip(suggerimento);
    b->setAccessibleName(suggerimento);
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, [this, azione = std::move(azione)] {
        azione();
        disegna();
    });
    return b;
}

bool frmVisualizza::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // Tab and Esc keep their usual meaning: moving the focus and closing.
        const bool navigazione = key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape;
        auto* b = qobject_cast<QPushButton*>(watched);
        if (!navigazione && b) {
            b->click();
            return true;
        }
    }
    return Dialogo::eventFilter(watched, event);
}

void frmVisualizza::disegna() {
    const auto righe = RighePannello(m_corpo, m_pannelli.corrente());
    for (int i = 0; i < ColonnePerPannello; ++i)
        m_righe[static_cast<size_t>(i)]->setText(QString::fromStdString(righe[static_cast<size_t>(i)]));
    m_labNscheda->setText(QString::number(m_pannelli.corrente()));
}

} // namespace dv
