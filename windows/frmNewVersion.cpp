#include "windows/frmNewVersion.h"

#include "core/Ui.h"
#include "platform/ApplyLanguage.h"
#include "platform/DownloadFile.h"
#include "platform/Shell.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

namespace dv {

namespace {

QLabel* etichetta(QWidget* parent, const char* name, const QString& text) {
    auto* l = new QLabel(text, parent);
    l->setObjectName(QString::fromLatin1(name));
    return l;
}

} // namespace

frmNewVersion::frmNewVersion(Ui& ui, QWidget* parent, std::function<bool(const std::string&)> opener)
    : QDialog(parent), m_opener(opener ? std::move(opener) : [](const std::string& s) { return OpenDocument(s); }) {
    setObjectName(QStringLiteral("frmNewVersion"));
    setWindowTitle(QStringLiteral("Nuova Versione Disponibile!!"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(etichetta(this, "lblServer", QStringLiteral("Versione sul Server")), 0, 0);
    m_lbRemoteVersion = etichetta(this, "lbRemoteVersion", QString());
    grid->addWidget(m_lbRemoteVersion, 0, 1);
    grid->addWidget(etichetta(this, "lblLocale", QStringLiteral("Versione Locale")), 1, 0);
    m_lbLocalVersion = etichetta(this, "lbLocalVersion", QString());
    grid->addWidget(m_lbLocalVersion, 1, 1);
    grid->addWidget(etichetta(this, "lblIstruzioni", QStringLiteral("Scarica la nuova versione dalla pagina del programma:")),
                    2, 0, 1, 2);
    m_lbURL = etichetta(this, "lbURL", QString::fromStdString(IndirizzoPaginaWeb()));
    m_lbURL->setCursor(Qt::PointingHandCursor);
    m_lbURL->setStyleSheet(QStringLiteral("color: blue; text-decoration: underline;"));
    m_lbURL->installEventFilter(this);
    grid->addWidget(m_lbURL, 3, 0, 1, 2);
    ApplyLanguage(*this, ui.languageFile());
}

void frmNewVersion::showEvent(QShowEvent* event) {
    m_lbRemoteVersion->setText(QString::fromStdString(remoteVersion));
    m_lbLocalVersion->setText(QString::fromStdString(localVersion));
    QDialog::showEvent(event);
}

bool frmNewVersion::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_lbURL && event->type() == QEvent::MouseButtonRelease) {
        lbURL_Click();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmNewVersion::lbURL_Click() {
    m_opener(m_lbURL->text().toStdString());
    close();
}

bool NewVersion(const Impostazioni& imp, const std::string& appDir, Ui& ui, QWidget* parent, Scaricatore download) {
    const std::string local = VersioneProgramma();
    // The check runs before the main window, with nobody to press a stop: a server that stalls
    // or trickles holds the start for a few seconds at most.
    LimitiDownload breve;
    breve.idleTimeoutMs = 5'000;
    breve.totalTimeoutMs = 10'000;
    const ControlloVersione c =
        ControllaVersione(imp, appDir, local, download ? download : ScaricatoreDiRete(breve));
    if (!c.scaricato) return false;
    if (c.esito == EsitoVersione::NonLeggibile) {
        ui.messageBox("Error 9 (Subscript out of range) in procedure NewVersion of Modulo corpo", "", BoxIcon::None);
        return false;
    }
    if (c.esito != EsitoVersione::NuovaVersione) return false;
    frmNewVersion f(ui, parent);
    f.localVersion = local;
    f.remoteVersion = c.remota;
    f.exec();
    return true;
}

} // namespace dv
