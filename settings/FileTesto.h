// Whole-file reads and writes of the small text files the settings live in.
#pragma once

#include <optional>
#include <string>

namespace dv {

#ifdef _WIN32
inline constexpr const char* FineRigaNativa = "\r\n";
inline constexpr char SeparatoreCartelle = '\\';
#else
inline constexpr const char* FineRigaNativa = "\n";
inline constexpr char SeparatoreCartelle = '/';
#endif

// Files longer than this are not settings or language files: reading them gives nothing.
inline constexpr size_t MaxFileTesto = 16u * 1024u * 1024u;

// The bytes of the file in the ANSI code page, or nothing when it is missing, unreadable or too
// long. A file that starts with a UTF-8 byte-order mark is taken as UTF-8 and converted.
std::optional<std::string> LeggiFileTesto(const std::string& path);
// Writes content beside the file and puts it in the file's place once complete; false on failure,
// the file then being as it was.
bool ScriviFileTesto(const std::string& path, const std::string& content);

} // namespace dv
