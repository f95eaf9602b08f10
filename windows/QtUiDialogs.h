// The one way the windows ask the user something or hand work to the desktop: message and
// question boxes, file choosers, the beep, opening a folder. The program uses QtDialogService;
// tests answer from a queue, so that no test ever waits on a modal window.
#pragma once

#include "core/Ui.h"

#include <memory>
#include <string>

class QMessageBox;
class QWidget;

namespace dv {

class DialogService {
public:
    virtual ~DialogService() = default;

    // A box with one button; an empty title means the application's title.
    virtual void messageBox(QWidget* parent, const std::string& text, const std::string& title,
                            BoxIcon icon) = 0;
    // A yes/no box; true for yes.
    virtual bool questionBox(QWidget* parent, const std::string& text, const std::string& title,
                             BoxIcon icon) = 0;
    // File choosers; filter as "File TXT (*.txt)|*.txt". Empty when the user cancelled.
    virtual std::string chooseOpenFile(QWidget* parent, const std::string& folder,
                                       const std::string& filter) = 0;
    virtual std::string chooseSaveFile(QWidget* parent, const std::string& folder, const std::string& filter,
                                       const std::string& defaultExtension,
                                       const std::string& proposedName) = 0;
    virtual void beep() = 0;
    // Opens a folder in the desktop's file browser; false when nothing could open it.
    virtual bool openFolder(const std::string& path) = 0;
    // Opens a file with the desktop's handler for its type; false when nothing could open it.
    virtual bool openDocument(const std::string& path) = 0;
};

// Real boxes and choosers of the desktop.
class QtDialogService : public DialogService {
public:
    void messageBox(QWidget* parent, const std::string& text, const std::string& title,
                    BoxIcon icon) override;
    bool questionBox(QWidget* parent, const std::string& text, const std::string& title,
                     BoxIcon icon) override;
    std::string chooseOpenFile(QWidget* parent, const std::string& folder,
                               const std::string& filter) override;
    std::string chooseSaveFile(QWidget* parent, const std::string& folder, const std::string& filter,
                               const std::string& defaultExtension, const std::string& proposedName) override;
    void beep() override;
    bool openFolder(const std::string& path) override;
    bool openDocument(const std::string& path) override;

    // The box that messageBox (Ok) or questionBox (Yes and No) shows, at least as wide as its title.
    static std::unique_ptr<QMessageBox> box(QWidget* parent, const std::string& text, const std::string& title,
                                            BoxIcon icon, bool question);
};

// The application's title, which a box without a title of its own bears.
inline constexpr const char* TitoloApplicazione = "Dorvanta";

} // namespace dv
