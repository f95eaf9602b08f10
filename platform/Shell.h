// The platform's shell, its system folders and its printers.
#pragma once

#include <string>
#include <vector>

namespace dv {

// System folders by the shell's numbers.
inline constexpr int CartellaDesktop = 16;
inline constexpr int CartellaDatiComuni = 35;

// The path of a system folder: 16 the desktop; 35 the data folder the program keeps its files in
// (the user's XDG data folder on Linux, the common application data folder on Windows). Empty for
// a number the platform has no folder for.
std::string GetSpecialFolder(int number);

// The program's data folder: GetSpecialFolder(35) and "Dorvanta", with the platform's separators.
std::string AppDirPredefinito();

// The folder of the language files that ship with the program: "languages" beside the program,
// or share/dorvanta/languages of an installation. Empty when there is none.
std::string CartellaLingueSpedite();

// Copies the shipped language files into appDir when it holds no ".lng" file; the number copied.
int CopiaLingueSpedite(const std::string& appDir);

// Hands a file, folder or web address to the shell to be opened; false when nothing could open it.
bool OpenPath(const std::string& pathOrUrl);
// The same for a document, with the shell's default action.
bool OpenDocument(const std::string& pathOrUrl);

// The device names of the printers, empty on a machine without printers.
std::vector<std::string> ElencoStampanti();

} // namespace dv
