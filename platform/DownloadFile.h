// The program's one way onto the network: whole files fetched by GET.
#pragma once

#include <cstdint>
#include <string>

namespace dv {

struct LimitiDownload {
    // A body larger than this is refused.
    int64_t maxBytes = 64ll * 1024 * 1024;
    // The download is given up after this long without data.
    int idleTimeoutMs = 30'000;
    // Redirects followed, each within the same scheme.
    int maxRedirects = 5;
};

// Fetches url into the file at path and returns true only when the whole body is there. Never
// takes a cached copy (removeCache asks for that as well; every caller passes true). The body is
// written beside path and put in its place once complete, so a failed, refused or interrupted
// download leaves path as it was. Runs its own event loop until done, on the thread that calls it:
// the application's thread (with the window that asked for it disabled) or a QThread of the
// program, which is how windows keep working while files arrive. Shows nothing; on failure
// *error, when given, says why.
bool DownloadFile(const std::string& url, const std::string& path, bool removeCache,
                  const LimitiDownload& limiti = {}, std::string* error = nullptr);

} // namespace dv

#include "settings/Online.h"

namespace dv {

// DownloadFile as the downloader of the operations on the web server, with no cached copy.
inline Scaricatore ScaricatoreDiRete() {
    return [](const std::string& url, const std::string& path) { return DownloadFile(url, path, true); };
}

} // namespace dv
