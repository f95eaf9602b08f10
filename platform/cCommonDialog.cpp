#include "platform/cCommonDialog.h"

#include <QColor>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QStringList>

namespace dv {

QString cCommonDialog::FiltroQt(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString desc = parts.at(i).trimmed();
        // The patterns in the description's own parentheses are replaced by the real ones.
        if (const int open = desc.lastIndexOf(QLatin1Char('(')); open > 0 && desc.endsWith(QLatin1Char(')')))
            desc = desc.left(open).trimmed();
        QString patterns = parts.at(i + 1).trimmed();
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        patterns.replace(QStringLiteral("*.*"), QStringLiteral("*"));
        out << QStringLiteral("%1 (%2)").arg(desc, patterns);
    }
    return out.join(QStringLiteral(";;"));
}

std::string cCommonDialog::ShowOpen(QWidget* parent, const std::string& folder, const std::string& filter,
                                    const std::string& title) {
    return QDir::toNativeSeparators(QFileDialog::getOpenFileName(parent, QString::fromStdString(title),
                                                                 QString::fromStdString(folder), FiltroQt(filter)))
        .toStdString();
}

std::string cCommonDialog::ShowSave(QWidget* parent, const std::string& folder, const std::string& filter,
                                    const std::string& defaultExtension, const std::string& proposedName,
                                    const std::string& title) {
    const QString start = QDir(QString::fromStdString(folder)).filePath(QString::fromStdString(proposedName));
    QFileDialog dialog(parent, QString::fromStdString(title), start, FiltroQt(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The chooser adds the extension itself, so that it also asks before replacing the file that
    // a name typed without extension comes to name.
    QString suffix = QString::fromStdString(defaultExtension);
    if (suffix.startsWith(QLatin1Char('.'))) suffix.remove(0, 1);
    dialog.setDefaultSuffix(suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    const QString chosen = dialog.selectedFiles().constFirst();
    if (chosen.isEmpty()) return {};
    return ConEstensione(QDir::toNativeSeparators(chosen).toStdString(), defaultExtension);
}

std::optional<uint32_t> cCommonDialog::ShowColor(QWidget* parent, uint32_t initial) {
    const QColor start(static_cast<int>(initial & 0xFF), static_cast<int>((initial >> 8) & 0xFF),
                       static_cast<int>((initial >> 16) & 0xFF));
    const QColor c = QColorDialog::getColor(start, parent);
    if (!c.isValid()) return std::nullopt;
    return static_cast<uint32_t>(c.red()) | (static_cast<uint32_t>(c.green()) << 8) |
           (static_cast<uint32_t>(c.blue()) << 16);
}

std::optional<QFont> cCommonDialog::ShowFont(QWidget* parent, const QFont& initial) {
    bool ok = false;
    const QFont f = QFontDialog::getFont(&ok, initial, parent);
    if (!ok) return std::nullopt;
    return f;
}

std::string cCommonDialog::ConEstensione(const std::string& name, const std::string& defaultExtension) {
    if (defaultExtension.empty() || name.empty()) return name;
    if (!QFileInfo(QString::fromStdString(name)).suffix().isEmpty()) return name;
    const std::string ext = defaultExtension.front() == '.' ? defaultExtension : "." + defaultExtension;
    return name + ext;
}

} // namespace dv
