#include "print/TaraturaScheda.h"

#include "settings/Ansi.h"
#include "settings/FileTesto.h"
#include "settings/ScritturaSicura.h"
#include "settings/classINI.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace dv {

namespace {
constexpr const char* Sezione = "IMPOSTAZIONI";

float* Campi(SlipCalibration& c, int i) {
    float* v[NumeroValoriTaratura] = {&c.POSX_UNO,          &c.POSY_UNO,          &c.DISX_UNO,
                                      &c.DISY_UNO,          &c.POSX_IMPORTI,      &c.POSY_IMPORTI,
                                      &c.POSX_ESTRAZIONI,   &c.POSY_ESTRAZIONI,   &c.POSX_OPZIONIGIOCO,
                                      &c.POSY_OPZIONIGIOCO, &c.POSX_INTESTAZIONE, &c.POSY_INTESTAZIONE};
    return v[i];
}

// A number with a decimal point or comma, blanks around it allowed; false when it is none.
bool LeggiNumero(std::string text, float& out) {
    for (char& ch : text)
        if (ch == ',') ch = '.';
    const size_t a = text.find_first_not_of(" \t\r");
    if (a == std::string::npos) return false;
    const size_t b = text.find_last_not_of(" \t\r");
    const char* first = text.data() + a;
    const char* last = text.data() + b + 1;
    float v = 0;
    auto [p, ec] = std::from_chars(first, last, v);
    if (ec != std::errc() || p != last || !std::isfinite(v)) return false;
    out = v;
    return true;
}
} // namespace

float& ValoreTaratura(SlipCalibration& c, int i) {
    return *Campi(c, i);
}

float ValoreTaratura(const SlipCalibration& c, int i) {
    return *Campi(const_cast<SlipCalibration&>(c), i);
}

std::string PercorsoTaratura(const std::string& appDir, const std::string& device) {
    std::string nome = device;
    for (char& ch : nome)
        if (ch == '/' || ch == '\\' || ch == ':' || ch == '*' || ch == '?' || ch == '"' || ch == '<' ||
            ch == '>' || ch == '|')
            ch = '_';
    return (std::filesystem::path(appDir) / "printer" / (nome + ".prn")).string();
}

SlipCalibration LoadCalibration(const std::string& path) {
    SlipCalibration c;
    const classINI ini(path);
    for (int i = 0; i < NumeroValoriTaratura; ++i) {
        float& v = ValoreTaratura(c, i);
        LeggiNumero(ini.getProperty(Sezione, ChiaviTaratura[i], TestoMm(v)), v);
    }
    c.STAMPANTE = ini.getProperty(Sezione, "STAMPANTE", c.STAMPANTE);
    float intensita = 0;
    // A number beyond what an int holds is no quality setting: the default stays.
    if (LeggiNumero(ini.getProperty(Sezione, "INTENSITA_STAMPA", "1111"), intensita) && std::fabs(intensita) < 2e9f)
        c.INTENSITA_STAMPA = static_cast<int>(intensita);
    return c;
}

bool SalvaTaratura(const std::string& path, const SlipCalibration& c, int* errore) {
    std::error_code ec;
    const std::filesystem::path target(path);
    if (target.has_parent_path()) std::filesystem::create_directories(target.parent_path(), ec);
    // The whole file at once, as the settings file writes a fresh section.
    const std::string eol = FineRigaNativa;
    std::string testo = std::string("[") + Sezione + "]" + eol;
    auto riga = [&](const char* chiave, const std::string& valore) {
        std::string v = Utf8ToAnsi(valore);
        for (char& ch : v)
            if (ch == '\r' || ch == '\n') ch = ' ';
        testo += chiave;
        testo += '=';
        testo += v;
        testo += eol;
    };
    for (int i = 0; i < NumeroValoriTaratura; ++i)
        riga(ChiaviTaratura[i], TestoMm(ValoreTaratura(c, i)));
    riga("STAMPANTE", c.STAMPANTE);
    riga("INTENSITA_STAMPA", std::to_string(c.INTENSITA_STAMPA));
    const int esito = ScriviFileSicuro(path, testo);
    if (errore) *errore = esito;
    return esito == 0;
}

int BarraDaMm(float mm) {
    return static_cast<int>(std::lround(static_cast<double>(mm) * 10.0));
}

float MmDaBarra(int barra) {
    return static_cast<float>(barra) / 10.0f;
}

std::string TestoMm(float mm) {
    char buf[32];
    auto [p, ec] = std::to_chars(buf, buf + sizeof buf, mm);
    return ec == std::errc() ? std::string(buf, p) : std::string("0");
}

} // namespace dv
