// The draw statistics: six counts over a range of the archive in memory, the CSV file with one
// line for each draw of the range, and the date lists the range is chosen from.
#pragma once

#include "archive/Estrazione.h"

#include <array>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace dv {

class Ui;

// More different dates than this and the date lists are refused.
constexpr int MaxDateStatistiche = 32000;

// The counters of one computation, rebuilt each time.
struct TabelleStatistiche {
    std::array<int32_t, 21> consecutivi{}; // slot 1..20: draws whose longest run has that length
    std::array<int32_t, 21> ripetuti{};    // slot 0..20: draws with that many numbers of the draw before
    std::array<int32_t, 21> pari{};        // slot 0..20: draws with that many even numbers
    std::array<int32_t, 21> dispari{};     // slot 0..20: draws with that many odd numbers
    std::array<int32_t, 21> somma{};       // slot 1..20: draws whose sum falls in that band
    // arrayFrequenzaNumeri, slots 1..90: [0] a count, [1] its number. After a computation the
    // slots are sorted by count, highest first.
    std::array<std::array<int32_t, 2>, 91> frequenza{};
    // The first and the last record of the range counted; 0 when nothing was.
    int32_t primo = 0;
    int32_t ultimo = 0;
};

// The range as the four lists give it: dates as they stand in the archive, and the draw numbers
// within them.
struct IntervalloStatistiche {
    std::string dal, al;
    int32_t concDal = 1;
    int32_t concAl = 288;
};

// The sum's band, 1..20, or 0 for a sum outside 210..1610: band 1 is 210-280, band k from 2 on
// is 70(k+2)+1 to 70(k+3).
int BandaSomma(int somma);
// The least and the greatest sum of band 1..20.
int MinimoBanda(int banda);
int MassimoBanda(int banda);

// The different dates of the archive in the order they first appear (a date equal to the one of
// the record before is not looked up again). With more than MaxDateStatistiche dates it shows the
// box "Errore dimensione archivio" and returns false; date then holds the first ones found.
bool ElencoDateEstrazioni(const ArrayEstrazioni& a, std::vector<std::string>& date, Ui& ui);

// The first and the last record of the range. The first is the first record of the date dal whose
// Concorso reaches concDal, else the last of that date; the last, searched from the first on, the
// same for al and concAl, or the archive's last record when al is not found after the first.
// Throws ErroreEsecuzione: -2147211504 with the text of "0022" when al lies before dal, 9 when dal
// is not a date of the archive.
void TrovaIntervallo(const ArrayEstrazioni& a, const IntervalloStatistiche& r, Ui& ui, int32_t& primo,
                     int32_t& ultimo);

// The heading line of the CSV file, without its line end, in the ANSI code page.
std::string IntestazioneCsvStatistiche(int32_t tipoArchivio, Ui& ui);

enum class EsitoStatistiche { Vuoto, Calcolate, Errore };

// Where the text of the CSV file goes, in pieces of many lines.
class UscitaCsv {
public:
    virtual ~UscitaCsv() = default;
    virtual void scrivi(const char* testo, size_t lunghezza) = 0;
};

// The CSV text kept in memory.
class TestoCsv : public UscitaCsv {
public:
    std::string testo;
    void scrivi(const char* p, size_t n) override { testo.append(p, n); }
};

// The computation over the range: the counters into t, and into csv (when not null) the heading
// and one line for each draw from the newest of the range back to its first, each ended by CR LF.
// Vuoto for an empty archive (counters cleared, no text). A failure shows the box that names
// "Statistiche of Form frmStatistiche" and gives Errore; t and csv hold what was done until then.
EsitoStatistiche CalcolaStatistiche(const ArrayEstrazioni& a, int32_t tipoArchivio,
                                    const IntervalloStatistiche& r, Ui& ui, TabelleStatistiche& t,
                                    UscitaCsv* csv);

// The exchange sort of the frequency table: count highest first, and slots with equal counts
// exchanged as well, which decides their order.
void OrdinaFrequenze(std::array<std::array<int32_t, 2>, 91>& f);

// The path of a new CSV file in tempFolder: "dorvantaqvn_yyyymmdd_hhmmss.csv" for the time given.
std::string PercorsoCsvStatistiche(const std::string& tempFolder, std::time_t ora);

// Removes the CSV files of earlier runs from tempFolder: every "dorvantaqvn_*.csv".
void PulisciCsvStatistiche(const std::string& tempFolder);

// The computation of the window: counters cleared; for an archive that is not empty the earlier
// CSV files removed from tempFolder and the new one written at csvPath (beside it first, then
// renamed), also when the computation fails half-way.
EsitoStatistiche Statistiche(const ArrayEstrazioni& a, int32_t tipoArchivio, const IntervalloStatistiche& r,
                             const std::string& tempFolder, const std::string& csvPath, Ui& ui,
                             TabelleStatistiche& t);

// Writes text to path, beside it first and renamed when complete. Throws ErroreEsecuzione.
void ScriviTestoSicuro(const std::string& path, const std::string& text);

struct Corpo;

// The number column of the sorted frequency table, most frequent first: 90 numbers, or none when
// the last computation did not get as far as numbering the table.
std::vector<uint8_t> NumeriPerFrequenza(const TabelleStatistiche& t);

// The forecast from the frequency table: the forecast cleared, then the numbers of rows 1..n (the
// most frequent) or of rows 90 down to 91-n (the least frequent) selected on the grid in that
// order. With no numbers only the clearing.
void PronosticoDaFrequenze(Corpo& c, Ui& ui, const std::vector<uint8_t>& numeri, int n, bool piuFrequenti);

// One row of a chart: its label, " --> " and the value behind it ("05 -->      12"), and the value.
struct RigaGrafico {
    std::string etichetta;
    int32_t valore = 0;
};

constexpr int NumeroGrafici = 6;
// The key of the title of chart 0..5: consecutive, repeats, even, odd, sum, frequency.
const char* ChiaveTitoloGrafico(int indice);
// The rows of chart 0..5 from the counters: 20 runs (01..20), 21 repeats, even and odd counts
// (00..20), 20 sum bands ("0210-0280"), and the 90 numbers in the frequency table's order.
std::vector<RigaGrafico> RigheGrafico(const TabelleStatistiche& t, int indice);

} // namespace dv
