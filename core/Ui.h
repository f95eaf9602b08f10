// The narrow interface through which logic reports to whoever shows it: the main window,
// a recording fake in tests, or plain text on the command line.
#pragma once

#include <string>
#include <string_view>

namespace dv {

enum class BoxIcon { None, Critical, Question, Exclamation, Information };

class Ui {
public:
    virtual ~Ui() = default;

    // The text of a numbered message such as "0012"; empty when the language has none.
    virtual std::string Lang(std::string_view key) = 0;
    // The path of the language file in use, for the windows' captions; empty for none.
    virtual std::string languageFile() { return {}; }

    // Operations of the main window that logic calls, in the order the logic calls them.
    virtual void LockGUI() = 0;
    virtual void UnlockGUI() = 0;
    virtual void UnlockMenuConditions() = 0;
    virtual void ViewStatusBar() = 0;
    // menuCalcolo and cmdCalcolo enabled again for a further pass in recompute mode.
    virtual void Sblocca_x_Ricalcolo() = 0;
    // The selection of the grid or Quanti changed: redraw the grid and what depends on it.
    virtual void gridChanged() = 0;
    // hsLenCol takes LenColonna.
    virtual void lenColonnaChanged() = 0;
    // A system file was opened: the check marks of the conditions menu are to be taken from the state.
    virtual void conditionMarksChanged() = 0;

    // A warning about the system in memory that stays in view until the system is reset (the main
    // window's status line; stderr on the command line).
    virtual void statusWarning(const std::string& text) { (void)text; }

    // Hourglass on (true) or back to the default pointer (false).
    virtual void setBusy(bool busy) = 0;
    // A message box; an empty title means the application's title.
    virtual void messageBox(const std::string& text, const std::string& title, BoxIcon icon) = 0;
    // A yes/no box; true for yes.
    virtual bool questionBox(const std::string& text, const std::string& title, BoxIcon icon) = 0;

    // File choosers. folder is where the dialog opens, filter as "File TXT (*.txt)|*.txt".
    // An empty result means the user cancelled.
    virtual std::string chooseOpenFile(const std::string& folder, const std::string& filter) = 0;
    virtual std::string chooseSaveFile(const std::string& folder, const std::string& filter,
                                       const std::string& defaultExtension, const std::string& proposedName) = 0;
};

} // namespace dv
