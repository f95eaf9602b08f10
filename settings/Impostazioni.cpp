#include "settings/Impostazioni.h"

#include "core/Corpo.h"
#include "settings/Ansi.h"
#include "settings/classINI.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#ifndef DV_SERVER_DEFAULT
#define DV_SERVER_DEFAULT "http://127.0.0.1:8090"
#endif
#ifndef DV_WEB_PAGE
#define DV_WEB_PAGE "http://127.0.0.1:8090/public/10elotto/download.html"
#endif
#ifndef DV_VERSION
#define DV_VERSION "0.0.0"
#endif

namespace dv {

namespace {

std::string trimSpaces(std::string s) {
    const size_t a = s.find_first_not_of(' ');
    if (a == std::string::npos) return {};
    return s.substr(a, s.find_last_not_of(' ') - a + 1);
}

// The first n characters of a UTF-8 text, counted as characters, not bytes.
std::string primiCaratteri(const std::string& s, size_t n) {
    size_t count = 0;
    for (size_t i = 0; i < s.size(); ++i) {
        if ((static_cast<unsigned char>(s[i]) & 0xC0) == 0x80) continue;
        if (count == n) return s.substr(0, i);
        ++count;
    }
    return s;
}


} // namespace

void ReadConfiguration(const std::string& appDir, Impostazioni& imp, Lingua& lingua) {
    const classINI ini(FileImpostazioni(appDir));
    imp.Intestazione = trimSpaces(
        primiCaratteri(ini.getProperty(SezioneImpostazioni, "INTESTAZIONE", IntestazioneDefault), LunghezzaIntestazione));
    imp.StampanteTabulato = ini.getProperty(SezioneImpostazioni, "STAMPANTE TABULATO", "NESSUNA");
    imp.SorgenteRicalcolo = ValoreIniziale(ini.getProperty(SezioneImpostazioni, "SORGENTE RICALCOLO", "1")) == 1 ? 1 : 0;
    imp.ModalitaRicalcolo = ini.getProperty(SezioneImpostazioni, "MODALITA' RICALCOLO", "FALSE") == "TRUE";
    imp.Lingua = ini.getProperty(SezioneImpostazioni, "LINGUA", "");
    imp.Server = ini.getProperty(SezioneImpostazioni, "SERVER", "");
    lingua.AppDir = appDir;
    if (EsisteLingua(appDir, imp.Lingua)) lingua.CurrentLanguage = imp.Lingua;
}

void ReadConfiguration(Corpo& corpo, Impostazioni& imp, Lingua& lingua) {
    ReadConfiguration(corpo.AppDir, imp, lingua);
    corpo.ModalitaRicalcolo = imp.ModalitaRicalcolo ? Vero : Falso;
}

bool ScriviImpostazioni(const std::string& appDir, const ImpostazioniDaSalvare& s) {
    const classINI ini(FileImpostazioni(appDir));
    bool ok = ini.setProperty(SezioneImpostazioni, "INTESTAZIONE", s.Intestazione);
    ok = ini.setProperty(SezioneImpostazioni, "STAMPANTE TABULATO", s.StampanteTabulato) && ok;
    ok = ini.setProperty(SezioneImpostazioni, "MODALITA' RICALCOLO", s.ModalitaRicalcolo ? "TRUE" : "FALSE") && ok;
    ok = ini.setInt(SezioneImpostazioni, "SORGENTE RICALCOLO", s.IndiceSorgente == 0 ? 2 : 1) && ok;
    ok = ini.setProperty(SezioneImpostazioni, "LINGUA", s.Lingua) && ok;
    return ok;
}

std::vector<std::string> ElencoLingue(const std::string& appDir) {
    std::vector<std::string> names;
    std::error_code ec;
    for (std::filesystem::directory_iterator it(appDir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string file = it->path().filename().string();
        if (file.size() <= 4 || !UgualiSenzaMaiuscole(std::string_view(file).substr(file.size() - 4), ".lng")) continue;
        std::error_code ec2;
        if (!it->is_regular_file(ec2)) continue;
        names.push_back(MaiuscoleAscii(file.substr(0, file.size() - 4)));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string IndirizzoServer(const Impostazioni& imp) {
    std::string base = trimSpaces(imp.Server);
    if (base.empty()) base = DV_SERVER_DEFAULT;
    while (!base.empty() && base.back() == '/') base.pop_back();
    return base;
}

std::string ServerUrl(const Impostazioni& imp, std::string_view path) {
    return IndirizzoServer(imp) + std::string(path);
}

std::string IndirizzoPaginaWeb() { return DV_WEB_PAGE; }

std::string VersioneProgramma() { return DV_VERSION; }

} // namespace dv
