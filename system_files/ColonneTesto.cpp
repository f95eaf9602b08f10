#include "system_files/ColonneTesto.h"

#include "core/Helpers.h"
#include "core/Sistema.h"
#include "settings/Ansi.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FlussoBinario.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <new>

namespace dv {

namespace {

constexpr size_t MaxRigaTesto = 4096;
constexpr std::string_view SeparatoriImporta = "\t-,;.";
constexpr std::string_view SeparatoriRecord = "\t-,;.|";

// Reads a text file line by line. A line ends at CR, LF or CRLF, so files written with any of
// the three conventions give the same lines.
class LettoreRighe {
public:
    explicit LettoreRighe(const std::string& path) {
        std::error_code ec;
        if (!std::filesystem::is_regular_file(path, ec)) throw errori::FileNonTrovato();
        m_in.open(path, std::ios::binary);
        if (!m_in) throw errori::AccessoNegato();
    }
    bool leggi(std::string& riga) {
        riga.clear();
        int ch;
        bool letto = false;
        while ((ch = m_in.get()) != std::char_traits<char>::eof()) {
            letto = true;
            if (ch == '\n') return true;
            if (ch == '\r') {
                if (m_in.peek() == '\n') m_in.get();
                return true;
            }
            // A line of megabytes is damage, not columns: refused before it fills the memory.
            if (riga.size() == MaxRigaTesto)
                throw ErroreEsecuzione(6, "Overflow: a line longer than " + std::to_string(MaxRigaTesto) + " characters");
            riga.push_back(static_cast<char>(ch));
        }
        if (m_in.bad()) throw errori::AccessoNegato();
        return letto;
    }

private:
    std::ifstream m_in;
};

// At most this much of a bad line is shown back in its message, then "...".
std::string Spezzone(std::string_view riga) {
    constexpr size_t MaxEco = 80;
    return riga.size() <= MaxEco ? std::string(riga) : std::string(riga.substr(0, MaxEco)) + "...";
}

// The parts of a line between separators; runs of separators give no empty parts.
std::vector<std::string_view> Parti(std::string_view riga, std::string_view separatori) {
    std::vector<std::string_view> parti;
    size_t i = 0;
    while (i < riga.size()) {
        while (i < riga.size() && (riga[i] == ' ' || separatori.find(riga[i]) != std::string_view::npos)) ++i;
        const size_t inizio = i;
        while (i < riga.size() && riga[i] != ' ' && separatori.find(riga[i]) == std::string_view::npos) ++i;
        if (i > inizio) parti.push_back(riga.substr(inizio, i - inizio));
    }
    return parti;
}

// A part as an unsigned byte: digits only (a leading "+" allowed), else a type mismatch;
// above 255, an overflow.
uint8_t ConvertiByte(std::string_view parte) {
    if (!parte.empty() && parte.front() == '+') parte.remove_prefix(1);
    if (parte.empty()) throw errori::TipoNonCorrispondente();
    unsigned valore = 0;
    bool troppo = false;
    for (char ch : parte) {
        if (ch < '0' || ch > '9') throw errori::TipoNonCorrispondente();
        valore = valore * 10 + static_cast<unsigned>(ch - '0');
        if (valore > 255) {
            troppo = true;
            valore = 256;
        }
    }
    if (troppo) throw errori::Overflow();
    return static_cast<uint8_t>(valore);
}

// Step 6 of the import: the numbers of one piece as column c.
void ImportaRiga(Corpo& c, std::string_view pezzo, int32_t colonna, std::array<bool, 91>& presenti) {
    const auto parti = Parti(pezzo, SeparatoriImporta);
    if (parti.empty()) throw errori::TipoNonCorrispondente();
    if (colonna == 1) {
        // The first line sets the length for the whole file.
        if (parti.size() > static_cast<size_t>(MaxLenColonna)) throw errori::IndiceFuoriIntervallo();
        c.LenColonna = static_cast<int16_t>(parti.size());
    }
    for (int p = 0; p < c.LenColonna; ++p) {
        if (static_cast<size_t>(p) >= parti.size()) throw errori::IndiceFuoriIntervallo();
        const uint8_t n = ConvertiByte(parti[static_cast<size_t>(p)]);
        c.Colonne.set(colonna, p + 1, n);
        if (n > 90) throw errori::IndiceFuoriIntervallo();
        presenti[n] = true;
    }
}

} // namespace

std::string& NormalizzaRiga(std::string& riga) {
    std::string out;
    out.reserve(riga.size());
    for (size_t i = 0; i < riga.size(); ++i) {
        char ch = riga[i];
        if (ch == '\t') ch = ' ';
        if (ch == '\r' && i + 1 < riga.size() && riga[i + 1] == '\n') {
            ch = ' ';
            ++i;
        }
        if (ch == ' ' && !out.empty() && out.back() == ' ') continue;
        out.push_back(ch);
    }
    const size_t primo = out.find_first_not_of(' ');
    if (primo == std::string::npos) {
        out.clear();
    } else {
        out.erase(0, primo);
        out.erase(out.find_last_not_of(' ') + 1);
    }
    riga = std::move(out);
    return riga;
}

RecordNumeri StringToArrayColonna(Ui& ui, std::string_view riga) {
    RecordNumeri r;
    r.least = 255;
    try {
        const auto parti = Parti(riga, SeparatoriRecord);
        for (size_t i = 0; i < parti.size(); ++i) {
            if (i >= r.numbers.size()) throw errori::IndiceFuoriIntervallo();
            const uint8_t n = ConvertiByte(parti[i]);
            r.numbers[i] = n;
            if (n > r.greatest) r.greatest = n;
            if (n < r.least) r.least = n;
            r.count = static_cast<uint8_t>(i + 1);
        }
    } catch (const ErroreEsecuzione& e) {
        MostraErrore(ui, e, ") in procedure StringToArrayColonna of Modulo corpo");
    }
    return r;
}

std::vector<RecordNumeri> LoadTxtToColonneArray(Ui& ui, const std::string& path) {
    std::vector<RecordNumeri> records(1);
    bool occupato = false;
    try {
        LettoreRighe in(path);
        ui.setBusy(true);
        occupato = true;
        records.reserve(1000);
        std::string riga;
        while (in.leggi(riga))
            if (!NormalizzaRiga(riga).empty()) records.push_back(StringToArrayColonna(ui, riga));
    } catch (const ErroreEsecuzione& e) {
        MostraErrore(ui, e, ") in procedure LoadTxtToColonneArray of Module Corpo");
    } catch (const std::bad_alloc&) {
        MostraErrore(ui, errori::MemoriaEsaurita(), ") in procedure LoadTxtToColonneArray of Module Corpo");
    }
    if (records.size() < 2) records.resize(2);
    records.shrink_to_fit();
    if (occupato) ui.setBusy(false);
    return records;
}

bool SalvaColonneTxt(const Corpo& c, Ui& ui, const std::string& path) {
    bool occupato = false;
    try {
        ui.setBusy(true);
        occupato = true;
        ScrittoreSicuro file(path, std::ios::binary);
        std::string riga;
        char numero[8];
        for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j) {
            riga.assign(" ");
            for (int p = 1; p <= c.LenColonna; ++p) {
                const uint8_t n = c.Colonne.get(j, p);
                if (n == 0) continue;
                std::snprintf(numero, sizeof numero, "%02u ", static_cast<unsigned>(n));
                riga += numero;
            }
            riga += "\r\n";
            file.stream().write(riga.data(), static_cast<std::streamsize>(riga.size()));
        }
        file.conferma();
    } catch (const ErroreEsecuzione& e) {
        MostraErrore(ui, e, ") in procedure SalvaColonneTxt of Modulo corpo");
        if (occupato) ui.setBusy(false);
        return false;
    }
    ui.setBusy(false);
    return true;
}

