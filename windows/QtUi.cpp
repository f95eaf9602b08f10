#include "windows/QtUi.h"

#include "windows/frmMAIN.h"
#include "windows/QtUiDialogs.h"

#include <QApplication>
#include <QCursor>

namespace dv {

QtUi::QtUi(frmMAIN& window, DialogService& dialogs) : m_window(window), m_dialogs(dialogs) {}

void QtUi::setLanguage(LangFunction lang, FileFunction file) {
    m_lang = std::move(lang);
    m_languageFile = std::move(file);
}

QWidget* QtUi::dialogParent() const {
    if (m_dialogParent) return m_dialogParent.data();
    return &m_window;
}

std::string QtUi::Lang(std::string_view key) {
    return onWindowThread([&]() -> std::string { return m_lang ? m_lang(key) : std::string(); });
}

std::string QtUi::languageFile() {
    return onWindowThread([&]() -> std::string { return m_languageFile ? m_languageFile() : std::string(); });
}

void QtUi::LockGUI() {
    onWindowThread([&] { m_window.LockGUI(); });
}
void QtUi::UnlockGUI() {
    onWindowThread([&] { m_window.UnlockGUI(); });
}
void QtUi::UnlockMenuConditions() {
    onWindowThread([&] { m_window.UnlockMenuConditions(); });
}
void QtUi::ViewStatusBar() {
    onWindowThread([&] { m_window.ViewStatusBar(); });
}
void QtUi::Sblocca_x_Ricalcolo() {
    onWindowThread([&] { m_window.Sblocca_x_Ricalcolo(); });
}
void QtUi::gridChanged() {
    onWindowThread([&] { m_window.refreshGrid(); });
}
void QtUi::lenColonnaChanged() {
    onWindowThread([&] { m_window.refreshLenColonna(); });
}
void QtUi::conditionMarksChanged() {
    onWindowThread([&] { m_window.refreshConditionMarks(); });
}

void QtUi::statusWarning(const std::string& text) {
    onWindowThread([&] { m_window.mostraAvviso(QString::fromStdString(text)); });
}

void QtUi::setBusy(bool busy) {
    onWindowThread([&] {
        if (busy) {
            ++m_busy;
            QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        } else if (m_busy > 0) {
            --m_busy;
            QApplication::restoreOverrideCursor();
        }
    });
}

void QtUi::messageBox(const std::string& text, const std::string& title, BoxIcon icon) {
    onWindowThread([&] { m_dialogs.messageBox(dialogParent(), text, title, icon); });
}

bool QtUi::questionBox(const std::string& text, const std::string& title, BoxIcon icon) {
    return onWindowThread([&] { return m_dialogs.questionBox(dialogParent(), text, title, icon); });
}

std::string QtUi::chooseOpenFile(const std::string& folder, const std::string& filter) {
    return onWindowThread([&] { return m_dialogs.chooseOpenFile(dialogParent(), folder, filter); });
}

std::string QtUi::chooseSaveFile(const std::string& folder, const std::string& filter,
                                 const std::string& defaultExtension, const std::string& proposedName) {
    return onWindowThread([&] {
        return m_dialogs.chooseSaveFile(dialogParent(), folder, filter, defaultExtension, proposedName);
    });
}

} // namespace dv
