#include "archive/Conversione.h"

#include "archive/Estrazione.h"
#include "core/Ui.h"
#include "settings/ScritturaSicura.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <vector>

namespace dv {

namespace {

constexpr int CampiRiga = 24;
// A line longer than this cannot be a draw line that converts; it is skipped like a heading.
constexpr size_t MaxRiga = 1 << 20;
constexpr int TypeMismatch = 13;
constexpr int Overflow = 6;

constexpr bool Separatore(char c) {
    return c == ' ' || c == '\t' || c == '-' || c == ',' || c == ';' || c == '.' || c == '|';
}

// A whole number as the strict conversion reads it: an optional sign and digits, nothing else.
// Returns 0, or the error number (13 no number, 6 outside lo..hi).
int Intero(std::string_view t, long lo, long hi, long& value) {
    size_t i = 0;
    bool negativo = false;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) negativo = t[i++] == '-';
    if (i == t.size()) return TypeMismatch;
    long v = 0;
    bool fuori = false;
    for (; i < t.size(); ++i) {
        if (t[i] < '0' || t[i] > '9') return TypeMismatch;
        if (v < 1'000'000)
            v = v * 10 + (t[i] - '0');
        else
            fuori = true;
    }
    if (negativo) v = -v;
    if (fuori || v < lo || v > hi) return Overflow;
    value = v;
    return 0;
}

// The lenient numeric value of a text: an optional sign, digits and an exponent are read as far
// as they go and the rest is ignored (no digit at the start gives 0); then rounded, ties to even,
// to a byte. Returns 0, or 6 when the value is outside 0..255.
int ByteLenient(std::string_view t, uint8_t& value) {
    size_t i = 0;
    bool negativo = false;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) negativo = t[i++] == '-';
    double v = 0;
    for (; i < t.size() && t[i] >= '0' && t[i] <= '9'; ++i)
        if (v < 1e300) v = v * 10 + (t[i] - '0');
    if (i + 1 < t.size() && (t[i] == 'e' || t[i] == 'E' || t[i] == 'd' || t[i] == 'D')) {
        size_t j = i + 1;
        bool espNegativo = false;
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) espNegativo = t[j++] == '-';
        int esp = 0;
        bool cifre = false;
        for (; j < t.size() && t[j] >= '0' && t[j] <= '9'; ++j) {
            cifre = true;
            if (esp < 10'000) esp = esp * 10 + (t[j] - '0');
        }
        if (cifre && v != 0) v *= std::pow(10.0, espNegativo ? -esp : esp);
    }
    if (negativo) v = -v;
    const double r = std::nearbyint(v);
    if (!(r >= 0 && r <= 255)) return Overflow;
    value = static_cast<uint8_t>(r);
    return 0;
}

std::string Tronca(std::string_view t) {
    return std::string(t.substr(0, 40));
}

struct ChiudiFile {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
using File = std::unique_ptr<std::FILE, ChiudiFile>;

} // namespace

int ConvertiRigaEstrazione(std::string_view riga, char* record, int* campo) {
    // Split at every separator, keeping empty fields; stop as soon as there are too many.
    std::string_view campi[CampiRiga];
    int n = 0;
    size_t inizio = 0;
    for (size_t i = 0; i <= riga.size(); ++i) {
        if (i < riga.size() && !Separatore(riga[i])) continue;
        if (n == CampiRiga) return -1;
        campi[n++] = riga.substr(inizio, i - inizio);
        inizio = i + 1;
    }
    if (n != CampiRiga) return -1;

    const std::string_view data = campi[0].substr(0, 10);
    std::memset(record, ' ', 10);
    std::memcpy(record, data.data(), data.size());
    long v = 0;
    int errore = Intero(campi[1], -32768, 32767, v);
    if (errore) {
        *campo = 1;
        return errore;
    }
    const auto concorso = static_cast<uint16_t>(static_cast<int16_t>(v));
    record[10] = static_cast<char>(concorso & 0xFF);
    record[11] = static_cast<char>(concorso >> 8);
    for (int k = 2; k <= 21; ++k) {
        if ((errore = Intero(campi[k], 0, 255, v)) != 0) {
            *campo = k;
            return errore;
        }
        record[10 + k] = static_cast<char>(v);
    }
    for (int k = 22; k <= 23; ++k) {
        uint8_t b = 0;
        if ((errore = ByteLenient(campi[k], b)) != 0) {
            *campo = k;
            return errore;
        }
        record[10 + k] = static_cast<char>(b);
    }
    return 0;
}

