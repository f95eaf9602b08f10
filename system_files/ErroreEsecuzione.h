// Run-time faults of the file procedures and the one box that reports them:
// "Error <number> (<description>) in procedure <name> of Modulo corpo".
#pragma once

#include "core/Ui.h"

#include <exception>
#include <string>
#include <string_view>

namespace dv {

// A fault with the classic run-time error number and description.
class ErroreEsecuzione : public std::exception {
public:
    ErroreEsecuzione(int numero, std::string descrizione) : m_numero(numero), m_descrizione(std::move(descrizione)) {}
    int numero() const { return m_numero; }
    const std::string& descrizione() const { return m_descrizione; }
    const char* what() const noexcept override { return m_descrizione.c_str(); }

private:
    int m_numero;
    std::string m_descrizione;
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
// The same fault with what went wrong in words, e.g. "permission denied".
inline ErroreEsecuzione AccessoNegato(const std::string& motivo) { return {75, "Path/File access error: " + motivo}; }
} // namespace errori

// "Error 13 (Type mismatch" followed by the closing part, e.g. ") in procedure X of Modulo corpo".
inline std::string TestoErrore(const ErroreEsecuzione& e, std::string_view chiusura) {
    return "Error " + std::to_string(e.numero()) + " (" + e.descrizione() + std::string(chiusura);
}

// Shows the plain box of a run-time fault, with no icon and the application's title.
inline void MostraErrore(Ui& ui, const ErroreEsecuzione& e, std::string_view chiusura) {
    ui.messageBox(TestoErrore(e, chiusura), "", BoxIcon::None);
}

} // namespace dv
