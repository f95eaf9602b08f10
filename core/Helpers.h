// Small stateless helpers shared by the engine, the files and the windows.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

#include <cstdint>
#include <string>

namespace dv {

// A whole number in the pattern "#,##0" with sep between groups of three digits.
std::string FormatIntero(double value, char sep = '.');
// The text " #,###,###,###,##0" that the progress window and its boxes show.
inline std::string FormatContatore(double value, char sep = '.') {
    std::string s(1, ' ');
    s += FormatIntero(value, sep);
    return s;
}

// The non-zero values, each as at least two digits, joined by that many blanks.
std::string NumeriToString(const uint8_t* values, int count, int blanks);
// The indices 0..len of the mask's set bits, each as two digits and a blank, trimmed.
std::string MaskToString(int32_t mask, int len);
// "YYYYMMDD" of a date given as days since 30 December 1899.
std::string DataToYYYYMMDD(double date);
// Exchange sort, ascending, of the first len bytes.
void OrdinaColonna(uint8_t* col, int len);

// How the language in use writes figures: the separator between groups of three digits ("0221")
// and before decimals ("0222"); "." and "," when the language file does not say.
char SeparatoreMigliaia(Ui& ui);
char SeparatoreDecimali(Ui& ui);
// A figure with two decimals, "#,##0.00" with the separators given.
std::string FormatDecimale(double value, char migliaia, char decimali);

// text with "%1" replaced by a1 and "%2" by a2.
std::string TestoCon(std::string text, const std::string& a1, const std::string& a2 = {});

// The text of the elapsed-time box: "D Days HH:MM:SS" ("Day" for exactly one), of the seconds
// rounded to the nearest whole second.
std::string TestoTempoTrascorso(double seconds);

// The description of the system that the conditions in force give.
std::string DescrizioneSistema(const Corpo& c, Ui& ui);
// The warning shown when a run reaches 4,000,000 columns.
void AvvisoLimiteColonne(Ui& ui);

// Asks "0060" and, on yes, puts the stored columns in a random order drawn from seed.
// Returns true when the columns were shuffled.
bool MescolaColonne(Corpo& c, Ui& ui, uint32_t seed);
// Seconds since midnight, local time: the seed of the program's random orders.
uint32_t SecondiDaMezzanotte();

} // namespace dv
