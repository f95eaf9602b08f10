#include "archive/UltimateAggiorna.h"

#include "core/Corpo.h"
#include "core/Ui.h"

#include <filesystem>

namespace dv {

EsitoAggiornamento AggiornaArchivioUltimate(const Corpo& c, Ui& ui, const ServerArchivi& server,
                                            double oggi) {
    const std::string url = UrlArchivio5Minuti(server.indirizzo, GiorniUltimate, oggi);
    if (!ScaricaArchivio(url, c, ui, server)) return EsitoAggiornamento::DownloadFallito;
    const EsitoConversione esito = ConvertArchivioTmpToDat(c.PathArchivioDownload, c.PathArchivio5Min);
    if (!esito.completata()) {
        // The download stays behind for a look at what came.
        ui.messageBox("Error " + std::to_string(esito.numeroErrore) + " (" + esito.descrizione + ") \n" +
                          "last DLL ( 0 ) source ( ConvertArchivioTmpToDat ) \n" +
                          "in procedure cmdUpdate_Click of Form frmUltimate\n\n" +
                          MessaggioConversione(esito, c.PathArchivioDownload, ui),
                      "", BoxIcon::None);
        return EsitoAggiornamento::ConversioneFallita;
    }
    std::error_code ec;
    std::filesystem::remove(c.PathArchivioDownload, ec);
    return EsitoAggiornamento::Aggiornato;
}

} // namespace dv
