#include "cli/ReteArchivio.h"

#include "platform/DownloadFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <csignal>

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

// The stop of the session alive; the handler only sets it, so it is safe at any moment.
std::atomic<std::atomic<bool>*> g_stopRete{nullptr};
extern "C" void InterrompiDownload(int) {
    if (std::atomic<bool>* stop = g_stopRete.load()) stop->store(true);
}
} // namespace

SessioneRete::SessioneRete() {
    if (!QCoreApplication::instance()) m_app = std::make_unique<QCoreApplication>(g_argc, g_argv);
    g_stopRete.store(m_stop.get());
    m_precedente = std::signal(SIGINT, InterrompiDownload);
}

SessioneRete::~SessioneRete() {
    std::signal(SIGINT, m_precedente == SIG_ERR ? SIG_DFL : m_precedente);
    g_stopRete.store(nullptr);
}

Scaricatore SessioneRete::scaricatore() const {
    // A failure is told once, by the operation's own message with its reason.
    return Scaricatore([](const std::string& url, const std::string& path, const OpzioniDownload& opzioni) {
               return ScaricaFile(url, path, true, {}, opzioni);
           })
        .conStop(m_stop);
}

} // namespace dv::cli
