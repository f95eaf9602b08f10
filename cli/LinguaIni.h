// A small reader of the numbered messages of a language file: the keys of section [Strings]
// of an INI-form text. Kept apart so that the program's language engine can replace it.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace dv::cli {

class LinguaIni {
public:
    // Reads the file now; a missing or unreadable file gives no texts.
    explicit LinguaIni(const std::string& path);
    // The text of the key, without surrounding double quotes; empty when the file has none.
    std::string testo(std::string_view key) const;
    bool caricata() const { return m_caricata; }

private:
    std::map<std::string, std::string, std::less<>> m_testi;
    bool m_caricata = false;
};

// Windows-1252 text as UTF-8, for the terminal.
std::string AnsiToUtf8(std::string_view ansi);

} // namespace dv::cli
