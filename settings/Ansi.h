// Text in the program's files is in the ANSI code page (Windows-1252); text in memory is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace dv {

// Windows-1252 bytes to UTF-8. The five bytes that the code page leaves undefined map to the
// control characters of the same value, as the platform's own conversion does.
std::string AnsiToUtf8(std::string_view ansi);
// UTF-8 to Windows-1252. A character the code page lacks, or a broken UTF-8 sequence, becomes "?".
std::string Utf8ToAnsi(std::string_view utf8);

// ASCII and Latin-1 letters compared without regard to case, byte by byte, on Windows-1252 text.
bool UgualiSenzaMaiuscole(std::string_view a, std::string_view b);
// True when text starts with prefix, compared as UgualiSenzaMaiuscole does.
bool IniziaSenzaMaiuscole(std::string_view text, std::string_view prefix);

// The text with its ASCII letters in upper case, as language names are shown and stored.
std::string MaiuscoleAscii(std::string text);

} // namespace dv
