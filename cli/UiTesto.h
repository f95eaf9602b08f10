// The command line's side of the Ui: boxes as text on stderr with their title, questions
// answered yes, the window's operations ignored, numbered messages from a language file.
#pragma once

#include "core/Ui.h"
#include "settings/Lingua.h"

#include <cstdio>
#include <string>

namespace dv::cli {

class UiTesto : public Ui {
public:
    UiTesto(std::string languageFile, std::FILE* out) : m_file(std::move(languageFile)), m_out(out) {}

    // Section [Strings] of the language file; a missing file or key gives the empty text.
    std::string Lang(std::string_view key) override { return ReadLanguageValue(m_file, "Strings", key); }
    std::string languageFile() override { return m_file; }

    void LockGUI() override {}
    void UnlockGUI() override {}
    void UnlockMenuConditions() override {}
    void ViewStatusBar() override {}
    void Sblocca_x_Ricalcolo() override {}
    void gridChanged() override {}
    void lenColonnaChanged() override {}
    void conditionMarksChanged() override {}
    void setBusy(bool) override {}
    void statusWarning(const std::string& text) override { std::fprintf(m_out, "warning: %s\n", text.c_str()); }

    void messageBox(const std::string& text, const std::string& title, BoxIcon icon) override;
    bool questionBox(const std::string& text, const std::string& title, BoxIcon icon) override;
    std::string chooseOpenFile(const std::string&, const std::string&) override { return {}; }
    std::string chooseSaveFile(const std::string&, const std::string&, const std::string&, const std::string&) override {
        return {};
    }

    // How many boxes with the critical icon were shown.
    int erroriMostrati() const { return m_errori; }

private:
    void stampa(const std::string& text, const std::string& title, BoxIcon icon, const char* coda);

    std::string m_file;
    std::FILE* m_out;
    int m_errori = 0;
};

} // namespace dv::cli
