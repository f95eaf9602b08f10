#include "settings/Ansi.h"

#include <array>
#include <cstdint>

namespace dv {

namespace {

// Code points of bytes 0x80..0x9F; the undefined ones stand for themselves.
constexpr std::array<char32_t, 32> Cp1252Alti = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t cp) {
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

char ansiOf(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
    for (size_t i = 0; i < Cp1252Alti.size(); ++i)
        if (Cp1252Alti[i] == cp) return static_cast<char>(0x80 + i);
    return '?';
}

unsigned char minuscola(unsigned char c) {
    if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return static_cast<unsigned char>(c + 32);
    return c;
}

} // namespace

std::string AnsiToUtf8(std::string_view ansi) {
    std::string out;
    out.reserve(ansi.size());
    for (char ch : ansi) {
        const auto c = static_cast<unsigned char>(ch);
        if (c < 0x80) out += ch;
        else if (c < 0xA0) appendUtf8(out, Cp1252Alti[c - 0x80]);
        else appendUtf8(out, c);
    }
    return out;
}

std::string Utf8ToAnsi(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    size_t i = 0;
    while (i < utf8.size()) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if (c < 0x80) {
            out += static_cast<char>(c);
            ++i;
            continue;
        }
        const int extra = (c & 0xE0) == 0xC0 ? 1 : (c & 0xF0) == 0xE0 ? 2 : (c & 0xF8) == 0xF0 ? 3 : -1;
        if (extra < 0 || i + static_cast<size_t>(extra) >= utf8.size()) {
            out += '?';
            ++i;
            continue;
        }
        char32_t cp = c & (0x3F >> extra);
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            const auto t = static_cast<unsigned char>(utf8[i + static_cast<size_t>(k)]);
            if ((t & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            cp = (cp << 6) | (t & 0x3F);
        }
        if (!ok) {
            out += '?';
            ++i;
            continue;
        }
        out += ansiOf(cp);
        i += static_cast<size_t>(extra) + 1;
    }
    return out;
}

bool UgualiSenzaMaiuscole(std::string_view a, std::string_view b) {
    return a.size() == b.size() && IniziaSenzaMaiuscole(a, b);
}

bool IniziaSenzaMaiuscole(std::string_view text, std::string_view prefix) {
    if (prefix.size() > text.size()) return false;
    for (size_t i = 0; i < prefix.size(); ++i)
        if (minuscola(static_cast<unsigned char>(text[i])) != minuscola(static_cast<unsigned char>(prefix[i])))
            return false;
    return true;
}

std::string MaiuscoleAscii(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

} // namespace dv
