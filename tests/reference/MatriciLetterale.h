// The matrix checks as literal loops: the guarantee by every subset against every column with
// bytes compared one by one, and the seal computed a byte at a time from the table while the file
// is read byte by byte. References for tests and benchmarks only.
#pragma once

#include "matrix/Catalogo.h"
#include "matrix/cCRC32.h"

#include <cstdio>
#include <filesystem>
#include <vector>

namespace dv::test {

struct GaranziaLetterale {
    uint64_t subsets = 0;
    uint64_t covered = 0;
    std::vector<std::vector<uint8_t>> holes;
};

// colonne: each a list of indices 1..v.
inline GaranziaLetterale VerificaGaranziaLetterale(int v, int m, int t,
                                                   const std::vector<std::vector<uint8_t>>& colonne) {
    GaranziaLetterale out;
    std::vector<int> s(static_cast<size_t>(m));
    for (int i = 0; i < m; ++i)
        s[static_cast<size_t>(i)] = i + 1;
    if (m > v) return out;
    while (true) {
        ++out.subsets;
        bool coperto = false;
        for (const auto& col : colonne) {
            int comuni = 0;
            for (int x : s)
                for (uint8_t y : col)
                    if (x == y) {
                        ++comuni;
                        break;
                    }
            if (comuni >= t) {
                coperto = true;
                break;
            }
        }
        if (coperto)
            ++out.covered;
        else
            out.holes.emplace_back(s.begin(), s.end());
        int i = m - 1;
        while (i >= 0 && s[static_cast<size_t>(i)] == v - m + i + 1)
            --i;
        if (i < 0) break;
        ++s[static_cast<size_t>(i)];
        for (int j = i + 1; j < m; ++j)
            s[static_cast<size_t>(j)] = s[static_cast<size_t>(j) - 1] + 1;
    }
    return out;
}

// The seal checked as the file is read a byte at a time.
inline bool CheckMatrixCrcLetterale(const std::string& path, const cCRC32& crc) {
    std::FILE* f = std::fopen(path.c_str(), "rb");
    if (!f) return false;
    std::error_code ec;
    const auto len = std::filesystem::file_size(path, ec);
    if (ec || len < 4) {
        std::fclose(f);
        return false;
    }
    uint32_t stato = 0xFFFFFFFFu;
    for (uintmax_t i = 0; i < len - 4; ++i) {
        const int b = std::fgetc(f);
        if (b == EOF) break;
        stato = (stato >> 8) ^ crc.tabella()[(stato ^ static_cast<uint32_t>(b)) & 0xFF];
    }
    uint32_t stored = 0;
    for (int i = 0; i < 4; ++i)
        stored |= static_cast<uint32_t>(std::fgetc(f) & 0xFF) << (8 * i);
    std::fclose(f);
    return ~stato == stored;
}

} // namespace dv::test
