// Builders shared by the tests that walk archives: a draw, and a date per day.
#pragma once

#include "archive/Estrazione.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace dv::test {

// A draw of the given date (padded with blanks), number and up to twenty numbers.
inline Estrazione Draw(const std::string& data, int concorso, const std::vector<int>& numeri, int oro = 0,
                       int doppio = 0) {
    Estrazione e;
    e.Data.fill(' ');
    std::memcpy(e.Data.data(), data.data(), std::min<size_t>(data.size(), 10));
    e.Concorso = static_cast<int16_t>(concorso);
    for (size_t i = 0; i < numeri.size() && i < 20; ++i)
        e.Numeri[i + 1] = static_cast<uint8_t>(numeri[i]);
    e.NumeroOro = static_cast<uint8_t>(oro);
    e.DoppioOro = static_cast<uint8_t>(doppio);
    return e;
}

// A distinct date for each day 0, 1, 2..., rising with the day while it stays below 336.
inline std::string DateOf(int day) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", 1 + day % 28, 1 + (day / 28) % 12, 2000 + day / 336);
    return buf;
}

} // namespace dv::test
