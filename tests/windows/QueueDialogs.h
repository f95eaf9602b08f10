// A DialogService that answers boxes and choosers from the queues of FakeUi and records what was
// asked, so that no window test ever waits on a modal box or a file chooser.
#pragma once

#include "tests/support/FakeUi.h"
#include "windows/QtUiDialogs.h"

#include <functional>
#include <string>
#include <vector>

namespace dv::test {

class QueueDialogs : public DialogService, public FakeUi {
public:
    std::vector<std::string> folders;   // folders the choosers opened in, and folders opened
    std::vector<std::string> documents; // files handed to the desktop to open
    int beeps = 0;
    bool folderOpens = true;              // whether the desktop has a file browser
    std::function<void()> duringQuestion; // runs while a question box is "open"

    void messageBox(QWidget*, const std::string& text, const std::string& title, BoxIcon icon) override {
        FakeUi::messageBox(text, title, icon);
    }
    bool questionBox(QWidget*, const std::string& text, const std::string& title, BoxIcon icon) override {
        if (duringQuestion) duringQuestion();
        return FakeUi::questionBox(text, title, icon);
    }
    std::string chooseOpenFile(QWidget*, const std::string& folder, const std::string& filter) override {
        folders.push_back(folder);
        return FakeUi::chooseOpenFile(folder, filter);
    }
    std::string chooseSaveFile(QWidget*, const std::string& folder, const std::string& filter,
                               const std::string& extension, const std::string& name) override {
        folders.push_back(folder);
        return FakeUi::chooseSaveFile(folder, filter, extension, name);
    }
    void beep() override { ++beeps; }
    bool openFolder(const std::string& path) override {
        folders.push_back(path);
        return folderOpens;
    }
    bool openDocument(const std::string& path) override {
        documents.push_back(path);
        return true;
    }
};

} // namespace dv::test
