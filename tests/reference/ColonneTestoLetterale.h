// The reader of text files of columns as it first was: a line at a time, one character at a time
// from the stream, each line cleaned by NormalizzaRiga and split into parts. The reference that
// the program's reader is compared with (same records, same boxes, same order) and the literal
// side of the comparison's benchmark.
#pragma once

#include "system_files/ColonneTesto.h"
#include "system_files/ErroreEsecuzione.h"

#include <filesystem>
#include <fstream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace dv::reference {

namespace colonne_testo {

constexpr size_t MaxRigaTesto = 4096;

// A line ends at CR, LF or CRLF; a line of more than 4,096 characters is an overflow.
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
            if (riga.size() == MaxRigaTesto)
                throw ErroreEsecuzione(6, "Overflow: a line longer than " + std::to_string(MaxRigaTesto) +
                                              " characters");
            riga.push_back(static_cast<char>(ch));
        }
        if (m_in.bad()) throw errori::AccessoNegato();
        return letto;
    }

private:
    std::ifstream m_in;
};

inline std::string& Normalizza(std::string& riga) {
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

inline std::vector<std::string_view> Parti(std::string_view riga, std::string_view separatori) {
    std::vector<std::string_view> parti;
    size_t i = 0;
    while (i < riga.size()) {
        while (i < riga.size() && (riga[i] == ' ' || separatori.find(riga[i]) != std::string_view::npos))
            ++i;
        const size_t inizio = i;
        while (i < riga.size() && riga[i] != ' ' && separatori.find(riga[i]) == std::string_view::npos)
            ++i;
        if (i > inizio) parti.push_back(riga.substr(inizio, i - inizio));
    }
    return parti;
}

inline uint8_t ConvertiByte(std::string_view parte) {
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

inline RecordNumeri StringToArrayColonna(Ui& ui, std::string_view riga) {
    RecordNumeri r;
    r.least = 255;
    try {
        const auto parti = Parti(riga, "\t-,;.|");
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

} // namespace colonne_testo

inline std::vector<RecordNumeri> LoadTxtToColonneArray(Ui& ui, const std::string& path) {
    using namespace colonne_testo;
    std::vector<RecordNumeri> records(1);
    bool occupato = false;
    try {
        LettoreRighe in(path);
        ui.setBusy(true);
        occupato = true;
        records.reserve(1000);
        std::string riga;
        while (in.leggi(riga))
            if (!Normalizza(riga).empty()) records.push_back(colonne_testo::StringToArrayColonna(ui, riga));
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

} // namespace dv::reference
