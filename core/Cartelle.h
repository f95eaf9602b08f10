// The program's data folder and the fixed paths below it.
#pragma once

#include "core/Corpo.h"

#include <string>

namespace dv {

// The sub-folders of AppDir, created at start where missing.
inline constexpr const char* SottoCartelle[] = {"temp", "txt", "sistemi", "archivio", "csv", "matrici", "printer"};

// A path below AppDir, joined with the platform's separator: PercorsoIn(appDir, {"sistemi", "nuovo.dvs"}).
std::string PercorsoIn(const std::string& base, std::initializer_list<const char*> parts);

// Sets AppDir, the archive paths and FileCorrente ("sistemi/nuovo.dvs") with its title, and creates
// AppDir and its sub-folders where missing. A folder that cannot be made is left out silently.
void ImpostaAppDir(Corpo& c, const std::string& appDir);

} // namespace dv
