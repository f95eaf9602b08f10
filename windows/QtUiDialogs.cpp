#include "windows/QtUiDialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QUrl>

namespace dv {

namespace {
QMessageBox::Icon toQt(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Critical: return QMessageBox::Critical;
    case BoxIcon::Question: return QMessageBox::Question;
    case BoxIcon::Exclamation: return QMessageBox::Warning;
    case BoxIcon::Information: return QMessageBox::Information;
    case BoxIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

QString titleOf(const std::string& title) {
    return title.empty() ? QString::fromUtf8(TitoloApplicazione) : QString::fromStdString(title);
}

// "File TXT (*.txt)|*.txt" in the form of Qt's choosers: "File TXT (*.txt)".
QString filterOf(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        const QString& label = parts[i];
        out << (label.contains('(') ? label : label + " (" + parts[i + 1] + ")");
    }
    if (out.isEmpty()) out << QString::fromStdString(filter);
    return out.join(";;");
}
} // namespace

void QtDialogService::messageBox(QWidget* parent, const std::string& text, const std::string& title, BoxIcon icon) {
    QMessageBox box(toQt(icon), titleOf(title), QString::fromStdString(text), QMessageBox::Ok, parent);
    box.exec();
}

bool QtDialogService::questionBox(QWidget* parent, const std::string& text, const std::string& title, BoxIcon icon) {
    QMessageBox box(toQt(icon), titleOf(title), QString::fromStdString(text), QMessageBox::Yes | QMessageBox::No,
                    parent);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

std::string QtDialogService::chooseOpenFile(QWidget* parent, const std::string& folder, const std::string& filter) {
    return QFileDialog::getOpenFileName(parent, QString(), QString::fromStdString(folder), filterOf(filter))
        .toStdString();
}

std::string QtDialogService::chooseSaveFile(QWidget* parent, const std::string& folder, const std::string& filter,
                                            const std::string& defaultExtension, const std::string& proposedName) {
    QFileDialog dialog(parent, QString(), QString::fromStdString(folder), filterOf(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QString ext = QString::fromStdString(defaultExtension);
    if (ext.startsWith('.')) ext.remove(0, 1);
    dialog.setDefaultSuffix(ext);
    if (!proposedName.empty()) dialog.selectFile(QString::fromStdString(proposedName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst().toStdString();
}

void QtDialogService::beep() { QApplication::beep(); }

void QtDialogService::openFolder(const std::string& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QDir::cleanPath(QString::fromStdString(path))));
}

} // namespace dv
