// The converter from the archive's text format to the archive file of 34-byte records.
//
// A draw line holds exactly 24 fields: date, number of the draw, twenty numbers, Numero Oro,
// Doppio Oro. TAB, "-", ",", ";", "." and "|" each count as one blank, and the line is split at
// every blank with empty fields kept, so two separators in a row make a line of more than 24
// fields, which is no draw line. Every other line (headings, blank lines, trailers) is skipped.
#pragma once

#include "settings/ScritturaSicura.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dv {

class Ui;

// How a conversion ended.
struct EsitoConversione {
    enum class Tipo {
        Completata,          // the target holds every draw line of the source
        SorgenteIlleggibile, // the source could not be opened or read
        CampoNonValido,      // a field of a draw line could not be converted
        ScritturaFallita,    // the new target could not be written or put in place
    };
    Tipo tipo = Tipo::Completata;
    int64_t estrazioni = 0;  // records written (all of them when completed)
    int64_t riga = 0;        // CampoNonValido: the line, from 1
    int campo = -1;          // CampoNonValido: the field, from 0
    std::string testo;       // CampoNonValido: the field's text (at most 40 characters)
    int numeroErrore = 0;    // the run-time error number: 13 no number, 6 out of range, 53, 75
    std::string descrizione; // its description ("Type mismatch", "Overflow", ...)
    Causa causa;             // SorgenteIlleggibile, ScritturaFallita: what went wrong, in words

    bool completata() const { return tipo == Tipo::Completata; }
};

// Builds the archive file at target from the text file at source. The records are written
// beside the target and put in its place only when the whole source converted: on any failure
// the target stays byte for byte as it was. Lines end in CR LF, LF or CR. Nothing is sorted,
// nothing removed, and no date is checked (the loader does that).
EsitoConversione ConvertArchivioTmpToDat(const std::string& source, const std::string& target);

// The one message that tells the user why a conversion failed, in the language of ui; it names
// the line and the field, and says that the previous archive was kept.
std::string MessaggioConversione(const EsitoConversione& esito, const std::string& source, Ui& ui);

// One draw line converted into the 34 bytes of its record. Returns -1 when the line is no draw
// line (other than 24 fields), 0 when it was converted, and otherwise the run-time error number
// of the first field that failed, with the field's index in *campo.
int ConvertiRigaEstrazione(std::string_view riga, char* record, int* campo);

} // namespace dv
