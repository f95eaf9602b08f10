// The entry "PDF" of every printer list: printing to it writes a PDF file chosen in a save dialog,
// as desktop systems offer a PDF printer. A machine without printers still lists it.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace dv {

inline constexpr const char* NomeStampantePdf = "PDF";

// The printers' names with "PDF" behind them, unless a printer bears that name already.
inline std::vector<std::string> ConStampantePdf(std::vector<std::string> nomi) {
    if (std::find(nomi.begin(), nomi.end(), NomeStampantePdf) == nomi.end())
        nomi.emplace_back(NomeStampantePdf);
    return nomi;
}

} // namespace dv
