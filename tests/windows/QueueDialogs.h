// A DialogService that answers from queues and records what was asked, so that no window test
// ever waits on a modal box or a file chooser.
#pragma once

#include "windows/QtUiDialogs.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace dv::test {

class QueueDialogs : public DialogService {
public:
    struct Box {
        std::string text, title;
        BoxIcon icon;
        bool question;
    };
    std::vector<Box> boxes;
    std::deque<bool> answers;          // yes when empty
    std::deque<std::string> fileNames; // cancel when empty
    std::vector<std::string> folders;  // folders the choosers opened in, and folders opened
    int beeps = 0;
    std::function<void()> duringQuestion; // runs while a question box is "open"
    std::vector<std::string> documents;   // files handed to the desktop to open

    void setNextAnswer(bool yes) { answers.push_back(yes); }
    void setNextFileName(std::string name) { fileNames.push_back(std::move(name)); }

    void messageBox(QWidget*, const std::string& text, const std::string& title, BoxIcon icon) override {
        boxes.push_back({text, title, icon, false});
    }
    bool questionBox(QWidget*, const std::string& text, const std::string& title, BoxIcon icon) override {
        boxes.push_back({text, title, icon, true});
        if (duringQuestion) duringQuestion();
        if (answers.empty()) return true;
        const bool a = answers.front();
        answers.pop_front();
        return a;
    }
    std::string chooseOpenFile(QWidget*, const std::string& folder, const std::string&) override {
        folders.push_back(folder);
        return next();
    }
    std::string chooseSaveFile(QWidget*, const std::string& folder, const std::string&, const std::string&,
                               const std::string&) override {
        folders.push_back(folder);
        return next();
    }
    void beep() override { ++beeps; }
    bool folderOpens = true; // whether the desktop has a file browser
    bool openFolder(const std::string& path) override {
        folders.push_back(path);
        return folderOpens;
    }
    bool openDocument(const std::string& path) override {
        documents.push_back(path);
        return true;
    }

private:
    std::string next() {
        if (fileNames.empty()) return {};
        std::string f = fileNames.front();
        fileNames.pop_front();
        return f;
    }
};

} // namespace dv::test
