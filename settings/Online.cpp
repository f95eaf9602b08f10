#include "settings/Online.h"

#include "settings/Folders.h"
#include "settings/FileTesto.h"
#include "settings/ScritturaSicura.h"

#include "core/Helpers.h"
#include "core/Ui.h"

#include <filesystem>
#include <system_error>

namespace dv {

namespace fs = std::filesystem;

namespace {

constexpr const char* CartellaLingue = "/public/10elotto/lingue/";

std::vector<std::string_view> parti(std::string_view v) {
    std::vector<std::string_view> out;
    size_t start = 0;
    while (true) {
        const size_t dot = v.find('.', start);
        out.push_back(v.substr(start, dot == std::string_view::npos ? std::string_view::npos : dot - start));
        if (dot == std::string_view::npos) break;
        start = dot + 1;
    }
    return out;
}

unsigned long long numeroIniziale(std::string_view s) {
    size_t i = s.find_first_not_of(" \t");
    unsigned long long n = 0;
    for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i)
        if (n < 1'000'000'000'000'000ULL) n = n * 10 + static_cast<unsigned>(s[i] - '0');
    return n;
}

void rimuovi(const std::string& path) {
    std::error_code ec;
    fs::remove(path, ec);
}

} // namespace

EsitoDownload Scaricatore::scarica(const std::string& url, const std::string& path, int64_t maxBytes) const {
    if (m_stop && m_stop->load()) return {ErroreDownload::Interrotto, 0, {}};
    if (!m_f) return {ErroreDownload::Rete, 0, {}};
    EsitoDownload esito = m_f(url, path, OpzioniDownload{maxBytes, m_stop});
    if (esito.ok() && maxBytes > 0) {
        std::error_code ec;
        const auto size = fs::file_size(path, ec);
        if (!ec && size > static_cast<uintmax_t>(maxBytes)) {
            rimuovi(path);
            return {ErroreDownload::TroppoGrande, maxBytes, {}};
        }
    }
    return esito;
}

Scaricatore Scaricatore::conStop(std::shared_ptr<const std::atomic<bool>> stop) const {
    Scaricatore s = *this;
    s.m_stop = std::move(stop);
    return s;
}

namespace {

// The language's text for key, or the English one where there is no language or it has none.
std::string Testo(Ui* ui, const char* key, const char* english, const std::string& a1 = {},
                  const std::string& a2 = {}) {
    const std::string t = ui ? ui->Lang(key) : std::string();
    return TestoCon(t.empty() ? std::string(english) : t, a1, a2);
}

std::string Messaggio(const EsitoDownload& e, Ui* ui) {
    auto testo = [ui](const char* key, const char* english, const std::string& a1 = {}) {
        return Testo(ui, key, english, a1);
    };
    const std::string v = std::to_string(e.valore);
    switch (e.errore) {
    case ErroreDownload::Nessuno: return {};
    case ErroreDownload::IndirizzoNonValido:
        return testo("0241", "Not a web address that can be downloaded: %1", e.dettaglio);
    case ErroreDownload::ServerNonTrovato: return testo("0242", "Server not found: %1", e.dettaglio);
    case ErroreDownload::ConnessioneRifiutata: return testo("0243", "The server refused the connection.");
    case ErroreDownload::TempoScaduto: return testo("0244", "The server sent no data for %1 seconds.", v);
    case ErroreDownload::DurataEccessiva:
        return testo("0245", "The download was given up after %1 seconds: the server sends too slowly.", v);
    case ErroreDownload::Troncato:
        return testo("0246", "The server closed the connection before the end of the file.");
    case ErroreDownload::TroppoGrande: return testo("0247", "The file is larger than the %1 bytes allowed.", v);
    case ErroreDownload::ReindirizzamentoAltroSchema:
        return testo("0248", "The server redirected to another kind of address, which is refused: %1",
                     e.dettaglio);
    case ErroreDownload::TroppiReindirizzamenti:
        return testo("0249", "The server redirects in a loop (more than %1 redirects).", v);
    case ErroreDownload::StatoHttp: return testo("0250", "The server answered with HTTP status %1.", v);
    case ErroreDownload::Scrittura: return testo("0251", "The file could not be written: %1", e.dettaglio);
    case ErroreDownload::Interrotto: return testo("0252", "Download stopped.");
    case ErroreDownload::Rete: break;
    }
    return testo("0253", "Network error: %1", e.dettaglio.empty() ? std::string("?") : e.dettaglio);
}

} // namespace

std::string MessaggioDownload(const EsitoDownload& esito, Ui& ui) { return Messaggio(esito, &ui); }
std::string MessaggioDownload(const EsitoDownload& esito) { return Messaggio(esito, nullptr); }

std::string MessaggioRapporto(const RapportoDownload& r, Ui& ui) {
    auto testo = [&ui](const char* key, const char* english, const std::string& a1 = {}) {
        return Testo(&ui, key, english, a1);
    };
    std::string out;
    auto riga = [&out](const std::string& s) { out += (out.empty() ? "" : "\n") + s; };
    if (r.lista) riga(testo("0254", "The server's list could not be downloaded:") + " " + MessaggioDownload(*r.lista, ui));
    if (r.tagliata)
        riga(testo("0255", "The server's list names more than %1 files: only the first %1 were handled.",
                   std::to_string(MaxFileLista)));
    if (!r.falliti.empty()) {
        riga(testo("0256", "%1 files were not downloaded:", std::to_string(r.falliti.size())));
        // The first few, each with its reason: a list of a hundred failures says no more than that.
        for (size_t i = 0; i < r.falliti.size() && i < 5; ++i)
            riga(r.falliti[i].first + ": " + MessaggioDownload(r.falliti[i].second, ui));
        if (r.falliti.size() > 5) riga("...");
    }
    if (r.interrotto) riga(testo("0252", "Download stopped."));
    return out;
}

bool NomeDaLista(std::string_view name) {
    return NomeFileSicuro(name) && name.front() != '.' && name.front() != '-';
}

bool NomeFileSicuro(std::string_view name) {
    if (name.empty() || name == "." || name.find("..") != std::string_view::npos) return false;
    for (char c : name) {
        const bool ok = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
                        c == '-' || c == '.';
        if (!ok) return false;
    }
    return true;
}

std::vector<std::string> RigheListaServer(const std::string& path) {
    std::vector<std::string> out;
    const std::optional<std::string> content = LeggiFileTesto(path);
    if (!content) return out;
    size_t pos = 0;
    while (pos <= content->size()) {
        size_t nl = content->find('\n', pos);
        if (nl == std::string::npos) nl = content->size();
        std::string_view line = std::string_view(*content).substr(pos, nl - pos);
        const size_t a = line.find_first_not_of(" \t\r");
        if (a != std::string_view::npos) {
            line = line.substr(a, line.find_last_not_of(" \t\r") - a + 1);
            out.emplace_back(line);
        }
        pos = nl + 1;
    }
    return out;
}

std::vector<std::string> VociListaServer(const std::string& path, bool& tagliata) {
    std::vector<std::string> righe = RigheListaServer(path);
    tagliata = righe.size() > MaxFileLista;
    if (tagliata) righe.resize(MaxFileLista);
    return righe;
}

std::optional<std::vector<std::string>> AggiornaLingue(const Impostazioni& imp, const std::string& appDir,
                                                       const Scaricatore& download, RapportoDownload* rapporto) {
    RapportoDownload locale;
    RapportoDownload& r = rapporto ? *rapporto : locale;
    const std::string temp = GetTempFolder(appDir);
    const std::string lista = temp + "10elottolingue.txt";
    const EsitoDownload esitoLista =
        download.scarica(ServerUrl(imp, std::string(CartellaLingue) + "lista.txt"), lista, MaxByteLista);
    if (!esitoLista.ok()) {
        // A stop asked for by the user is no failure of the server.
        if (esitoLista.errore == ErroreDownload::Interrotto) r.interrotto = true;
        else r.lista = esitoLista;
        return std::nullopt;
    }
    std::vector<std::string> installed;
    for (const std::string& line : VociListaServer(lista, r.tagliata)) {
        if (!NomeDaLista(line) || line.size() <= 4 || line.substr(line.size() - 4) != ".txt") continue;
        const std::string scaricato = temp + line;
        const EsitoDownload esito =
            download.scarica(ServerUrl(imp, std::string(CartellaLingue) + line), scaricato, MaxByteFileLista);
        if (esito.errore == ErroreDownload::Interrotto) {
            r.interrotto = true;
            break;
        }
        if (!esito.ok()) {
            r.falliti.emplace_back(line, esito);
            continue;
        }
        const std::string target = (fs::path(appDir) / (line.substr(0, line.size() - 4) + ".lng")).string();
        if (SostituisciFile(scaricato, target) != 0) continue;
        installed.push_back(target);
    }
    return installed;
}

std::optional<std::string> CreditiLingue(const Impostazioni& imp, const std::string& appDir,
                                         const Scaricatore& download, EsitoDownload* esito) {
    const std::string path = GetTempFolder(appDir) + "thankstolingue.txt";
    const EsitoDownload e =
        download.scarica(ServerUrl(imp, std::string(CartellaLingue) + "thankstolingue.txt"), path, MaxByteLista);
    if (esito) *esito = e;
    if (!e.ok()) return std::nullopt;
    const std::optional<std::string> content = LeggiFileTesto(path);
    if (!content) return std::nullopt;
    std::string text;
    size_t pos = 0;
    bool first = true;
    while (pos < content->size()) {
        size_t nl = content->find('\n', pos);
        if (nl == std::string::npos) nl = content->size();
        std::string line = content->substr(pos, nl - pos);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!first) text += "\r\n";
        text += line;
        first = false;
        pos = nl + 1;
    }
    return text;
}

