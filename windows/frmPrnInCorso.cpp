#include "windows/frmPrnInCorso.h"

#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "windows/QtUiDialogs.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace dv {

frmPrnInCorso::frmPrnInCorso(Ui& ui, DialogService& dialogs, std::atomic<bool>& fermata, QWidget* parent)
    : QWidget(parent, Qt::Window), m_ui(ui), m_dialogs(dialogs), m_fermata(fermata) {
    setObjectName(QStringLiteral("frmPrnInCorso"));
    setWindowTitle(QStringLiteral("Stampa in corso..."));
    auto* layout = new QVBoxLayout(this);
    m_lblScheda = new QLabel(QStringLiteral("Scheda n. 000000"), this);
    m_lblScheda->setObjectName(QStringLiteral("lblScheda"));
    m_lblScheda->setAlignment(Qt::AlignCenter);
    QFont f = m_lblScheda->font();
    f.setPointSizeF(f.pointSizeF() * 1.4);
    f.setBold(true);
    m_lblScheda->setFont(f);
    m_cmdInterrompi = new QPushButton(QStringLiteral("&Interrompi"), this);
    m_cmdInterrompi->setObjectName(QStringLiteral("cmdInterrompi"));
    layout->addWidget(m_lblScheda);
    layout->addWidget(m_cmdInterrompi);
    resize(320, 110);
    connect(m_cmdInterrompi, &QPushButton::clicked, this, &frmPrnInCorso::cmdInterrompi_Click);
    ApplyLanguage(*this, ui.languageFile());
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

void frmPrnInCorso::mostraScheda(const QString& testo) {
    m_lblScheda->setText(testo);
}

QString frmPrnInCorso::testoScheda() const {
    return m_lblScheda->text();
}

void frmPrnInCorso::cmdInterrompi_Click() {
    m_dialogs.beep();
    if (m_dialogs.questionBox(this, m_ui.Lang("0020"), windowTitle().toStdString(), BoxIcon::Question))
        m_fermata = true;
}

void frmPrnInCorso::closeEvent(QCloseEvent* event) {
    event->ignore();
    cmdInterrompi_Click();
}

} // namespace dv
