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
    return [](const std::string& url, const std::string& path, const OpzioniDownload& opzioni) {
        const EsitoDownload esito = ScaricaFile(url, path, true, {}, opzioni);
        if (!esito.ok()) std::fprintf(stderr, "%s: %s\n", url.c_str(), MessaggioDownload(esito).c_str());
        return esito;
    };
}

} // namespace dv::cli
