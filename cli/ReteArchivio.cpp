#include "cli/ReteArchivio.h"

#include "platform/DownloadFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <cstdio>

namespace dv::cli {

std::string CartellaDatiProgramma() {
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (base.isEmpty()) return {};
    return QDir::toNativeSeparators(QDir(base).filePath(QStringLiteral("Dorvanta"))).toStdString();
}

namespace {
int g_argc = 1;
char g_nome[] = "dorvanta-cli";
char* g_argv[] = {g_nome, nullptr};
} // namespace

SessioneRete::SessioneRete() {
    if (!QCoreApplication::instance()) m_app = std::make_unique<QCoreApplication>(g_argc, g_argv);
}

SessioneRete::~SessioneRete() = default;

Scaricatore SessioneRete::scaricatore() const {
    return [](const std::string& url, const std::string& path) {
        std::string why;
        const bool ok = DownloadFile(url, path, true, {}, &why);
        if (!ok) std::fprintf(stderr, "%s: %s\n", url.c_str(), why.c_str());
        return ok;
    };
}

} // namespace dv::cli
