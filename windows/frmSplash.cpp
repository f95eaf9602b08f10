#include "windows/frmSplash.h"

#include "windows/QtUiDialogs.h"

#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#ifndef DORVANTA_VERSION
#define DORVANTA_VERSION "1.0.0"
#endif

namespace dv {

frmSplash::frmSplash(QWidget* parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmSplash"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("#frmSplash { background: white; border: 3px solid rgb(255,128,0); }"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 24, 32, 20);

    auto* titolo = new QLabel(QString::fromLatin1(TitoloApplicazione), this);
    titolo->setObjectName(QStringLiteral("lblTitolo"));
    titolo->setAlignment(Qt::AlignCenter);
    titolo->setStyleSheet(QStringLiteral("font-size: 30pt; font-weight: bold; color: rgb(255,128,0);"));
    layout->addWidget(titolo);

    auto* gioco = new QLabel(QStringLiteral("Sistemi per il 10eLotto"), this);
    gioco->setObjectName(QStringLiteral("lblGioco"));
    gioco->setAlignment(Qt::AlignCenter);
    gioco->setStyleSheet(QStringLiteral("font-size: 14pt; color: rgb(90,90,90);"));
    layout->addWidget(gioco);

    auto* versione = new QLabel(QStringLiteral("Ver. " DORVANTA_VERSION), this);
    versione->setObjectName(QStringLiteral("lblVersione"));
    versione->setAlignment(Qt::AlignCenter);
    layout->addWidget(versione);
    layout->addSpacing(12);

    m_stato = new QLabel(QStringLiteral("Caricamento..."), this);
    m_stato->setObjectName(QStringLiteral("lblStato"));
    m_stato->setAlignment(Qt::AlignCenter);
    m_stato->setStyleSheet(QStringLiteral("color: rgb(90,90,90);"));
    layout->addWidget(m_stato);

    setFixedSize(sizeHint().expandedTo(QSize(420, 220)));
    if (const QScreen* screen = this->screen()) move(screen->availableGeometry().center() - rect().center());
}

void frmSplash::mostraStato(const QString& text) {
    m_stato->setText(text);
}

} // namespace dv
