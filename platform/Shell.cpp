#include "platform/Shell.h"

#include "settings/Folders.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QUrl>

namespace dv {

std::string GetSpecialFolder(int number) {
    QString folder;
    if (number == CartellaDesktop) {
        folder = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    } else if (number == CartellaDatiComuni) {
#ifdef Q_OS_WIN
        // The second entry of the generic data locations is the machine-wide ProgramData.
        const QStringList all = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
        folder = all.size() > 1 ? all.at(1) : all.value(0);
#else
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#endif
    }
    return QDir::toNativeSeparators(folder).toStdString();
}

std::string AppDirPredefinito() {
    const std::string base = GetSpecialFolder(CartellaDatiComuni);
    if (base.empty()) return {};
    return QDir::toNativeSeparators(QDir(QString::fromStdString(base)).filePath(QStringLiteral("Dorvanta")))
        .toStdString();
}

std::string CartellaLingueSpedite() {
    const QDir exe(QCoreApplication::applicationDirPath());
    const QStringList candidates = {exe.filePath(QStringLiteral("languages")),
                                    exe.filePath(QStringLiteral("../languages")),
                                    exe.filePath(QStringLiteral("../share/dorvanta/languages"))};
    for (const QString& c : candidates)
        if (QFileInfo(c).isDir()) return QDir::toNativeSeparators(QDir::cleanPath(c)).toStdString();
    return {};
}

int CopiaLingueSpedite(const std::string& appDir) {
    const std::string shipped = CartellaLingueSpedite();
    return shipped.empty() ? 0 : CopiaLingueIniziali(shipped, appDir);
}

namespace {

QUrl urlDi(const std::string& pathOrUrl) {
    const QString s = QString::fromStdString(pathOrUrl);
    if (QFileInfo::exists(s)) return QUrl::fromLocalFile(QFileInfo(s).absoluteFilePath());
    return QUrl::fromUserInput(s);
}

} // namespace

bool OpenPath(const std::string& pathOrUrl) { return QDesktopServices::openUrl(urlDi(pathOrUrl)); }

bool OpenDocument(const std::string& pathOrUrl) { return QDesktopServices::openUrl(urlDi(pathOrUrl)); }

std::vector<std::string> ElencoStampanti() {
    std::vector<std::string> out;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) out.push_back(name.toStdString());
    return out;
}

} // namespace dv
