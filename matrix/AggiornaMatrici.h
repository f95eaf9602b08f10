// The matrices of the web server, fetched into the data folder.
#pragma once

#include "settings/Online.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace dv {

// The result of an update: the files installed and the names of the list that were skipped
// (not a plain file name, not ".DAT", or a failed download).
struct EsitoAggiornamentoMatrici {
    std::vector<std::string> installate;
    std::vector<std::string> saltate;
    bool interrotto = false; // stopped by the caller before the end of the list
};

// Told before each name of the list is handled (1-based, of the list's count); false stops the
// update there, the files installed so far staying in place.
using AvanzamentoMatrici = std::function<bool(size_t numero, size_t totale)>;

// Fetches "/public/10elotto/lista.asp" into the temporary folder as "10elottomatrici.txt"; each of
// its lines, upper-cased, names a matrix "NAME.DAT" on the server. A name that is not a plain file
// name is skipped without touching the disk; each other is downloaded into the temporary folder
// and moved to "matrici" as "NAME.mqvn" in place of any older file. A failed download skips that
// file. Nothing when the list could not be fetched. The list is handled up to MaxFileLista names,
// each file up to MaxByteFileLista bytes; names starting with "." or "-" are skipped. rapporto,
// when given, says what failed and why.
std::optional<EsitoAggiornamentoMatrici> AggiornaMatrici(const Impostazioni& imp, const std::string& appDir,
                                                         const Scaricatore& download,
                                                         const AvanzamentoMatrici& avanzamento = {},
                                                         RapportoDownload* rapporto = nullptr);

} // namespace dv
