// A Ui that records every call and answers boxes from a queue, so no test waits on a window.
#pragma once

#include "core/Ui.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

namespace dv::test {

class FakeUi : public Ui {
public:
    struct Box {
        std::string text, title;
        BoxIcon icon;
        bool question;
    };

    // Texts given by Lang; a key without a text answers "<key>" so tests can see which was asked.
    std::map<std::string, std::string, std::less<>> texts;
    std::vector<std::string> calls;
    std::vector<Box> boxes;
    std::deque<bool> answers; // yes/no answers, taken in order; yes when empty
    std::deque<std::string> fileNames; // file chooser answers, taken in order; cancel when empty
    int busyDepth = 0;

    void setNextAnswer(bool yes) { answers.push_back(yes); }
    void setNextFileName(std::string name) { fileNames.push_back(std::move(name)); }

    std::string Lang(std::string_view key) override {
        auto it = texts.find(key);
        if (it != texts.end()) return it->second;
        // Appended in place: a concatenation of temporaries trips GCC 12's restrict warning.
        std::string out(1, '<');
        out += key;
        out += '>';
        return out;
    }
    void LockGUI() override { calls.push_back("LockGUI"); }
    void UnlockGUI() override { calls.push_back("UnlockGUI"); }
    void UnlockMenuConditions() override { calls.push_back("UnlockMenuConditions"); }
    void ViewStatusBar() override { calls.push_back("ViewStatusBar"); }
    void Sblocca_x_Ricalcolo() override { calls.push_back("Sblocca_x_Ricalcolo"); }
    void gridChanged() override { calls.push_back("gridChanged"); }
    void lenColonnaChanged() override { calls.push_back("lenColonnaChanged"); }
    void conditionMarksChanged() override { calls.push_back("conditionMarksChanged"); }
    void statusWarning(const std::string& text) override { calls.push_back("statusWarning:" + text); }
    void setBusy(bool busy) override {
        busyDepth += busy ? 1 : -1;
        calls.push_back(busy ? "busy" : "idle");
    }
    void messageBox(const std::string& text, const std::string& title, BoxIcon icon) override {
        boxes.push_back({text, title, icon, false});
        calls.push_back("messageBox");
    }
    bool questionBox(const std::string& text, const std::string& title, BoxIcon icon) override {
        boxes.push_back({text, title, icon, true});
        calls.push_back("questionBox");
        if (answers.empty()) return true;
        const bool a = answers.front();
        answers.pop_front();
        return a;
    }
    std::string chooseOpenFile(const std::string&, const std::string&) override { return nextFileName("chooseOpenFile"); }
    std::string chooseSaveFile(const std::string&, const std::string&, const std::string&, const std::string&) override {
        return nextFileName("chooseSaveFile");
    }

private:
    std::string nextFileName(const char* call) {
        calls.push_back(call);
        if (fileNames.empty()) return {};
        std::string f = fileNames.front();
        fileNames.pop_front();
        return f;
    }
};

} // namespace dv::test
