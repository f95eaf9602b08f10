// The program's settings: the section "IMPOSTAZIONI" of "dorvantaqvn.ini" in AppDir.
#pragma once

#include "settings/Lingua.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dv {

struct Corpo;

inline constexpr const char* SezioneImpostazioni = "IMPOSTAZIONI";
inline constexpr const char* IntestazioneDefault = "RICEVITORIA XXXX - CAMBIA LE IMPOSTAZIONI DAL MENU FILE";
inline constexpr size_t LunghezzaIntestazione = 55;

// The settings as ReadConfiguration last loaded them.
struct Impostazioni {
    // Header of slips and listings: its first 55 characters, trimmed.
    std::string Intestazione = IntestazioneDefault;
    // Device name of the listing's printer.
    std::string StampanteTabulato = "NESSUNA";
    // Recalculation source: 1 "MEMORIA"; 0 for any other value ("FILE" is stored as 2).
    uint8_t SorgenteRicalcolo = 1;
    // The stored value is exactly "TRUE".
    bool ModalitaRicalcolo = false;
    // The language's name as stored.
    std::string Lingua;
    // The web server's address from the optional key "SERVER"; empty means the build's address.
    // The program reads this key and never writes it.
    std::string Server;
};

// Loads the settings of appDir; then, when appDir holds the language file of the setting, makes
// it the language in use. A missing file or key gives the default.
void ReadConfiguration(const std::string& appDir, Impostazioni& imp, Lingua& lingua);
// The same on the working state: reads corpo.AppDir and sets corpo.ModalitaRicalcolo.
void ReadConfiguration(Corpo& corpo, Impostazioni& imp, Lingua& lingua);

// What the settings window saves; recalculation source 0 is "FILE", 1 "MEMORIA".
struct ImpostazioniDaSalvare {
    std::string Intestazione;
    std::string StampanteTabulato;
    bool ModalitaRicalcolo = false;
    int IndiceSorgente = 1;
    std::string Lingua;
};
// Writes the five keys in the settings window's order; false when the file could not be written.
bool ScriviImpostazioni(const std::string& appDir, const ImpostazioniDaSalvare& s);

// The names of the language files in appDir, without ".lng" and in upper case, sorted.
std::vector<std::string> ElencoLingue(const std::string& appDir);

// The web server's address: the setting "SERVER" when present, else the build's.
std::string IndirizzoServer(const Impostazioni& imp);
// The URL of a path of the web server, such as "/public/10elotto/ver.asp".
std::string ServerUrl(const Impostazioni& imp, std::string_view path);
// The address of the program's web page, where a new version is downloaded.
std::string IndirizzoPaginaWeb();
// The program's version, "major.minor.revision".
std::string VersioneProgramma();

} // namespace dv
