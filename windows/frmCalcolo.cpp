#include "windows/frmCalcolo.h"

#include "core/Helpers.h"
#include "platform/ApplyLanguage.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

namespace dv {

namespace {

QLabel* etichetta(QWidget* parent, const char* name, const QString& text, Qt::Alignment align) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    l->setAlignment(align | Qt::AlignVCenter);
    return l;
}
} // namespace

frmCalcolo::frmCalcolo(QtUi& ui, RunControl& control, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint), m_ui(ui),
      m_control(control), m_migliaia(SeparatoreMigliaia(ui)) {
    setObjectName(QStringLiteral("frmCalcolo"));
    setWindowTitle(QStringLiteral("Elaborazione in corso..."));

    auto* layout = new QVBoxLayout(this);
    // The scale above the bar: 0% at its left end, 50% in the middle, 100% at its right end.
    m_labAllarm =
        etichetta(this, "labAllarm",
                  QStringLiteral("<table width=\"100%\"><tr><td>0%</td><td align=\"center\">50%</td>"
                                 "<td align=\"right\">100%</td></tr></table>"),
                  Qt::AlignLeft);
    m_labAllarm->setStyleSheet(QStringLiteral("color: rgb(160,0,0);"));
    layout->addWidget(m_labAllarm);
    m_pb = new QProgressBar(this);
    m_pb->setObjectName(QStringLiteral("pb"));
    m_pb->setRange(0, 100);
    m_pb->setValue(0);
    m_pb->setTextVisible(false);
    layout->addWidget(m_pb);

    auto* counts = new QGridLayout;
    const struct {
        const char* label;
        const char* key;
        const char* caption;
        const char* value;
        QLabel** target;
    } rows[] = {
        {"lblColonneIntegrali", "0001", "Colonne Integrali", "lblNumColIntegrali", &m_lblNumColIntegrali},
        {"lblColonneElaborate", "0002", "Colonne Elaborate", "lblNumColElaborate", &m_lblNumColElaborate},
        {"lblColonneSistema", "0003", "Colonne Sistema", "lblNumColSistema", &m_lblNumColSistema},
    };
    int r = 0;
    for (const auto& row : rows) {
        const std::string text = ui.Lang(row.key);
        counts->addWidget(
            etichetta(this, row.label,
                      text.empty() ? QString::fromLatin1(row.caption) : QString::fromStdString(text),
                      Qt::AlignLeft),
            r, 0);
        *row.target = etichetta(this, row.value, QStringLiteral("0"), Qt::AlignRight);
        (*row.target)
            ->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral(" 0.000.000.000.000.000")));
        (*row.target)->setStyleSheet(QStringLiteral("font-weight: bold;"));
        counts->addWidget(*row.target, r, 1);
        ++r;
    }
    layout->addLayout(counts);

    m_cmdSvilAnnulla = new QPushButton(QStringLiteral("&Annulla"), this);
    m_cmdSvilAnnulla->setObjectName(QStringLiteral("cmdSvilAnnulla"));
    layout->addWidget(m_cmdSvilAnnulla, 0, Qt::AlignHCenter);
    connect(m_cmdSvilAnnulla, &QPushButton::clicked, this, &frmCalcolo::annulla);

    m_timer = new QTimer(this);
    m_timer->setInterval(80);
    connect(m_timer, &QTimer::timeout, this, &frmCalcolo::mostraConteggiVivi);
    m_timer->start();

    ApplyLanguage(*this, ui.languageFile());
    setMinimumWidth(440);
    adjustSize();
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

QString frmCalcolo::conta(double value) const {
    return QString::fromStdString(FormatContatore(value, m_migliaia));
}

void frmCalcolo::mostraIntegrale(double total) {
    m_colonneIntegrale = total;
    m_lblNumColIntegrali->setText(conta(total));
}

void frmCalcolo::mostraAvanzamento(const ProgressInfo& info) {
    m_colonneIntegrale = info.total;
    m_colonneElaborate = info.counter;
    m_colonneSistema = info.kept;
    m_pb->setValue(std::clamp(info.bar, 0, 100));
    m_lblNumColIntegrali->setText(conta(info.total));
    m_lblNumColElaborate->setText(conta(info.counter));
    m_lblNumColSistema->setText(conta(info.kept));
}

void frmCalcolo::mostraLimite(const ProgressInfo& info) {
    m_labAllarm->setText(QString::fromStdString(m_ui.Lang("0012")));
    mostraAvanzamento(info);
}

void frmCalcolo::mostraConteggiVivi() {
    const double counter = m_control.counter.load(std::memory_order_relaxed);
    const int32_t kept = m_control.kept.load(std::memory_order_relaxed);
    if (counter == m_colonneElaborate && kept == m_colonneSistema) return;
    m_colonneElaborate = counter;
    m_colonneSistema = kept;
    m_pb->setValue(std::clamp(m_control.bar.load(std::memory_order_relaxed), 0, 100));
    m_lblNumColElaborate->setText(conta(counter));
    m_lblNumColSistema->setText(conta(kept));
}

void frmCalcolo::annulla() {
    // The run waits while the question is open, as the user expects of a question; its counts
    // are those of the pause. A run that is itself waiting for this thread (a box of its own)
    // cannot pause: after a short wait the question comes all the same.
    m_control.pauseRequested = true;
    for (int i = 0; i < 100 && !m_control.paused; ++i)
        QThread::msleep(5);
    mostraConteggiVivi();
    m_ui.dialogs().beep();
    const std::string text = m_ui.Lang("0001") + FormatContatore(m_colonneIntegrale, m_migliaia) + "\n" +
                             m_ui.Lang("0002") + FormatContatore(m_colonneElaborate, m_migliaia) + "\n" +
                             m_ui.Lang("0003") + FormatContatore(m_colonneSistema, m_migliaia) + "\n" +
                             m_ui.Lang("0004");
    if (m_ui.dialogs().questionBox(this, text, windowTitle().toStdString(), BoxIcon::Question))
        m_control.StopElaborazione = true;
    m_control.resume();
}

void frmCalcolo::closeEvent(QCloseEvent* event) {
    event->ignore();
    annulla();
}

} // namespace dv
