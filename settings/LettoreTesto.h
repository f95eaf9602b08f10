// Reading a text file line by line with a bound on the length of a line, so that a damaged file
// (megabytes without a line break) is refused without being read into memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace dv {

class Ui;

class LettoreTesto {
public:
    enum class Esito { Riga, Fine, TroppoLunga, ErroreLettura };

    // Lines end at LF, each losing one CR before it. Only regular files are opened.
    LettoreTesto(const std::string& path, size_t maxRiga);
    ~LettoreTesto();
    LettoreTesto(const LettoreTesto&) = delete;
    LettoreTesto& operator=(const LettoreTesto&) = delete;

    bool aperto() const { return m_file != nullptr; }
    // The next line into riga. A line longer than the bound ends the reading: TroppoLunga, then
    // again on every call, riga holding the first characters of that line.
    Esito leggi(std::string& riga);
    // The number of the line last read, from 1.
    int64_t numeroRiga() const { return m_numero; }
    size_t maxRiga() const { return m_max; }

private:
    bool riempi();

    std::FILE* m_file = nullptr;
    size_t m_max;
    std::unique_ptr<char[]> m_buf;
    size_t m_pos = 0, m_len = 0;
    bool m_troppoLunga = false;
    int64_t m_numero = 0;
};

// At most max characters of a bad line for a message, then "...".
std::string Spezzone(std::string_view riga, size_t max = 40);

// "Line 12 is longer than 4096 characters." in the user's language.
std::string TestoRigaTroppoLunga(Ui& ui, const LettoreTesto& lettore);

} // namespace dv
