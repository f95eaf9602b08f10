// The archive store: the loader of the archive files and the rules every consumer relies on.
#pragma once

#include "archive/Estrazione.h"

#include <string>
#include <string_view>

namespace dv {

class Ui;

// True when text starts with a real date in the form dd/mm/yyyy (blanks may follow).
bool IsDate(std::string_view text);

// Reads an archive file of 34-byte records. Records whose Data is no real date are dropped without
// a word (so is an incomplete last record); a missing file is created empty. The result holds at
// least one element beside element 0: a blank draw when nothing was read. A failure of the file
// system ends in the message box that names LoadArchivioDAT and a one-blank-element result.
// archivioDir is the data folder's "archivio", created when it is missing.
ArrayEstrazioni LoadArchivioDAT(const std::string& path, const std::string& archivioDir, Ui& ui);

// The empty-archive rule: upper bound 1 and the first element has no valid date.
bool ArchivioVuoto(const ArrayEstrazioni& a);

// The blank-draw rule: a draw whose first number is 0 has no numbers.
inline bool EstrazioneVuota(const Estrazione& e) {
    return e.Numeri[1] == 0;
}

// The archive window's text of one draw: two blanks, Data, "   |   ", Concorso as "000", "   |   ",
// the numbers as two digits joined by three blanks (zeros left out), "   |        ", NumeroOro as
// "00" or two blanks when absent, "       |      ", DoppioOro the same, and 24 blanks.
std::string RigaEstrazione(const Estrazione& e);

// The 34 bytes of one record, and a record read back from them.
std::array<char, DimensioneRecordEstrazione> RecordEstrazione(const Estrazione& e);
Estrazione EstrazioneDaRecord(const char* record);

} // namespace dv
