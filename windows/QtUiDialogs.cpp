#include "windows/QtUiDialogs.h"

#include "platform/cCommonDialog.h"
#include "platform/Shell.h"

#include <QApplication>
#include <QMessageBox>

namespace dv {

namespace {
QMessageBox::Icon toQt(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QString titleOf(const std::string& title) {
    return title.empty() ? QString::fromUtf8(TitoloApplicazione) : QString::fromStdString(title);
}

} // namespace

void QtDialogService::messageBox(QWidget* parent, const std::string& text, const std::string& title,
                                 BoxIcon icon) {
    QMessageBox box(toQt(icon), titleOf(title), QString::fromStdString(text), QMessageBox::Ok, parent);
    box.exec();
}

bool QtDialogService::questionBox(QWidget* parent, const std::string& text, const std::string& title,
                                  BoxIcon icon) {
    QMessageBox box(toQt(icon), titleOf(title), QString::fromStdString(text),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

std::string QtDialogService::chooseOpenFile(QWidget* parent, const std::string& folder,
                                            const std::string& filter) {
    return cCommonDialog::ShowOpen(parent, folder, filter);
}

std::string QtDialogService::chooseSaveFile(QWidget* parent, const std::string& folder,
                                            const std::string& filter, const std::string& defaultExtension,
                                            const std::string& proposedName) {
    return cCommonDialog::ShowSave(parent, folder, filter, defaultExtension, proposedName);
}

void QtDialogService::beep() {
    QApplication::beep();
}

bool QtDialogService::openFolder(const std::string& path) {
    return OpenPath(path);
}

void QtDialogService::openDocument(const std::string& path) {
    OpenDocument(path);
}

} // namespace dv
