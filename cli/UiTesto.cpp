#include "cli/UiTesto.h"

namespace dv::cli {

void UiTesto::stampa(const std::string& text, const std::string& title, BoxIcon icon, const char* coda) {
    if (icon == BoxIcon::Critical) ++m_errori;
    const std::string titolo = title.empty() ? "Dorvanta" : title;
    const std::string& corpo = text;
    // Every line of the box under its title, indented; CRLF inside a text is one line break.
    std::string righe;
    for (size_t i = 0; i < corpo.size(); ++i) {
        if (corpo[i] == '\r') continue;
        righe += corpo[i];
        if (corpo[i] == '\n') righe += "  ";
    }
    std::fprintf(m_out, "[%s]\n  %s%s\n", titolo.c_str(), righe.c_str(), coda);
    std::fflush(m_out);
}

void UiTesto::messageBox(const std::string& text, const std::string& title, BoxIcon icon) {
    stampa(text, title, icon, "");
}

bool UiTesto::questionBox(const std::string& text, const std::string& title, BoxIcon icon) {
    stampa(text, title, icon, " -> yes");
    return true;
}

} // namespace dv::cli
