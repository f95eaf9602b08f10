// Qt's own texts (the buttons of message boxes, the file choosers' captions) in the language in
// use, from the translations that ship with Qt (on Debian the package qt6-translations-l10n).
#pragma once

#include <string>

namespace dv {

// Loads Qt's translations for the code that the language file gives ("0220" of [Strings], such as
// "it" or "en") and makes that code the default locale; the previous translation is removed. A
// language file without a code, or a code Qt has no translation for, leaves Qt's texts in English.
// Installing a translation sends every window QEvent::LanguageChange. Returns the code in use.
std::string ApplicaTraduzioniQt(const std::string& languageFile);

} // namespace dv
