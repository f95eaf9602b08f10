// Run-time faults of the file procedures and the one box that reports them:
// "Error <number> (<description>) in procedure <name> of Modulo corpo".
#pragma once

#include "core/Ui.h"
#include "settings/ScritturaSicura.h"

#include <exception>
#include <string>
#include <string_view>

namespace dv {

// A fault with the classic run-time error number and description, and what went wrong in words
// where that is known ("permission denied"), said after the description.
class ErroreEsecuzione : public std::exception {
public:
    ErroreEsecuzione(int numero, std::string descrizione) : m_numero(numero), m_descrizione(std::move(descrizione)) {}
    ErroreEsecuzione(int numero, const std::string& descrizione, Causa causa)
        : m_numero(numero), m_descrizione(descrizione + ": " + causa.inglese), m_base(descrizione), m_causa(causa) {}
    int numero() const { return m_numero; }
    // In English, with the cause.
    const std::string& descrizione() const { return m_descrizione; }
    // With the cause in the user's language where the language file has it.
    std::string descrizione(Ui& ui) const {
        return m_causa.chiave ? m_base + ": " + TestoCausa(ui, m_causa) : m_descrizione;
    }
    const char* what() const noexcept override { return m_descrizione.c_str(); }

private:
    int m_numero;
    std::string m_descrizione;
    std::string m_base;
    Causa m_causa;
};

// The faults the readers and writers of files raise.
namespace errori {
inline ErroreEsecuzione Overflow() { return {6, "Overflow"}; }
inline ErroreEsecuzione MemoriaEsaurita() { return {7, "Out of memory"}; }
inline ErroreEsecuzione IndiceFuoriIntervallo() { return {9, "Subscript out of range"}; }
inline ErroreEsecuzione TipoNonCorrispondente() { return {13, "Type mismatch"}; }
inline ErroreEsecuzione FileNonTrovato() { return {53, "File not found"}; }
inline ErroreEsecuzione DiscoPieno() { return {61, "Disk full"}; }
inline ErroreEsecuzione AccessoNegato() { return {75, "Path/File access error"}; }
// The fault of a failed save, from the errno (or code of our own) of the failure.
inline ErroreEsecuzione Salvataggio(int codice) {
    if (DiscoEsaurito(codice)) return DiscoPieno();
    return {75, "Path/File access error", CausaErrore(codice)};
}
// The fault of a file that could not be opened for reading, with the reason found on the disk.
inline ErroreEsecuzione Apertura(const std::string& path) {
    const Causa causa = CausaApertura(path);
    if (std::string_view(causa.chiave) == cause::FileMancante.chiave) return FileNonTrovato();
    if (std::string_view(causa.chiave) == cause::CartellaMancante.chiave) return {76, "Path not found"};
    return {75, "Path/File access error", causa};
}
// The fault of a file whose reading failed half-way.
inline ErroreEsecuzione Lettura() { return {75, "Path/File access error", cause::ErroreDisco}; }
} // namespace errori

// "Error 13 (Type mismatch" followed by the closing part, e.g. ") in procedure X of Modulo corpo".
inline std::string TestoErrore(const ErroreEsecuzione& e, std::string_view chiusura) {
    return "Error " + std::to_string(e.numero()) + " (" + e.descrizione() + std::string(chiusura);
}
// The same with the cause in the user's language.
inline std::string TestoErrore(Ui& ui, const ErroreEsecuzione& e, std::string_view chiusura) {
    return "Error " + std::to_string(e.numero()) + " (" + e.descrizione(ui) + std::string(chiusura);
}

// Shows the plain box of a run-time fault, with no icon and the application's title.
inline void MostraErrore(Ui& ui, const ErroreEsecuzione& e, std::string_view chiusura) {
    ui.messageBox(TestoErrore(ui, e, chiusura), "", BoxIcon::None);
}

} // namespace dv
