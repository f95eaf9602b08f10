#include "system_files/ColonneTesto.h"

#include "core/Helpers.h"
#include "core/Sistema.h"
#include "settings/Ansi.h"
#include "settings/LettoreTesto.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FlussoBinario.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace dv {

namespace {

constexpr size_t MaxRigaTesto = 4096;
constexpr std::string_view SeparatoriImporta = "\t-,;.";
constexpr std::string_view SeparatoriRecord = "\t-,;.|";

// The first CR or LF of [p, fine), or fine. Eight characters at a time: a byte of a word is zero
// after an exclusive or with the line end that it holds, and the lowest zero byte of a word is
// found exactly by the borrow of the subtraction.
const char* FineRiga(const char* p, const char* fine) {
    if constexpr (std::endian::native == std::endian::little) {
        constexpr uint64_t Uni = 0x0101010101010101, Alti = 0x8080808080808080;
        constexpr uint64_t Cr = Uni * '\r', Lf = Uni * '\n';
        for (; fine - p >= 8; p += 8) {
            uint64_t w;
            std::memcpy(&w, p, 8);
            const uint64_t cr = w ^ Cr, lf = w ^ Lf;
            const uint64_t zeri = ((cr - Uni) & ~cr & Alti) | ((lf - Uni) & ~lf & Alti);
            if (zeri != 0) return p + std::countr_zero(zeri) / 8;
        }
    }
    while (p != fine && *p != '\n' && *p != '\r')
        ++p;
    return p;
}

// Reads a text file a block at a time and hands out its lines as views into the block, with no
// copy and no allocation per line. A line ends at CR, LF or CRLF, so files written with any of
// the three conventions give the same lines.
class LettoreRighe {
public:
    explicit LettoreRighe(const std::string& path, size_t blocco = size_t{1} << 20)
        : m_blocco(std::max<size_t>(blocco, 1)) {
        std::error_code ec;
        if (!std::filesystem::is_regular_file(path, ec)) throw errori::Apertura(path);
        m_in.open(path, std::ios::binary);
        if (!m_in) throw errori::Apertura(path);
        const auto dimensione = std::filesystem::file_size(path, ec);
        m_dimensione = ec ? 0 : static_cast<uint64_t>(dimensione);
        // A small file needs no block of a megabyte: one a little larger than the file reads it
        // in one go without clearing memory it will never use.
        if (!ec)
            m_blocco =
                static_cast<size_t>(std::min<uint64_t>(m_blocco, std::max<uint64_t>(m_dimensione + 1, 4096)));
    }

    // The next line without its end; false at the end of the file. A line of megabytes is
    // damage, not columns: a line longer than 4,096 characters is refused before it fills the
    // memory, with riga holding its first 4,096.
    bool leggi(std::string_view& riga) {
        for (;;) {
            if (m_saltaLf) {
                if (m_inizio == m_fine && !riempi()) return false;
                if (m_buf[m_inizio] == '\n') ++m_inizio;
                m_saltaLf = false;
            }
            const char* const base = m_buf.data();
            const char* const fine = base + m_fine;
            const char* p = FineRiga(base + m_inizio + m_esaminati, fine);
            const size_t lunghezza = static_cast<size_t>(p - (base + m_inizio));
            if (lunghezza > MaxRigaTesto) troppoLunga(riga);
            if (p != fine) {
                riga = std::string_view(base + m_inizio, lunghezza);
                m_saltaLf = *p == '\r';
                m_inizio += lunghezza + 1;
                m_esaminati = 0;
                return true;
            }
            m_esaminati = lunghezza;
            if (!riempi()) {
                if (lunghezza == 0) return false;
                riga = std::string_view(m_buf.data() + m_inizio, lunghezza);
                m_inizio = m_fine;
                m_esaminati = 0;
                return true;
            }
        }
    }
    // The same line copied into riga, for a caller that changes it.
    bool leggi(std::string& riga) {
        std::string_view v;
        try {
            const bool letta = leggi(v);
            riga.assign(v);
            return letta;
        } catch (const ErroreEsecuzione&) {
            riga.assign(v);
            throw;
        }
    }

    uint64_t dimensione() const { return m_dimensione; }
    uint64_t consumati() const { return m_consumati + m_inizio; }

private:
    [[noreturn]] void troppoLunga(std::string_view& riga) const {
        riga = std::string_view(m_buf.data() + m_inizio, MaxRigaTesto);
        throw ErroreEsecuzione(6, "Overflow: a line longer than " + std::to_string(MaxRigaTesto) +
                                      " characters");
    }
    // Moves the unread rest of the block to its front and reads the next block after it; false
    // when the file has no more.
    bool riempi() {
        if (m_finito) return false;
        const size_t resto = m_fine - m_inizio;
        if (m_inizio > 0 && resto > 0) std::memmove(m_buf.data(), m_buf.data() + m_inizio, resto);
        m_consumati += m_inizio;
        m_inizio = 0;
        m_fine = resto;
        if (m_buf.size() < resto + m_blocco) m_buf.resize(resto + m_blocco);
        m_in.read(m_buf.data() + resto, static_cast<std::streamsize>(m_blocco));
        if (m_in.bad()) throw errori::Lettura();
        const auto letti = static_cast<size_t>(m_in.gcount());
        m_fine += letti;
        if (letti < m_blocco) m_finito = true;
        return letti > 0;
    }

