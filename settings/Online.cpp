#include "settings/Online.h"

#include "settings/Folders.h"
#include "settings/FileTesto.h"

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

std::optional<std::vector<std::string>> AggiornaLingue(const Impostazioni& imp, const std::string& appDir,
                                                       const Scaricatore& download) {
    const std::string temp = GetTempFolder(appDir);
    const std::string lista = temp + "10elottolingue.txt";
    if (!download(ServerUrl(imp, std::string(CartellaLingue) + "lista.txt"), lista)) return std::nullopt;
    std::vector<std::string> installed;
    for (const std::string& line : RigheListaServer(lista)) {
        if (!NomeFileSicuro(line) || line.size() <= 4 || line.substr(line.size() - 4) != ".txt") continue;
        const std::string scaricato = temp + line;
        if (!download(ServerUrl(imp, std::string(CartellaLingue) + line), scaricato)) continue;
        const std::string target = (fs::path(appDir) / (line.substr(0, line.size() - 4) + ".lng")).string();
        std::error_code ec;
        fs::remove(target, ec);
        fs::rename(scaricato, target, ec);
        if (ec) {
            rimuovi(scaricato);
            continue;
        }
        installed.push_back(target);
    }
    return installed;
}

std::optional<std::string> CreditiLingue(const Impostazioni& imp, const std::string& appDir,
                                         const Scaricatore& download) {
    const std::string path = GetTempFolder(appDir) + "thankstolingue.txt";
    if (!download(ServerUrl(imp, std::string(CartellaLingue) + "thankstolingue.txt"), path)) return std::nullopt;
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
    if (!download(ServerUrl(imp, "/public/10elotto/ver.asp"), path)) return out;
    out.scaricato = true;
    const std::vector<std::string> lines = RigheListaServer(path);
    out.remota = lines.empty() ? std::string() : lines.front();
    out.esito = ConfrontaVersioni(local, out.remota);
    if (out.esito != EsitoVersione::NuovaVersione) rimuovi(path);
    return out;
}

} // namespace dv
