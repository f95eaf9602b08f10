// The archive's converter and loader written as plainly as the rules read, line by line and field
// by field, as the reference the program's own code is checked against in tests and benchmarks.
#pragma once

#include "archive/Estrazione.h"

#include <cstdint>
#include <string>

namespace dv::reference {

struct ConversioneLetterale {
    std::string records; // the 34-byte records written, in order
    int64_t riga = 0;    // on a failure: the line (from 1), the field and the error number
    int campo = -1;
    int errore = 0;
};

// Converts the whole text of a source: each line with the six separators replaced by blanks one
// after the other, split at every blank, taken only with exactly 24 fields.
ConversioneLetterale ConvertiLetterale(const std::string& sorgente);

// Reads 34-byte records one at a time, keeping those whose date is a real dd/mm/yyyy date,
// growing by 5000; one blank element for an empty archive.
ArrayEstrazioni CaricaLetterale(const std::string& path);

} // namespace dv::reference
