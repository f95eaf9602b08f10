// The desktop program's side of dv::Ui: the main window's operations, the boxes and the file
// choosers of the DialogService, the messages of the language in use. Logic may call it from the
// worker thread of a development: every call then runs on the window thread while the worker
// waits, so the windows are only ever touched by the thread that owns them.
#pragma once

#include "core/Ui.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QWidget>

#include <functional>

namespace dv {

class DialogService;
class frmMAIN;

class QtUi : public QObject, public Ui {
public:
    QtUi(frmMAIN& window, DialogService& dialogs);

    using LangFunction = std::function<std::string(std::string_view)>;
    using FileFunction = std::function<std::string()>;
    // Where the numbered messages and the language file come from.
    void setLanguage(LangFunction lang, FileFunction file);
    // The window that boxes belong to; none means the main window.
    void setDialogParent(QWidget* parent) { m_dialogParent = parent; }
    QWidget* dialogParent() const;
    DialogService& dialogs() { return m_dialogs; }

    std::string Lang(std::string_view key) override;
    std::string languageFile() override;
    void LockGUI() override;
    void UnlockGUI() override;
    void UnlockMenuConditions() override;
    void ViewStatusBar() override;
    void Sblocca_x_Ricalcolo() override;
    void gridChanged() override;
    void lenColonnaChanged() override;
    void conditionMarksChanged() override;
    void statusWarning(const std::string& text) override;
    void setBusy(bool busy) override;
    void messageBox(const std::string& text, const std::string& title, BoxIcon icon) override;
    bool questionBox(const std::string& text, const std::string& title, BoxIcon icon) override;
    std::string chooseOpenFile(const std::string& folder, const std::string& filter) override;
    std::string chooseSaveFile(const std::string& folder, const std::string& filter,
                               const std::string& defaultExtension, const std::string& proposedName) override;

private:
    // Runs f on the window thread and returns its result.
    template <typename F> auto onWindowThread(F&& f) -> decltype(f()) {
        if (QThread::currentThread() == thread()) return f();
        if constexpr (std::is_void_v<decltype(f())>) {
            QMetaObject::invokeMethod(this, std::forward<F>(f), Qt::BlockingQueuedConnection);
        } else {
            decltype(f()) result{};
            QMetaObject::invokeMethod(
                this, [&] { result = f(); }, Qt::BlockingQueuedConnection);
            return result;
        }
    }

    frmMAIN& m_window;
    DialogService& m_dialogs;
    LangFunction m_lang;
    FileFunction m_languageFile;
    QPointer<QWidget> m_dialogParent;
    int m_busy = 0;
};

} // namespace dv
