// Columns as plain text: the export, the tolerant import into the system, and the reader of a
// line of numbers that the comparison of text files uses. Text is ANSI; lines end in CRLF.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dv {

// One line of numbers, parsed without touching the system.
struct RecordNumeri {
    std::array<uint8_t, 25> numbers{}; // in the order of the line
    uint8_t least = 0;
    uint8_t greatest = 0;
    uint8_t count = 0;
};

// Tabs and CRLF become blanks, runs of blanks one blank, and both ends are trimmed of blanks.
// A lone LF stays. Changes the line in place and returns it.
std::string& NormalizzaRiga(std::string& riga);

// The numbers of a line separated by blanks, tabs, "-", ",", ";", "." or "|". A part that is no
// number, above 255, or a 26th number is reported in a box; the record then holds the numbers
// before the fault.
RecordNumeri StringToArrayColonna(Ui& ui, std::string_view riga);

// Every line of the file that is not empty, parsed. Element 0 is unused: records start at 1,
// and the result holds one empty record when the file has none.
std::vector<RecordNumeri> LoadTxtToColonneArray(Ui& ui, const std::string& path);
// The same, the file read in blocks of the given size; only tests choose it, to put the ends of
// blocks inside lines and line ends.
std::vector<RecordNumeri> LoadTxtToColonneArray(Ui& ui, const std::string& path, size_t blocco);

// Writes the stored columns, one a line: a blank, then each number as two digits and a blank;
// a cell holding 0 is left out. Returns false after reporting a fault (the old file stays).
bool SalvaColonneTxt(const Corpo& c, Ui& ui, const std::string& path);

// Replaces the system with the columns of a text file: the first line sets LenColonna, the
// forecast becomes the union of all numbers. A part that is no number (13), a number above 255
// (6), a number above 90 or a line shorter than the first (9) stop the import with a box; a
// file of more than 4,000,000 columns is refused. Returns true when the columns were taken.
bool ImportaColonneTxt(Corpo& c, Ui& ui, const std::string& path);

} // namespace dv
