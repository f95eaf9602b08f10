#include "archive/Aggiornamento.h"

#include "core/Corpo.h"
#include "core/Helpers.h"
#include "core/Ui.h"

#include <ctime>
#include <filesystem>

namespace dv {

namespace {

void Rimuovi(const std::string& path) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
}

// Converts source into target; on failure shows why, in one box with the error icon.
EsitoAggiornamento Converti(const std::string& source, const std::string& target, Ui& ui) {
    const EsitoConversione esito = ConvertArchivioTmpToDat(source, target);
    if (esito.completata()) return EsitoAggiornamento::Aggiornato;
    ui.messageBox(MessaggioConversione(esito, source, ui), "", BoxIcon::Critical);
    return EsitoAggiornamento::ConversioneFallita;
}

// Download into PathArchivioDownload, then conversion into target. The download file is deleted
// after a conversion that completed and left behind otherwise, for a look at what came.
EsitoAggiornamento ScaricaEConverti(const std::string& url, const std::string& target, const Corpo& c, Ui& ui,
                                    const ServerArchivi& server) {
    if (!ScaricaArchivio(url, c, ui, server)) return EsitoAggiornamento::DownloadFallito;
    const EsitoAggiornamento esito = Converti(c.PathArchivioDownload, target, ui);
    if (esito == EsitoAggiornamento::Aggiornato) Rimuovi(c.PathArchivioDownload);
    return esito;
}

} // namespace

double DataOdierna() {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    // Days from 1 March of year 0 of the civil calendar, then moved to 30 December 1899.
    const int y = local.tm_year + 1900 - (local.tm_mon < 2 ? 1 : 0);
    const int m = local.tm_mon + 1;
    const long era = (y >= 0 ? y : y - 399) / 400;
    const long yoe = y - era * 400;
    const long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + local.tm_mday - 1;
    const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    const long giorni1970 = era * 146097 + doe - 719468;
    return static_cast<double>(giorni1970 + 25569);
}

bool ScaricaArchivio(const std::string& url, const Corpo& c, Ui& ui, const ServerArchivi& server) {
    const EsitoDownload esito = server.download ? server.download.scarica(url, c.PathArchivioDownload)
                                                : EsitoDownload{ErroreDownload::Rete, 0, {}};
    if (esito.ok()) return true;
    // "0049" first, as always, then what went wrong.
    ui.messageBox(ui.Lang("0049") + "\n" + MessaggioDownload(esito, ui), "", BoxIcon::Critical);
    return false;
}

std::string UrlArchivio5Minuti(const std::string& indirizzo, int16_t giorni, double oggi) {
    return indirizzo + PercorsoArchivio5Minuti + "?dal=" + DataToYYYYMMDD(oggi + giorni);
}

EsitoAggiornamento AggiornaArchivioSerale(const Corpo& c, Ui& ui, const ServerArchivi& server) {
    return ScaricaEConverti(server.indirizzo + PercorsoArchivioSerale, c.PathArchivioSerale, c, ui, server);
}

EsitoAggiornamento AggiornaArchivio5Minuti(int16_t giorni, const Corpo& c, Ui& ui,
                                           const ServerArchivi& server, double oggi) {
    return ScaricaEConverti(UrlArchivio5Minuti(server.indirizzo, giorni, oggi), c.PathArchivio5Min, c, ui,
                            server);
}

EsitoAggiornamento ImportaArchivioManuale(const Corpo& c, Ui& ui, const std::string& cartellaIniziale) {
    const std::string file = ui.chooseOpenFile(cartellaIniziale, "Archive(*.txt,*.dat)|*.txt;*.dat");
    if (file.empty()) return EsitoAggiornamento::Annullato;
    return ImportaArchivioManualeDa(c, ui, file);
}

EsitoAggiornamento ImportaArchivioManualeDa(const Corpo& c, Ui& ui, const std::string& file) {
    return Converti(file, c.PathArchivioManuale, ui);
}

} // namespace dv