bool ImportaColonneTxt(Corpo& c, Ui& ui, const std::string& path) {
    bool importato = false;
    if (!path.empty()) {
        c.FileCorrente = path;
        std::string pezzo;
        bool occupato = false;
        try {
            LettoreRighe in(path);
            ui.setBusy(true);
            occupato = true;
            ResetSistema(c, ui, false);
            std::array<bool, 91> presenti{};
            int32_t colonna = 0;
            bool oltreIlLimite = false;
            while (in.leggi(pezzo)) {
                if (NormalizzaRiga(pezzo).empty()) continue;
                if (colonna == MaxColonne) {
                    oltreIlLimite = true;
                    break;
                }
                ++colonna;
                ImportaRiga(c, pezzo, colonna, presenti);
            }
            if (oltreIlLimite) {
                AvvisoLimiteColonne(ui);
                ResetSistema(c, ui, false);
            } else {
                for (int n = 1; n <= 90; ++n)
                    if (presenti[static_cast<size_t>(n)]) GrigliaNumeriClick(c, ui, n - 1);
                AggiornaPronostico(c);
                c.pronostico.Descrizione = "FILE TXT";
                c.pronostico.NumColonne = colonna;
                if (colonna > 0) LockGUI(c, ui);
                c.TitoloFile = TitoloDaPath(path);
                ui.ViewStatusBar();
                importato = true;
            }
            ui.setBusy(false);
        } catch (const ErroreEsecuzione& e) {
            MostraErrore(ui, e, ") in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [" + AnsiToUtf8(Spezzone(pezzo)) + "]");
            if (occupato) ui.setBusy(false);
            return false;
        }
    }
    ui.lenColonnaChanged();
    if (c.ModalitaRicalcolo) Sblocca_x_Ricalcolo(c, ui);
    return importato;
}

} // namespace dv
