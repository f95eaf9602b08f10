// Filling a whole filter table at a stroke: each draw of a range of the archive becomes a filter
// column, or each line of a text file does. Also the ready-made ranges of draws the import offers.
#pragma once

#include "archive/Estrazione.h"
#include "core/Corpo.h"
#include "core/Ui.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dv {

// A filter column of the given numbers: each value 1..90 sets its element of Numeri (others are
// ignored), Presenze is the mask, Stato is ON.
ColonnaFiltro ColonnaFiltroDaNumeri(const uint8_t* numeri, int count, int32_t mask);

// The sum of 2^k of the allowed counts k (0..25) that are set.
int32_t MascheraPresenze(const std::array<bool, 26>& presenze);

// A range of draws as the import window's four lists hold it.
struct IntervalloImport {
    std::string dal, al;         // dates as in the archive, "dd/mm/yyyy"
    std::string concDal, concAl; // draw numbers, as text
};

// The dates of the archive, each once, in archive order: the Data of every draw that differs from
// the draw before. Empty for an empty archive.
std::vector<std::string> DateArchivio(const ArrayEstrazioni& archivio);
// The latest n draws: from draw max(1, UBound - n + 1) to the last one, dates and draw numbers.
IntervalloImport UltimeEstrazioni(const ArrayEstrazioni& archivio, int32_t n);
// The latest n dates of the archive, whole days (draw numbers "1" to "288").
IntervalloImport UltimiGiorni(const ArrayEstrazioni& archivio, int n);

// The text of the warning at the limit of a table: "Raggiunto il limite di 150000 colonne filtro".
std::string TestoLimiteFiltri();

// Erases table and writes one filter for each draw from the first of dateDal with a draw number
// not below concDal to the first of dateAl with one not below concAl (within a date, the last draw
// of it when none is). Returns the count written; 0 when a date is empty (the table then stays).
// Stops with the warning at archive index 150,000. A start after the end ends in the message box
// of loadArchiveToFilters and 0.
int32_t loadArchiveToFilters(TabellaFiltri& table, const ArrayEstrazioni& archivio, Ui& ui,
                             const std::string& dateDal, const std::string& dateAl, int32_t concDal,
                             int32_t concAl, int32_t mask);

// How a line of a filter file was read.
struct RigaFiltro {
    enum class Esito { Ok, FuoriIntervallo, NonNumero } esito = Esito::Ok;
    ColonnaFiltro colonna;
    std::string campo; // the field that is above 90 or no number
};

// The numbers of a line separated by blanks, TAB, "-", ",", ";" or "."; each sets its element of
// Numeri; Stato ON and Presenze the mask. A value above 90, or a field that is no whole number
// (an empty one between two separators too), is reported in esito and campo.
RigaFiltro RigaToColonnaFiltro(std::string_view line, int32_t mask);

// Reads a text file of filter columns, one a line, up to 150,000 (with the warning when the count
// reaches it). Lines that hold a number above 90 are left out and named in one box at the end.
// A field that is no number ends the import with a box naming its line; a file that cannot be read
// likewise. Then nothing is returned and the table is left as it was; otherwise the table holds
// exactly the filters read and their count is returned.
std::optional<int32_t> loadFileToFilters(TabellaFiltri& table, Ui& ui, const std::string& path, int32_t mask);

} // namespace dv
