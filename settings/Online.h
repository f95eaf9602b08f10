// What the program does with its web server, written against a downloader so that it runs the
// same with the network, with a test server, or with a fake.
#pragma once

#include "settings/Impostazioni.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dv {

// Fetches url into the file at path; true only when the whole body is there.
using Scaricatore = std::function<bool(const std::string& url, const std::string& path)>;

// A name from a server's list may become a file name only when it is a plain name of letters,
// digits, "_", "-" and "." and holds no "..".
bool NomeFileSicuro(std::string_view name);

// The lines of a list file, blanks and line ends trimmed, empty lines left out.
std::vector<std::string> RigheListaServer(const std::string& path);

// The language update: fetches the list of language files, then each ".txt" file it names whose
// name is safe, and puts it in appDir as ".lng" in place of any older one. Returns the names of
// the files installed, or nothing when the list could not be fetched.
std::optional<std::vector<std::string>> AggiornaLingue(const Impostazioni& imp, const std::string& appDir,
                                                       const Scaricatore& download);

// The translators' credits, their lines joined by CR LF; nothing when they could not be fetched.
std::optional<std::string> CreditiLingue(const Impostazioni& imp, const std::string& appDir,
                                         const Scaricatore& download);

// The outcome of comparing the program's version with the server's.
enum class EsitoVersione {
    Aggiornato,    // equal, or the program's is above the server's
    NuovaVersione, // the server has a higher version
    NonLeggibile,  // the server's version has fewer parts than the program's
};
// Compares part by part as numbers, from the first, stopping at the first difference; a part
// counts as its leading digits (0 for none). Only as many parts as local has are compared.
EsitoVersione ConfrontaVersioni(std::string_view local, std::string_view remote);

// The result of the start's version check.
struct ControlloVersione {
    bool scaricato = false; // the server answered
    EsitoVersione esito = EsitoVersione::Aggiornato;
    std::string remota; // the server's version line
};
// Fetches the server's version into "dorvanqvnver.txt" in the temporary folder and compares it with
// local. The file is deleted unless a new version is found.
ControlloVersione ControllaVersione(const Impostazioni& imp, const std::string& appDir, const std::string& local,
                                    const Scaricatore& download);

} // namespace dv