EsitoConversione ConvertArchivioTmpToDat(const std::string& source, const std::string& target) {
    EsitoConversione esito;
    auto fallita = [&](EsitoConversione::Tipo tipo, int numero, const char* descrizione) {
        esito.tipo = tipo;
        esito.numeroErrore = numero;
        esito.descrizione = descrizione;
        return esito;
    };
    std::error_code ec;
    File in(std::filesystem::is_directory(source, ec) ? nullptr : std::fopen(source.c_str(), "rb"));
    if (!in) {
        esito.causa = CausaApertura(source);
        const bool mancante = std::string_view(esito.causa.chiave) == cause::FileMancante.chiave;
        return fallita(EsitoConversione::Tipo::SorgenteIlleggibile, mancante ? 53 : 75,
                       mancante ? "File not found" : "Path/File access error");
    }

    // 1. The records go to a file beside the target, which is replaced only at the end.
    ScritturaSicura out(target);
    auto scritturaFallita = [&] {
        esito.causa = CausaErrore(out.errore());
        const bool pieno = DiscoEsaurito(out.errore());
        return fallita(EsitoConversione::Tipo::ScritturaFallita, pieno ? 61 : 75,
                       pieno ? "Disk full" : "Path/File access error");
    };
    if (out.errore() != 0) return scritturaFallita();

    std::vector<char> blocco(1 << 20);
    std::vector<char> uscita;
    uscita.reserve((1 << 20) + DimensioneRecordEstrazione);
    std::string lunga; // a line that runs over the end of a block
    bool troppoLunga = false;
    bool dopoCR = false;

    // 2. Each line: converted when it has 24 fields, skipped otherwise.
    auto riga = [&](std::string_view testo) -> bool {
        ++esito.riga;
        if (troppoLunga) return true;
        char record[DimensioneRecordEstrazione];
        int campo = -1;
        const int errore = ConvertiRigaEstrazione(testo, record, &campo);
        if (errore < 0) return true;
        if (errore > 0) {
            esito.campo = campo;
            size_t inizio = 0;
            for (int k = 0; k < campo; ++k)
                while (!Separatore(testo[inizio++])) {
                }
            size_t fine = inizio;
            while (fine < testo.size() && !Separatore(testo[fine]))
                ++fine;
            esito.testo = Tronca(testo.substr(inizio, fine - inizio));
            fallita(EsitoConversione::Tipo::CampoNonValido, errore,
                    errore == TypeMismatch ? "Type mismatch" : "Overflow");
            return false;
        }
        uscita.insert(uscita.end(), record, record + DimensioneRecordEstrazione);
        ++esito.estrazioni;
        if (uscita.size() >= (1u << 20)) {
            out.scrivi(uscita.data(), uscita.size());
            uscita.clear();
        }
        return true;
    };

    bool avanti = true;
    size_t letti = 0;
    while (avanti && (letti = std::fread(blocco.data(), 1, blocco.size(), in.get())) > 0) {
        size_t inizio = 0;
        for (size_t i = 0; i < letti && avanti; ++i) {
            const char c = blocco[i];
            if (c != '\r' && c != '\n') continue;
            if (c == '\n' && dopoCR && i == inizio && lunga.empty()) {
                // The LF of a CR LF pair: the line ended at the CR.
                dopoCR = false;
                inizio = i + 1;
                continue;
            }
            std::string_view testo(blocco.data() + inizio, i - inizio);
            if (!lunga.empty() || troppoLunga) {
                if (!troppoLunga) lunga.append(testo);
                avanti = riga(lunga);
                lunga.clear();
                troppoLunga = false;
            } else {
                avanti = riga(testo);
            }
            dopoCR = c == '\r';
            inizio = i + 1;
        }
        if (!avanti) break;
        if (inizio < letti) {
            dopoCR = false;
            if (lunga.size() + (letti - inizio) > MaxRiga) {
                troppoLunga = true;
                lunga.clear();
            } else if (!troppoLunga) {
                lunga.append(blocco.data() + inizio, letti - inizio);
            }
        }
    }
    if (avanti && std::ferror(in.get())) {
        esito.causa = cause::ErroreDisco;
        return fallita(EsitoConversione::Tipo::SorgenteIlleggibile, 75, "Path/File access error");
    }
    // The last line, when the file does not end in a line end.
    if (avanti && (!lunga.empty() || troppoLunga)) avanti = riga(lunga);
    if (!avanti) return esito;

    // 3. Complete: the new file takes the target's place.
    if (!uscita.empty()) out.scrivi(uscita.data(), uscita.size());
    if (out.conferma() != 0) return scritturaFallita();
    esito.riga = 0;
    return esito;
}

std::string MessaggioConversione(const EsitoConversione& esito, const std::string& source, Ui& ui) {
    std::string testo;
    switch (esito.tipo) {
    case EsitoConversione::Tipo::Completata:
        return {};
    case EsitoConversione::Tipo::CampoNonValido:
        // "The archive could not be converted: line 12, field 5 ("x7"): not a number."
        testo = ui.Lang("0100");
        testo += ' ';
        testo += ui.Lang("0101");
        testo += ' ';
        testo += std::to_string(esito.riga);
        testo += ", ";
        testo += ui.Lang("0102");
        testo += ' ';
        testo += std::to_string(esito.campo);
        testo += " (\"";
        testo += esito.testo;
        testo += "\"): ";
        testo += ui.Lang(esito.numeroErrore == TypeMismatch ? "0103" : "0104");
        break;
    case EsitoConversione::Tipo::SorgenteIlleggibile:
        testo = ui.Lang("0105");
        testo += ' ';
        testo += source;
        break;
    case EsitoConversione::Tipo::ScritturaFallita:
        testo = ui.Lang("0106");
        testo += " (";
        testo += esito.descrizione;
        testo += ')';
        break;
    }
    // What went wrong, in words: "permission denied", "the disk is full".
    if (esito.causa.chiave) testo += ": " + TestoCausa(ui, esito.causa);
    testo += "\r\n";
    testo += ui.Lang("0107");
    return testo;
}

} // namespace dv
