// The ".dvs" system file: one complete working state, written in the current version and read
// in every version from "dvqsy000001".
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

#include <string>

namespace dv {

constexpr const char* FirmaSistema = "dvqsy000005";
constexpr size_t LunghezzaFirma = 11;

// How an ApriFile ended.
enum class EsitoApriFile {
    NessunFile, // empty path: only the recompute-mode unlock ran
    Aperto,     // the state is the file's
    Rifiutato,  // a box told why; the state is empty (or untouched for a newer signature)
    Errore,     // a run-time fault was reported; the state keeps what was read up to it
};

// Writes the state to path, replacing the file only once the new one is complete.
// Returns false for an empty path or after reporting a fault (the old file then stays intact).
bool SalvaFile(Corpo& c, Ui& ui, const std::string& path);

// Replaces the state with the file's. Double quotes are removed from the path first; the
// clean path becomes FileCorrente once the file has opened. Records of FiltriOR and FiltriXOR read from the file go
// behind those already in memory. Every count and length read is bounded before use.
EsitoApriFile ApriFile(Corpo& c, Ui& ui, const std::string& path);

} // namespace dv
