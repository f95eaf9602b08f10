// The language engine: numbered messages and window texts from the language file in use.
// A language file is "<name>.lng" in AppDir, an INI-form file with one section per window and the
// section "Strings" of numbered messages ("0025"). Nothing is cached: each lookup reads the file,
// so a change of CurrentLanguage takes effect at once.
#pragma once

#include <string>
#include <string_view>

namespace dv {

// Files of this many bytes or more are not parsed as INI: ReadLanguageValue scans them as text.
inline constexpr size_t SogliaFileLungo = 64001;

// The value of key in section of a language file; empty when missing or unreadable.
// A file shorter than SogliaFileLungo is read as INI with a buffer of 1024 characters. A longer
// one is scanned line by line: the first line that starts with key, whatever its section and case,
// gives its text behind key and one character for "=", less its first and last character (the
// quotes its values must carry). So a key that is the start of a longer one matches the longer.
std::string ReadLanguageValue(const std::string& file, std::string_view section, std::string_view key);

// The settings file in appDir.
std::string FileImpostazioni(const std::string& appDir);

// The engine's state: where the files are and which language is in use.
struct Lingua {
    std::string AppDir;
    // The language in use, the name of its file without ".lng"; empty until a file has been found.
    std::string CurrentLanguage;

    // The text of a numbered message such as "0025"; empty when it has none. When no language is
    // in use yet, the setting "LINGUA" is taken as the language first.
    std::string Lang(std::string_view key);
    // The path of the language file for CurrentLanguage as it stands, empty when none is in use.
    // The file's name is matched without regard to case, so "ENGLISH" finds "english.lng".
    std::string languageFile() const;
};

// The path of "<name>.lng" in appDir, its name matched without regard to case; when no such file
// exists, the path it would have. Empty for an empty name.
std::string PercorsoLingua(const std::string& appDir, const std::string& name);
// True when appDir holds "<name>.lng", the name compared without regard to case.
bool EsisteLingua(const std::string& appDir, const std::string& name);

} // namespace dv
