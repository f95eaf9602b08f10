// The whole content of a file as bytes; empty when it cannot be read.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace dv::test {

inline std::string LeggiFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace dv::test