    std::ifstream m_in;
    size_t m_blocco;
    std::vector<char> m_buf;
    size_t m_inizio = 0, m_fine = 0; // the unread part of the block
    size_t m_esaminati = 0;          // characters of the unread part already known to hold no line end
    uint64_t m_consumati = 0;        // characters moved out of the block before m_inizio
    uint64_t m_dimensione = 0;
    bool m_saltaLf = false; // the last line ended in CR: an LF right after it is part of its end
    bool m_finito = false;
};

// How a character of a line of numbers is read.
enum ClasseCarattere : uint8_t { Altro, Cifra, Separatore, Blank };
constexpr auto Classi = [] {
    std::array<uint8_t, 256> t{};
    for (int ch = '0'; ch <= '9'; ++ch)
        t[static_cast<size_t>(ch)] = Cifra;
    for (char ch : std::string_view("-,;.|"))
        t[static_cast<unsigned char>(ch)] = Separatore;
    t[' '] = t['\t'] = Blank;
    return t;
}();

// A plain line, up to 25 numbers of 0..255 in digits between separators, in one pass and without
// allocating. False for anything else (a "+", a part that is no number, a number above 255, a
// 26th number): StringToArrayColonna then reads that line and reports its fault.
bool LeggiRigaSemplice(std::string_view riga, RecordNumeri& r) {
    const auto* p = reinterpret_cast<const unsigned char*>(riga.data());
    const auto* const fine = p + riga.size();
    unsigned count = 0, least = 255, greatest = 0;
    while (p != fine) {
        const uint8_t classe = Classi[*p];
        if (classe >= Separatore) {
            ++p;
            continue;
        }
        if (classe != Cifra || count == r.numbers.size()) return false;
        unsigned v = 0;
        do {
            v = v * 10 + static_cast<unsigned>(*p - '0');
            if (v > 255) return false;
            ++p;
        } while (p != fine && Classi[*p] == Cifra);
        r.numbers[count++] = static_cast<uint8_t>(v);
        least = std::min(least, v);
        greatest = std::max(greatest, v);
    }
    r.count = static_cast<uint8_t>(count);
    r.least = static_cast<uint8_t>(least);
    r.greatest = static_cast<uint8_t>(greatest);
    return true;
}

// Asks the system to back the untouched memory [p, p + n) with pages of 2 MiB where it can: the
// records of a big file are then written with one page fault for each 2 MiB instead of one for
// each 4 KiB, which would otherwise take most of the time of reading the file. Only a hint.
void PagineGrandi(void* p, size_t n) {
#if defined(MADV_HUGEPAGE)
    constexpr uintptr_t Grande = uintptr_t{1} << 21;
    const uintptr_t inizio = (reinterpret_cast<uintptr_t>(p) + Grande - 1) & ~(Grande - 1);
    const uintptr_t fine = (reinterpret_cast<uintptr_t>(p) + n) & ~(Grande - 1);
    if (fine > inizio) madvise(reinterpret_cast<void*>(inizio), fine - inizio, MADV_HUGEPAGE);
#else
    (void)p, (void)n;
#endif
}

// The parts of a line between separators; runs of separators give no empty parts.
std::vector<std::string_view> Parti(std::string_view riga, std::string_view separatori) {
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
    return LoadTxtToColonneArray(ui, path, size_t{1} << 20);
}

std::vector<RecordNumeri> LoadTxtToColonneArray(Ui& ui, const std::string& path, size_t blocco) {
    std::vector<RecordNumeri> records(1);
    bool occupato = false;
    try {
        LettoreRighe in(path, blocco);
        ui.setBusy(true);
        occupato = true;
        records.reserve(1000);
        bool stimato = false;
        std::string_view riga;
        while (in.leggi(riga)) {
            RecordNumeri& r = records.emplace_back();
            if (!LeggiRigaSemplice(riga, r))
                r = StringToArrayColonna(ui, riga);
            else if (r.count == 0 && riga.find_first_not_of(" \t") == std::string_view::npos)
                records.pop_back(); // a line of blanks is no line
            // Once the first 64 KiB are read, room for the whole file at their density of lines.
            if (!stimato && in.consumati() >= 65536) {
                stimato = true;
                const uint64_t stima = records.size() * in.dimensione() / in.consumati();
                records.reserve(static_cast<size_t>(stima + stima / 16 + 64));
                PagineGrandi(records.data() + records.size(),
                             (records.capacity() - records.size()) * sizeof(RecordNumeri));
            }
        }
    } catch (const ErroreEsecuzione& e) {
        MostraErrore(ui, e, ") in procedure LoadTxtToColonneArray of Module Corpo");
    } catch (const std::bad_alloc&) {
        MostraErrore(ui, errori::MemoriaEsaurita(), ") in procedure LoadTxtToColonneArray of Module Corpo");
    }
    if (records.size() < 2) records.resize(2);
    if (records.capacity() - records.size() > records.size() / 8) records.shrink_to_fit();
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
            MostraErrore(ui, e,
                         ") in procedure ImportaColonneTxt of Modulo corpo \r\nRiga [" +
                             AnsiToUtf8(Spezzone(pezzo, 80)) + "]");
            if (occupato) ui.setBusy(false);
            return false;
        }
    }
    ui.lenColonnaChanged();
    if (c.ModalitaRicalcolo) Sblocca_x_Ricalcolo(c, ui);
    return importato;
}

} // namespace dv
