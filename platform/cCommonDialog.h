// The platform's common dialogs: file open and save, colour, font.
// Filters are written as the rest of the program writes them, "File TXT (*.txt)|*.txt", pairs of a
// description and its patterns separated by "|"; several patterns are separated by ";".
#pragma once

#include <QFont>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>

class QWidget;

namespace dv {

class cCommonDialog {
public:
    // "File TXT (*.txt)|*.txt|Tutti (*.*)|*.*" as Qt's "File TXT (*.txt);;Tutti (*)".
    static QString FiltroQt(const std::string& filter);

    // The file chosen to open, or the empty text when the user cancelled.
    static std::string ShowOpen(QWidget* parent, const std::string& folder, const std::string& filter,
                                const std::string& title = {});
    // The file chosen to save, defaultExtension (".dvs") added when the name has none; empty on cancel.
    static std::string ShowSave(QWidget* parent, const std::string& folder, const std::string& filter,
                                const std::string& defaultExtension, const std::string& proposedName,
                                const std::string& title = {});
    // A colour as 0xBBGGRR, or nothing on cancel.
    static std::optional<uint32_t> ShowColor(QWidget* parent, uint32_t initial);
    static std::optional<QFont> ShowFont(QWidget* parent, const QFont& initial);

    // name with defaultExtension added when its file name has no extension.
    static std::string ConEstensione(const std::string& name, const std::string& defaultExtension);
};

} // namespace dv
