#include "windows/QtUiDialogs.h"

#include "platform/ApplyLanguage.h"
#include "platform/cCommonDialog.h"
#include "platform/Shell.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>

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

std::unique_ptr<QMessageBox> QtDialogService::box(QWidget* parent, const std::string& text,
                                                  const std::string& title, BoxIcon icon, bool question) {
    auto b = std::make_unique<QMessageBox>(toQt(icon), titleOf(title), QString::fromStdString(text),
                                           question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, parent);
    if (question) b->setDefaultButton(QMessageBox::Yes);
    // A box sizes itself from its contents: a strut across its layout keeps the title whole.
    if (auto* grid = qobject_cast<QGridLayout*>(b->layout()))
        grid->addItem(new QSpacerItem(LarghezzaTitolo(b->windowTitle()), 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    return b;
}

void QtDialogService::messageBox(QWidget* parent, const std::string& text, const std::string& title,
                                 BoxIcon icon) {
    box(parent, text, title, icon, false)->exec();
}

bool QtDialogService::questionBox(QWidget* parent, const std::string& text, const std::string& title,
                                  BoxIcon icon) {
    return box(parent, text, title, icon, true)->exec() == QMessageBox::Yes;
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

bool QtDialogService::openDocument(const std::string& path) {
    return OpenDocument(path);
}

} // namespace dv
