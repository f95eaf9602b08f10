// The number formats that the printed layouts use, with a decimal point and a comma between
// groups of thousands, whatever the machine's locale, so a job prints the same everywhere.
#pragma once

#include <string>

namespace dv {

// v with the given decimals and thousands grouped by ','. With zeroIniziale false a value below 1
// has no digit before the point, as the pattern "###,###,###.00" gives ".50".
std::string FormatoMigliaia(double v, int decimali, bool zeroIniziale);
// n with at least cifre digits, zeros in front ("00", "00000"); a negative value keeps its sign.
std::string FormatoCifre(long long n, int cifre);

} // namespace dv
