// Helpers of the file tests: TempDir for a private temporary folder, a byte builder that writes
// file layouts by hand, independent of the library's field lists, and LeggiFile to read a file.
#pragma once

#include "tests/archive/LeggiFile.h"
#include "tests/settings/TempDir.h"

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace dv::test {

class Bytes {
public:
    std::vector<uint8_t> data;

    Bytes& text(const std::string& s) {
        data.insert(data.end(), s.begin(), s.end());
        return *this;
    }
    Bytes& u8(int v) {
        data.push_back(static_cast<uint8_t>(v));
        return *this;
    }
    Bytes& i16(int v) {
        u8(v & 0xFF);
        return u8((v >> 8) & 0xFF);
    }
    Bytes& i32(int64_t v) {
        for (int i = 0; i < 4; ++i)
            u8(static_cast<int>((v >> (8 * i)) & 0xFF));
        return *this;
    }
    Bytes& str(const std::string& s) {
        i16(static_cast<int>(s.size()));
        return text(s);
    }
    Bytes& fill(size_t n, int v = 0) {
        data.insert(data.end(), n, static_cast<uint8_t>(v));
        return *this;
    }
    void save(const std::string& path) const {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    }
};

} // namespace dv::test
