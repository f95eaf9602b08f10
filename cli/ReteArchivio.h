// What the archive commands need from the machine: the desktop program's data folder and a
// downloader. The download is the desktop program's own DownloadFile, built here on Qt's Core
// and Network modules only (no windows), with a QCoreApplication made on first use.
#pragma once

#include "settings/Online.h"

#include <atomic>
#include <memory>
#include <string>

class QCoreApplication;

namespace dv::cli {

// The data folder the desktop program uses on this machine (the user's data folder and
// "Dorvanta").
std::string CartellaDatiProgramma();

// What downloads need while it lives: Qt's application object, which DownloadFile's event loop
// wants, made unless one exists; and Ctrl-C, which stops the download under way (the command then
// ends with the reason) instead of killing the program.
class SessioneRete {
public:
    SessioneRete();
    ~SessioneRete();
    SessioneRete(const SessioneRete&) = delete;
    SessioneRete& operator=(const SessioneRete&) = delete;

    // DownloadFile with no cached copy; on a failure the reason is written to stderr. Valid while
    // the session lives.
    Scaricatore scaricatore() const;

private:
    std::unique_ptr<QCoreApplication> m_app;
    std::shared_ptr<std::atomic<bool>> m_stop = std::make_shared<std::atomic<bool>>(false);
    void (*m_precedente)(int) = nullptr;
};

} // namespace dv::cli
