#include "archive/Statistiche.h"

#include "archive/Archivio.h"

#include "core/Sistema.h"
#include "core/Ui.h"
#include "settings/Ansi.h"
#include "system_files/ErroreEsecuzione.h"

#include <charconv>
#include <cstring>
#include <unordered_set>

namespace dv {

namespace {

constexpr int ErroreLogica = -2147211504;
constexpr size_t BufferCsv = size_t{1} << 18;

// The date of a record without its trailing blanks, without a copy.
std::string_view DataDi(const Estrazione& e) {
    size_t n = e.Data.size();
    while (n > 0 && (e.Data[n - 1] == ' ' || e.Data[n - 1] == '\0'))
        --n;
    return {e.Data.data(), n};
}

// A date "dd/mm/yyyy" as yyyymmdd, or -1 for a text that is no such date.
int64_t ValoreData(std::string_view d) {
    if (d.size() < 10 || d[2] != '/' || d[5] != '/') return -1;
    int64_t v[3] = {};
    const size_t inizio[3] = {6, 3, 0}, lunghezza[3] = {4, 2, 2};
    for (int p = 0; p < 3; ++p)
        for (size_t i = inizio[p]; i < inizio[p] + lunghezza[p]; ++i) {
            if (d[i] < '0' || d[i] > '9') return -1;
            v[p] = v[p] * 10 + (d[i] - '0');
        }
    return v[0] * 10000 + v[1] * 100 + v[2];
}

// From index i on, the first record of the date whose Concorso reaches conc; the last record of
// the date when none does.
int32_t AvanzaNellaData(const ArrayEstrazioni& a, int32_t i, std::string_view data, int32_t conc) {
    const int32_t ub = UBound(a);
    while (i <= ub && DataDi(a[static_cast<size_t>(i)]) == data && a[static_cast<size_t>(i)].Concorso < conc)
        ++i;
    if (i > ub || DataDi(a[static_cast<size_t>(i)]) != data) --i;
    return i;
}

// Two-digit texts of 0..99, for the numbers of a CSV line.
constexpr std::array<std::array<char, 2>, 100> DueCifre = [] {
    std::array<std::array<char, 2>, 100> t{};
    for (int i = 0; i < 100; ++i)
        t[static_cast<size_t>(i)] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    return t;
}();

void AggiungiIntero(std::string& s, int v) {
    char buf[12];
    const auto r = std::to_chars(buf, buf + sizeof buf, v);
    s.append(buf, r.ptr);
}

char* Intero(char* p, int v) {
    return std::to_chars(p, p + 12, v).ptr;
}

// One line of the CSV file into p (room for 160 characters): the date, the draw number when
// asked, the non-zero numbers in at least two digits, the repeats, the even and odd counts, the
// run and the sum, separated by ";" and ended by CR LF. Returns its length.
size_t RigaCsv(char* const inizio, const Estrazione& e, bool concorso, int ripetuti, int pari, int lungo,
               int somma) {
    char* p = inizio;
    std::memcpy(p, e.Data.data(), e.Data.size());
    p += e.Data.size();
    *p++ = ';';
    if (concorso) {
        p = Intero(p, e.Concorso);
        *p++ = ';';
    }
    bool primo = true;
    for (size_t k = 1; k <= 20; ++k) {
        const uint8_t n = e.Numeri[k];
        if (n == 0) continue;
        if (!primo) *p++ = ';';
        primo = false;
        if (n < 100) {
            p[0] = DueCifre[n][0];
            p[1] = DueCifre[n][1];
            p += 2;
        } else {
            p = Intero(p, n);
        }
    }
    for (int v : {ripetuti, pari, 20 - pari, lungo}) {
        *p++ = ';';
        p = Intero(p, v);
    }
    *p++ = ';';
    p = Intero(p, somma);
    *p++ = '\r';
    *p++ = '\n';
    return static_cast<size_t>(p - inizio);
}

} // namespace

int BandaSomma(int somma) {
    if (somma >= 210 && somma <= 280) return 1;
    if (somma < 281 || somma > 1610) return 0;
    return (somma - 1) / 70 - 2;
}

int MinimoBanda(int banda) {
    return banda == 1 ? 210 : 70 * (banda + 2) + 1;
}
int MassimoBanda(int banda) {
    return 70 * (banda + 3);
}

bool ElencoDateEstrazioni(const ArrayEstrazioni& a, std::vector<std::string>& date, Ui& ui) {
    date.clear();
    std::unordered_set<std::string_view> viste;
    std::string_view precedente;
    for (int32_t i = 1; i <= UBound(a); ++i) {
        const std::string_view d = DataDi(a[static_cast<size_t>(i)]);
        if (d == precedente) continue;
        precedente = d;
        if (!viste.insert(d).second) continue;
        if (static_cast<int>(date.size()) + 1 > MaxDateStatistiche) {
            ui.messageBox(
                "Error : Archivio superiore alla dimensione massima...Spoglio Estrazioni non disponibile",
                "Errore dimensione archivio", BoxIcon::Critical);
            return false;
        }
        date.emplace_back(d);
    }
    return true;
}

void TrovaIntervallo(const ArrayEstrazioni& a, const IntervalloStatistiche& r, Ui& ui, int32_t& primo,
                     int32_t& ultimo) {
    const int64_t dal = ValoreData(r.dal), al = ValoreData(r.al);
    if (dal >= 0 && al >= 0 && al < dal) throw ErroreEsecuzione(ErroreLogica, ui.Lang("0022"));
    const int32_t ub = UBound(a);
    int32_t i = 1;
    while (i <= ub && DataDi(a[static_cast<size_t>(i)]) != r.dal)
        ++i;
    if (i > ub) throw errori::IndiceFuoriIntervallo();
    primo = AvanzaNellaData(a, i, r.dal, r.concDal);
    int32_t j = primo;
    while (j <= ub && DataDi(a[static_cast<size_t>(j)]) != r.al)
        ++j;
    ultimo = j > ub ? ub : AvanzaNellaData(a, j, r.al, r.concAl);
}

std::string IntestazioneCsvStatistiche(int32_t tipoArchivio, Ui& ui) {
    std::string s = ui.Lang("0031") + ";";
    if (tipoArchivio == Archivio5Minuti) s += "n.;";
    for (int p = 1; p <= 20; ++p) {
        s += 'P';
        AggiungiIntero(s, p);
        s += ';';
    }
    for (const char* k : {"0032", "0033", "0034", "0035"})
        s += ui.Lang(k) + ";";
    s += ui.Lang("0036");
    return Utf8ToAnsi(s);
}

void OrdinaFrequenze(std::array<std::array<int32_t, 2>, 91>& f) {
    for (size_t i = 1; i <= 90; ++i)
        for (size_t j = i + 1; j <= 90; ++j)
            if (f[i][0] <= f[j][0]) std::swap(f[i], f[j]);
}

EsitoStatistiche CalcolaStatistiche(const ArrayEstrazioni& a, int32_t tipoArchivio,
                                    const IntervalloStatistiche& r, Ui& ui, TabelleStatistiche& t,
                                    UscitaCsv* csv) {
    // 1. Every counter cleared.
    t = TabelleStatistiche{};
    // 2. Nothing to count in an empty archive.
    if (ArchivioVuoto(a)) return EsitoStatistiche::Vuoto;
    try {
        // The lines gather in a buffer of fixed size that goes out whenever it is nearly full.
        std::string buffer;
        if (csv) {
            buffer = IntestazioneCsvStatistiche(tipoArchivio, ui) + "\r\n";
            buffer.reserve(BufferCsv);
        }
        struct Svuota {
            UscitaCsv* csv;
            std::string& buffer;
            ~Svuota() {
                if (csv) csv->scrivi(buffer.data(), buffer.size());
            }
        } svuota{csv, buffer};
        int32_t primo = 0, ultimo = 0;
        TrovaIntervallo(a, r, ui, primo, ultimo);
        t.primo = primo;
        t.ultimo = ultimo;
        auto& freq = t.frequenza;
        // From the newest draw of the range back to its first.
        for (int32_t i = ultimo; i >= primo; --i) {
            const Estrazione& e = a[static_cast<size_t>(i)];
            const uint8_t* n = &e.Numeri[1];
            // The numbers of the record before, as a set of 256 bits; none for the range's first.
            uint64_t prima[4] = {};
            if (i > primo)
                for (int k = 1; k <= 20; ++k) {
                    const uint8_t v = a[static_cast<size_t>(i - 1)].Numeri[static_cast<size_t>(k)];
                    prima[v >> 6] |= uint64_t{1} << (v & 63);
                }
            int pari = 0, ripetuti = 0, run = 1, lungo = 1;
            uint16_t somma = 0;
            for (int k = 0; k < 20; ++k) {
                pari += (n[k] & 1) == 0;
                somma = static_cast<uint16_t>(somma + n[k]);
                ripetuti += static_cast<int>((prima[n[k] >> 6] >> (n[k] & 63)) & 1);
                if (k > 0) {
                    run = n[k] == n[k - 1] + 1 ? run + 1 : 1;
                    if (run > lungo) lungo = run;
                }
            }
            ++t.pari[static_cast<size_t>(pari)];
            ++t.dispari[static_cast<size_t>(20 - pari)];
            if (const int b = BandaSomma(somma)) ++t.somma[static_cast<size_t>(b)];
            ++t.consecutivi[static_cast<size_t>(lungo)];
            ++t.ripetuti[static_cast<size_t>(ripetuti)];
            if (csv) {
                char riga[160];
                buffer.append(
                    riga, RigaCsv(riga, e, tipoArchivio == Archivio5Minuti, ripetuti, pari, lungo, somma));
                if (buffer.size() > BufferCsv - sizeof riga) {
                    csv->scrivi(buffer.data(), buffer.size());
                    buffer.clear();
                }
            }
            for (int k = 0; k < 20; ++k) {
                if (n[k] == 0) continue;
                if (n[k] > 90) throw errori::IndiceFuoriIntervallo();
                ++freq[n[k]][0];
            }
        }
        // 10. Each slot's number, then the table sorted by count.
        for (int32_t k = 1; k <= 90; ++k)
            freq[static_cast<size_t>(k)][1] = k;
        OrdinaFrequenze(freq);
    } catch (const ErroreEsecuzione& e) {
        MostraErrore(ui, e, ") in procedure Statistiche of Form frmStatistiche");
        return EsitoStatistiche::Errore;
    }
    return EsitoStatistiche::Calcolate;
}

std::vector<uint8_t> NumeriPerFrequenza(const TabelleStatistiche& t) {
    std::vector<uint8_t> numeri;
    if (t.frequenza[1][1] == 0) return numeri;
    for (size_t i = 1; i <= 90; ++i)
        numeri.push_back(static_cast<uint8_t>(t.frequenza[i][1]));
    return numeri;
}

void PronosticoDaFrequenze(Corpo& c, Ui& ui, const std::vector<uint8_t>& numeri, int n, bool piuFrequenti) {
    CancellaPronostico(c, ui);
    const int righe = static_cast<int>(numeri.size());
    for (int k = 0; k < n && k < righe; ++k) {
        const uint8_t numero = numeri[static_cast<size_t>(piuFrequenti ? k : righe - 1 - k)];
        if (numero >= 1 && numero <= 90) GrigliaNumeriClick(c, ui, numero - 1);
    }
}

} // namespace dv
