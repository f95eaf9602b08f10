// The command line's side of the Ui: boxes as text on stderr with their title, questions
// answered yes, the window's operations ignored, numbered messages from a language file.
#pragma once

#include "cli/LinguaIni.h"
#include "core/Ui.h"

#include <cstdio>
#include <string>

namespace dv::cli {

class UiTesto : public Ui {
public:
    UiTesto(std::string languageFile, std::FILE* out) : m_file(std::move(languageFile)), m_lingua(m_file), m_out(out) {}

    std::string Lang(std::string_view key) override { return m_lingua.testo(key); }
    std::string languageFile() override { return m_lingua.caricata() ? m_file : std::string(); }

    void LockGUI() override {}
    void UnlockGUI() override {}
    void UnlockMenuConditions() override {}
    void ViewStatusBar() override {}
    void Sblocca_x_Ricalcolo() override {}
    void gridChanged() override {}
    void lenColonnaChanged() override {}
    void conditionMarksChanged() override {}
    void setBusy(bool) override {}

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
    LinguaIni m_lingua;
    std::FILE* m_out;
    int m_errori = 0;
};

} // namespace dv::cli
