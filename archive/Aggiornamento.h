// The three updates of the draw archives. Each rebuilds one archive file as a whole: the evening
// and the five-minute archive from the program's web server, the manual archive from a text file
// the user picks. None of them touches mArrEstrazioni: the caller loads the file again afterwards
// (LoadArchivioDAT), whatever the outcome, since a failed update leaves the old file as it was.
//
// No Qt here: the download goes through the function the caller gives. The desktop program passes
// ScaricatoreDiRete() (platform/DownloadFile.h); the command line passes its own. Any thread may
// run an update, as long as the Ui and the downloader it is given may be used from that thread
// (QtUi may; DownloadFile runs its own event loop on the calling thread).
//
// From a window, e.g. the five-minute update for the last 30 days:
//     ServerArchivi server{IndirizzoServer(main.impostazioni()), ScaricatoreDiRete()};
//     AggiornaArchivio5Minuti(-30, main.corpo(), main.ui(), server);
//     ArrayEstrazioni a = LoadArchivioDAT(main.corpo().PathArchivio5Min, ...);
#pragma once

#include "archive/Conversione.h"
#include "settings/Online.h"

#include <cstdint>
#include <string>

namespace dv {

struct Corpo;
class Ui;

// Where the archives come from: the server's base address, with no closing "/" (as
// IndirizzoServer gives it), and the function that fetches one URL into one file.
struct ServerArchivi {
    std::string indirizzo;
    Scaricatore download;
};

enum class EsitoAggiornamento {
    Aggiornato,         // the archive file was rebuilt
    DownloadFallito,    // "0049" was shown; the archive file is unchanged
    ConversioneFallita, // the reason was shown; the archive file is unchanged
    Annullato,          // the user picked no file; nothing changed
};

// The paths of the two endpoints on the server.
inline constexpr const char* PercorsoArchivioSerale = "/public/10elotto/archivioro2.asp";
inline constexpr const char* PercorsoArchivio5Minuti = "/public/10elotto5min/archivioro2.asp";

// Today, local time, as days since 30 December 1899 (whole days).
double DataOdierna();

// The evening update: the whole archive fetched into PathArchivioDownload, converted into
// PathArchivioSerale, the download deleted. A failed download shows "0049" with the error icon.
EsitoAggiornamento AggiornaArchivioSerale(const Corpo& c, Ui& ui, const ServerArchivi& server);

// The five-minute update: the draws from today plus giorni (a negative number of days) on,
// asked with "?dal=YYYYMMDD", rebuilt into PathArchivio5Min. The archive window asks for -120,
// the Ultimate window for -30. oggi is today as DataOdierna gives it (a test fixes it).
EsitoAggiornamento AggiornaArchivio5Minuti(int16_t giorni, const Corpo& c, Ui& ui,
                                           const ServerArchivi& server, double oggi = DataOdierna());

// The manual import: the user picks a file (starting in cartellaIniziale, the desktop), which is
// read as the text format whatever its extension and converted into PathArchivioManuale; the
// source stays where it is. Cancelling changes nothing.
EsitoAggiornamento ImportaArchivioManuale(const Corpo& c, Ui& ui, const std::string& cartellaIniziale);
// The same with the file already chosen.
EsitoAggiornamento ImportaArchivioManualeDa(const Corpo& c, Ui& ui, const std::string& file);

// Fetches url into PathArchivioDownload; on failure shows "0049" and the reason with the error icon.
bool ScaricaArchivio(const std::string& url, const Corpo& c, Ui& ui, const ServerArchivi& server);

// The URL of the five-minute update for that day offset.
std::string UrlArchivio5Minuti(const std::string& indirizzo, int16_t giorni, double oggi);

} // namespace dv
