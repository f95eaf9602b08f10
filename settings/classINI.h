// Keyed access to an INI-form text file in the ANSI code page, behaving as the platform's profile
// calls do: sections and keys are found without regard to case, a value read is cut to what a
// buffer of 255 characters holds, a write makes the file and the section when they are missing and
// leaves every other line of the file as it was, and a missing file gives the default.
// Texts in and out are UTF-8; the file holds them in Windows-1252.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dv {

class classINI {
public:
    // The buffer of the platform's read: a value keeps at most this many characters less one.
    static constexpr size_t BufferLettura = 255;

    classINI() = default;
    explicit classINI(std::string fileIni) : FileINI(std::move(fileIni)) {}

    // The file's path.
    std::string FileINI;

    // The value of key in section, or def when the file, the section or the key is missing.
    // A key present with an empty value gives the empty text.
    std::string getProperty(std::string_view section, std::string_view key, std::string_view def) const;
    // Writes key=value in section; false when the file could not be written.
    bool setProperty(std::string_view section, std::string_view key, std::string_view value) const;

    // The value read as a whole number by its leading digits (0 when it has none), or def when
    // the key is missing.
    int getInt(std::string_view section, std::string_view key, int def = -1) const;
    bool setInt(std::string_view section, std::string_view key, int value) const;
    // The value, or the empty text when the key is missing.
    std::string getText(std::string_view section, std::string_view key) const {
        return getProperty(section, key, "");
    }
    bool setText(std::string_view section, std::string_view key, std::string_view value) const {
        return setProperty(section, key, value);
    }

    // The value of key in section of the file at path, read with a buffer of bufferSize characters,
    // or def. Shared with the language engine, whose buffer is larger.
    static std::string leggi(const std::string& path, std::string_view section, std::string_view key,
                             std::string_view def, size_t bufferSize);
};

// The leading whole number of a text after blanks, as a user's value "12abc" reads 12; 0 for none.
long long ValoreIniziale(std::string_view text);

} // namespace dv