EsitoVersione ConfrontaVersioni(std::string_view local, std::string_view remote) {
    const auto l = parti(local);
    const auto r = parti(remote);
    if (r.size() < l.size()) return EsitoVersione::NonLeggibile;
    for (size_t i = 0; i < l.size(); ++i) {
        const auto a = numeroIniziale(l[i]);
        const auto b = numeroIniziale(r[i]);
        if (a < b) return EsitoVersione::NuovaVersione;
        if (a > b) return EsitoVersione::Aggiornato;
    }
    return EsitoVersione::Aggiornato;
}

ControlloVersione ControllaVersione(const Impostazioni& imp, const std::string& appDir, const std::string& local,
                                    const Scaricatore& download) {
    ControlloVersione out;
    const std::string path = GetTempFolder(appDir) + "dorvanqvnver.txt";
    if (!download.scarica(ServerUrl(imp, "/public/10elotto/ver.asp"), path, MaxByteLista).ok()) return out;
    out.scaricato = true;
    const std::vector<std::string> lines = RigheListaServer(path);
    out.remota = lines.empty() ? std::string() : lines.front();
    out.esito = ConfrontaVersioni(local, out.remota);
    if (out.esito != EsitoVersione::NuovaVersione) rimuovi(path);
    return out;
}

} // namespace dv
