// The archive check: the whole system against a stretch of the archive in memory, one row per
// draw, with what the system would have won and cost; and the grid's texts, the same for the
// window, its CSV file and the command line.
#pragma once

#include "archive/Estrazione.h"
#include "core/Corpo.h"
#include "core/Ui.h"
#include "prize/PianiColonne.h"
#include "system_files/GrigliaCsv.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace dv {

// The most dates that the date lists hold.
constexpr int32_t MaxDateSpoglio = 32000;
inline constexpr const char* TitoloArchivioTroppoGrande = "Errore dimensione archivio";
inline constexpr const char* TestoArchivioTroppoGrande =
    "Error : Archivio superiore alla dimensione massima...Spoglio Estrazioni non disponibile";

// The distinct dates of the archive, in the order of first appearance, for cmbDal and cmbAl.
// False, after the critical box, when there are more than 32000: the list then holds the dates
// read up to that point. An empty archive gives no date.
bool DateSpoglio(const ArrayEstrazioni& a, Ui& ui, std::vector<std::string>& date);

// The stretch between two dates and two draw numbers, as indices into the archive; the dates
// are compared as the records' text. Both indices always lie in 1..UBound.
struct Tratto {
    int32_t primo = 1, ultimo = 1;
};
Tratto TrovaTratto(const ArrayEstrazioni& a, const std::string& dal, int32_t concDal, const std::string& al,
                   int32_t concAl);

// True when the date text dd/mm/yyyy of al lies before that of dal.
bool DataPrecedente(const std::string& al, const std::string& dal);

// One draw of the stretch.
struct RigaSpoglio {
    int32_t indice = 0;   // the record in the archive
    bool saltata = false; // an Oro number not drawn: the row stays empty
    uint8_t Base = 0, Max = 0, Min = 10;
    bool oro1 = false, oro2 = false;
    std::array<int32_t, 11> Vincite{};
    int32_t euro = 0;
};

struct RisultatoEstrazioni {
    std::vector<RigaSpoglio> righe;
    std::array<int32_t, 16> Totali{};
    int32_t TotGiocato = 0, TotVinto = 0, NumEstrazioni = 0;
    bool fermato = false; // the user stopped the run: the rows are not complete
};

// Checks the system against the draws tratto.primo..tratto.ultimo of the archive. A draw whose
// Oro number the kind of play needs but that is not drawn gets its box and an empty row, and still
// counts as played. Leaves the last draw's Oro numbers in OroSpoglio and DoppioOroSpoglio. The
// length must be at most 10.
RisultatoEstrazioni SpoglioArchivio(Corpo& c, Ui& ui, Tratto tratto, AvanzamentoSpoglio& avanzamento,
                                    ModoSpoglio modo = ModoSpoglio::Automatico);

// What the archive check reads of the state besides the columns, copied so that the check can run
// on a thread of its own while the state goes on.
struct GiocataSpoglio {
    int len = 0;
    int tipo = 1;
    float importo = 1.0f, costoColonna = 1.0f;
    int32_t numColonne = 0;
    int quanti = 0;
    std::array<uint8_t, 90> numeri{};
    static GiocataSpoglio da(const Corpo& c);
};
// The same check on planes of the columns and an archive given apart; the caller then puts the
// last draw's Oro numbers into OroSpoglio and DoppioOroSpoglio.
RisultatoEstrazioni SpoglioArchivio(const GiocataSpoglio& g, const ArrayEstrazioni& a,
                                    const PianiColonne& piani, Tratto tratto, Ui& ui,
                                    AvanzamentoSpoglio& avanzamento,
                                    ModoSpoglio modo = ModoSpoglio::Automatico);

// The box of a draw skipped for its Oro number.
std::string TestoOroMancante(Ui& ui, const Estrazione& e, bool doppio);

// The grid: 20 columns; the header, the totals row (sep between thousands of the total won) and
// the row of a draw.
constexpr int ColonneGrigliaSpoglio = 20;
std::vector<std::string> IntestazioneSpoglio();
std::vector<std::string> TotaliSpoglio(const RisultatoEstrazioni& r, char sep);
std::vector<std::string> CelleSpoglio(const Estrazione& e, const RigaSpoglio& riga);
// Background colours of a draw row's cells as 0xBBGGRR, -1 for none; that of the totals row.
int32_t ColoreCellaSpoglio(int colonna);
constexpr int32_t ColoreTotaliSpoglio = 0xffff80;

// The whole grid as text, for the CSV file and the command line: row 0 the header, row 1 the
// totals, then the draws. It reads a and r, which must outlive it.
GrigliaTesti GrigliaSpoglio(const ArrayEstrazioni& a, const RisultatoEstrazioni& r, char sep);

// The name of the CSV file: TitoloFile with ".dvs", then ".txt", made ".csv".
std::string NomeCsv(const std::string& titoloFile);

} // namespace dv
