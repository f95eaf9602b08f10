#include "windows/frmSomma.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <QVBoxLayout>

#include <optional>

namespace dv {

namespace {
std::optional<int> Valore(const QLineEdit* box) {
    const QString t = box->text().trimmed();
    if (t.isEmpty()) return std::nullopt;
    return t.toInt();
}

QLineEdit* CasellaSomma(const char* nome, int valore, QWidget* parent) {
    auto* box = new QLineEdit(QString::number(valore), parent);
    box->setObjectName(QString::fromLatin1(nome));
    // A sum of 25 numbers is at most 1,950: four digits always hold it.
    box->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d{0,4}")), box));
    box->setAlignment(Qt::AlignRight);
    return box;
}

QLabel* Etichetta(const char* nome, const QString& testo, QWidget* parent) {
    auto* l = new QLabel(testo, parent);
    l->setObjectName(QString::fromLatin1(nome));
    return l;
}
} // namespace

frmSomma::frmSomma(Corpo& corpo, Ui& ui, QWidget* parent) : Dialogo(corpo, ui, parent) {
    m_limiti = CaricaSomma(corpo);
    auto* layout = impagina("frmSomma", "Somma");
    auto* frameCondizione = condizione("optCondSomma", corpo.condizioni.CondSomma);

    auto* frameValori = new QGroupBox(this);
    frameValori->setObjectName(QStringLiteral("frameValori"));
    auto* griglia = new QGridLayout(frameValori);
    m_meDa = CasellaSomma(
        "meDa", ValoreSommaIniziale(corpo.condizioni.SommaMinMax[0], m_limiti, m_limiti.labMin), this);
    m_meA = CasellaSomma(
        "meA", ValoreSommaIniziale(corpo.condizioni.SommaMinMax[1], m_limiti, m_limiti.labMax), this);
    auto* labMin = Etichetta("labMin", QString::number(m_limiti.labMin), this);
    auto* labMax = Etichetta("labMax", QString::number(m_limiti.labMax), this);
    for (QLabel* l : {labMin, labMax}) {
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        l->setFrameShape(QFrame::StyledPanel);
    }
    auto* lblDA = Etichetta("lblDA", QStringLiteral("Da"), this);
    auto* lblA = Etichetta("lblA", QStringLiteral("A"), this);
    lblDA->setBuddy(m_meDa);
    lblA->setBuddy(m_meA);
    griglia->addWidget(Etichetta("lblMin", QStringLiteral("Minimo"), this), 0, 0);
    griglia->addWidget(Etichetta("lblMax", QStringLiteral("Massimo"), this), 0, 1);
    griglia->addWidget(labMin, 1, 0);
    griglia->addWidget(labMax, 1, 1);
    griglia->addWidget(lblDA, 2, 0);
    griglia->addWidget(lblA, 2, 1);
    griglia->addWidget(m_meDa, 3, 0);
    griglia->addWidget(m_meA, 3, 1);
    layout->addWidget(frameValori);

    for (QLineEdit* box : {m_meDa, m_meA})
        box->installEventFilter(this);
    // Enter moves from one box to the other.
    connect(m_meDa, &QLineEdit::returnPressed, m_meA, [this] { m_meA->setFocus(); });
    connect(m_meA, &QLineEdit::returnPressed, m_meDa, [this] { m_meDa->setFocus(); });

    soloLettura({frameCondizione, frameValori});
    applicaLingua();
}

bool frmSomma::eventFilter(QObject* watched, QEvent* event) {
    // Entering a box selects its whole text (after the click that placed the cursor).
    if (event->type() == QEvent::FocusIn) {
        auto* box = static_cast<QLineEdit*>(watched);
        QTimer::singleShot(0, box, &QLineEdit::selectAll);
    }
    return Dialogo::eventFilter(watched, event);
}

bool frmSomma::chiudi() {
    const EsitoSomma esito =
        ChiudiSomma(m_corpo, m_ui, m_limiti, Valore(m_meDa), Valore(m_meA), [] { QApplication::beep(); });
    if (esito.focus == CampoSomma::Da) m_meDa->setFocus();
    if (esito.focus == CampoSomma::A) m_meA->setFocus();
    return esito.chiudi;
}

} // namespace dv
