// The temporary folder, folder creation, and the language files that ship with the program.
#pragma once

#include <string>

namespace dv {

// AppDir's "temp" folder with its closing separator, made when it does not exist.
std::string GetTempFolder(const std::string& appDir);

// Makes the folder and every missing parent; true when it exists afterwards. A path without a
// separator is refused.
bool MakeFolder(const std::string& path);

// Copies every ".lng" file of shippedDir into appDir when appDir holds none, so that a machine
// without network has its texts at once. Returns the number of files copied.
int CopiaLingueIniziali(const std::string& shippedDir, const std::string& appDir);

} // namespace dv
