// The program's data folder and the fixed paths below it.
#pragma once

#include "core/Corpo.h"

#include <string>
#include <string_view>

namespace dv {

// The sub-folders of AppDir, created at start where missing.
inline constexpr const char* SottoCartelle[] = {"temp", "txt", "sistemi", "archivio", "csv", "matrici", "printer"};

// A path below AppDir, joined with the platform's separator: PercorsoIn(appDir, {"sistemi", "nuovo.dvs"}).
std::string PercorsoIn(const std::string& base, std::initializer_list<const char*> parts);

// Sets AppDir, the archive paths and FileCorrente ("sistemi/nuovo.dvs") with its title, and creates
// AppDir and its sub-folders where missing. A folder that cannot be made is left out silently.
// Removes the temporary files a save killed before its rename left in AppDir and its sub-folders.
void ImpostaAppDir(Corpo& c, const std::string& appDir);

// A fresh name for the temporary file of a save of target, beside it: "x.dvs.~dv" then the
// process id and a random part in hex, then ".tmp".
std::string NomeTemporaneo(const std::string& target);

// True when name is a temporary file of a save, of our name pattern, whose process is gone
// (or is this one, at start-up before any save). Other files, and other programs', never match.
bool TemporaneoAbbandonato(std::string_view name);

// Saves in progress are noted, one small file each, in the user's state folder
// ($XDG_STATE_HOME or ~/.local/state, then "Dorvanta/salvataggi"), so that the next start removes
// the temporary file of a killed save wherever it was writing, a system on the desktop as much as
// a file of the data folder. AnnotaSalvataggio returns the note's path, or "" when none could be
// written (the save goes on without it); TogliNota removes it once the temporary file is gone or
// renamed.
std::string AnnotaSalvataggio(const std::string& temporaneo);
void TogliNota(const std::string& nota);
// Removes the temporary files of noted saves whose process has ended, and their notes. Run once
// at the start of the program and of the command line.
void PulisciSalvataggiInterrotti();

} // namespace dv
