// Recorded print operations as lines, for the layouts' tests.
#pragma once

#include "print/RegistroStampa.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace dv::test {

inline std::vector<std::string> Righe(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        out.push_back(line);
    return out;
}

inline long Conta(const std::vector<std::string>& ops, const std::string& op) {
    return std::count(ops.begin(), ops.end(), op);
}

inline long ContaInizio(const std::vector<std::string>& ops, const std::string& prefix) {
    return std::count_if(ops.begin(), ops.end(),
                         [&](const std::string& s) { return s.rfind(prefix, 0) == 0; });
}

// True when the lines of seq follow one another somewhere in ops.
inline bool Segue(const std::vector<std::string>& ops, const std::vector<std::string>& seq) {
    return std::search(ops.begin(), ops.end(), seq.begin(), seq.end()) != ops.end();
}

} // namespace dv::test
