#include "cli/LinguaIni.h"

#include <algorithm>
#include <cctype>
#include <fstream>

namespace dv::cli {

namespace {

std::string Pulito(std::string s) {
    auto blank = [](unsigned char ch) { return std::isspace(ch) != 0; };
    s.erase(s.begin(), std::find_if_not(s.begin(), s.end(), blank));
    s.erase(std::find_if_not(s.rbegin(), s.rend(), blank).base(), s.end());
    return s;
}

bool StessoNome(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

} // namespace

LinguaIni::LinguaIni(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return;
    m_caricata = true;
    bool inStrings = false;
    std::string line;
    while (std::getline(in, line)) {
        line = Pulito(line);
        if (line.empty() || line[0] == ';') continue;
        if (line.front() == '[') {
            const size_t close = line.find(']');
            inStrings = close != std::string::npos && StessoNome(Pulito(line.substr(1, close - 1)), "Strings");
            continue;
        }
        const size_t eq = line.find('=');
        if (!inStrings || eq == std::string::npos) continue;
        std::string value = Pulito(line.substr(eq + 1));
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"') value = value.substr(1, value.size() - 2);
        m_testi.emplace(Pulito(line.substr(0, eq)), value);
    }
}

std::string LinguaIni::testo(std::string_view key) const {
    const auto it = m_testi.find(key);
    return it == m_testi.end() ? std::string() : it->second;
}

std::string AnsiToUtf8(std::string_view ansi) {
    // Code points of 0x80..0x9F in Windows-1252; 0 marks the five unused bytes.
    static constexpr char16_t Alti[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                          0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
    std::string out;
    out.reserve(ansi.size());
    for (char ch : ansi) {
        const auto b = static_cast<unsigned char>(ch);
        unsigned cp = b;
        if (b >= 0x80 && b < 0xA0) cp = Alti[b - 0x80] ? Alti[b - 0x80] : '?';
        if (cp < 0x80) {
            out += static_cast<char>(cp);
        } else if (cp < 0x800) {
            out += static_cast<char>(0xC0 | (cp >> 6));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | (cp >> 12));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        }
    }
    return out;
}

} // namespace dv::cli
