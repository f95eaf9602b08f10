// The program's one way onto the network: whole files fetched by GET.
#pragma once

#include "settings/Online.h"

#include <cstdint>
#include <string>

namespace dv {

struct LimitiDownload {
    // A body larger than this is refused.
    int64_t maxBytes = 64ll * 1024 * 1024;
    // The download is given up after this long without data.
    int idleTimeoutMs = 30'000;
    // ... and after this long in all, so that a server trickling a byte now and then cannot keep
    // it alive.
    int totalTimeoutMs = 300'000;
    // Redirects followed, each within the same scheme.
    int maxRedirects = 5;
};

// Fetches url into the file at path; ok() only when the whole body is there. Never takes a cached
// copy (removeCache asks for that as well; every caller passes true). The body is written to a
// file of a unique name beside path and put in its place once complete, so a failed, refused,
// stopped or interrupted download leaves path as it was and nothing beside it. Runs its own event
// loop until done, on the thread that calls it: the application's thread (with the window that
// asked for it disabled) or a QThread of the program, which is how windows keep working while
// files arrive. opzioni may lower the cap and carry a stop flag, looked at every 50 ms. Shows
// nothing: the result says what went wrong.
EsitoDownload ScaricaFile(const std::string& url, const std::string& path, bool removeCache,
                          const LimitiDownload& limiti = {}, const OpzioniDownload& opzioni = {});

// The same, true on success; on failure *error, when given, says why in English.
bool DownloadFile(const std::string& url, const std::string& path, bool removeCache,
                  const LimitiDownload& limiti = {}, std::string* error = nullptr);

// DownloadFile as the downloader of the operations on the web server, with no cached copy. Tests
// give shorter limits.
Scaricatore ScaricatoreDiRete(const LimitiDownload& limiti = {});

} // namespace dv
