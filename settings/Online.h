// What the program does with its web server, written against a downloader so that it runs the
// same with the network, with a test server, or with a fake.
#pragma once

#include "settings/Impostazioni.h"

#include <atomic>
#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace dv {

class Ui;

// Why a download failed; Nessuno when the whole body is at the path.
enum class ErroreDownload {
    Nessuno,
    IndirizzoNonValido,          // not an http or https address
    ServerNonTrovato,            // the host name does not resolve
    ConnessioneRifiutata,        // nothing listens at the address
    TempoScaduto,                // no data for the idle time
    DurataEccessiva,             // the overall deadline passed, however steadily data came
    Troncato,                    // the connection ended before the whole body
    TroppoGrande,                // the body is above the cap
    ReindirizzamentoAltroSchema, // a redirect to another scheme (https, ftp, file ...)
    TroppiReindirizzamenti,      // a redirect loop, or a chain longer than allowed
    StatoHttp,                   // an answer other than 2xx
    Scrittura,                   // the file could not be written
    Interrotto,                  // stopped by the user
    Rete,                        // any other network failure
};

struct EsitoDownload {
    ErroreDownload errore = ErroreDownload::Nessuno;
    int64_t valore = 0;    // the HTTP status, the cap in bytes or the deadline in seconds
    std::string dettaglio; // the platform's words, the redirect target or the path not written
    bool ok() const { return errore == ErroreDownload::Nessuno; }
};

// What a single download is held to, besides the downloader's own limits.
struct OpzioniDownload {
    int64_t maxBytes = 0; // a lower cap than the downloader's own; 0 for none
    std::shared_ptr<const std::atomic<bool>> stop; // a download in progress ends when it turns true
};

// Fetches one URL into one file. Made from the network's downloader or from a test's function,
// either one that reports an EsitoDownload or a plain one that says only true or false.
class Scaricatore {
public:
    using Funzione =
        std::function<EsitoDownload(const std::string& url, const std::string& path, const OpzioniDownload&)>;

    Scaricatore() = default;
    template <class F>
        requires std::is_invocable_r_v<EsitoDownload, F, const std::string&, const std::string&,
                                       const OpzioniDownload&>
    Scaricatore(F f) : m_f(std::move(f)) {}
    template <class F>
        requires(!std::same_as<std::remove_cvref_t<F>, Scaricatore> &&
                 std::is_invocable_r_v<bool, F, const std::string&, const std::string&>)
    Scaricatore(F f)
        : m_f([f = std::move(f)](const std::string& url, const std::string& path, const OpzioniDownload&) {
              return f(url, path) ? EsitoDownload{} : EsitoDownload{ErroreDownload::Rete, 0, {}};
          }) {}

    explicit operator bool() const { return static_cast<bool>(m_f); }
    // True only when the whole body is at path.
    bool operator()(const std::string& url, const std::string& path) const { return scarica(url, path).ok(); }
    // Fetches url into path, refusing a body above maxBytes (0: the downloader's own cap). A file
    // above the cap that a plain function wrote is removed. Once the stop is set, nothing is fetched.
    EsitoDownload scarica(const std::string& url, const std::string& path, int64_t maxBytes = 0) const;
    // The same downloader, whose downloads end as soon as *stop turns true.
    Scaricatore conStop(std::shared_ptr<const std::atomic<bool>> stop) const;

private:
    Funzione m_f;
    std::shared_ptr<const std::atomic<bool>> m_stop;
};

// What went wrong, in the words of the language in use (English where it has none).
std::string MessaggioDownload(const EsitoDownload& esito, Ui& ui);
// The same in English, for the command line's messages and logs.
std::string MessaggioDownload(const EsitoDownload& esito);

// A server list names at most this many files, of at most this many bytes each; the list itself
// is refused above MaxByteLista.
inline constexpr size_t MaxFileLista = 100;
inline constexpr int64_t MaxByteFileLista = 4 * 1024 * 1024;
inline constexpr int64_t MaxByteLista = 64 * 1024;

// What an update driven by a server list met besides the files it installed.
struct RapportoDownload {
    std::optional<EsitoDownload> lista;                         // the list's failure
    bool tagliata = false;                                      // the list named more than MaxFileLista
    std::vector<std::pair<std::string, EsitoDownload>> falliti; // files whose download failed
    bool interrotto = false;                                    // stopped by the user
};

// One message for all of it, empty when nothing went wrong.
std::string MessaggioRapporto(const RapportoDownload& rapporto, Ui& ui);

// A name from a server's list may become a file name only when it is a plain name of letters,
// digits, "_", "-" and "." and holds no "..".
bool NomeFileSicuro(std::string_view name);

// A name of a server's list that may be fetched: a safe file name that starts with neither "."
// nor "-", so that it can be neither a hidden file nor taken for an option.
bool NomeDaLista(std::string_view name);

// The lines of a list file, blanks and line ends trimmed, empty lines left out.
std::vector<std::string> RigheListaServer(const std::string& path);

// The entries of a list file that an update handles: the first MaxFileLista lines (tagliata tells
// whether there were more).
std::vector<std::string> VociListaServer(const std::string& path, bool& tagliata);

// The language update: fetches the list of language files, then each ".txt" file it names whose
// name is safe, and puts it in appDir as ".lng" in place of any older one. Returns the names of
// the files installed, or nothing when the list could not be fetched; rapporto, when given, says
// what failed.
std::optional<std::vector<std::string>> AggiornaLingue(const Impostazioni& imp, const std::string& appDir,
                                                       const Scaricatore& download,
                                                       RapportoDownload* rapporto = nullptr);

// The translators' credits, their lines joined by CR LF; nothing when they could not be fetched.
std::optional<std::string> CreditiLingue(const Impostazioni& imp, const std::string& appDir,
                                         const Scaricatore& download, EsitoDownload* esito = nullptr);

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
