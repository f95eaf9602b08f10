#include "platform/TraduzioniQt.h"

#include "settings/Lingua.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

namespace dv {

std::string ApplicaTraduzioniQt(const std::string& languageFile) {
    // One translator for the life of the application, replaced as the language changes.
    static QPointer<QTranslator> traduttore;
    static std::string inUso;
    QCoreApplication* app = QCoreApplication::instance();
    if (!app) return {};
    const std::string codice =
        languageFile.empty() ? std::string() : ReadLanguageValue(languageFile, "Strings", "0220");
    if (codice == inUso && traduttore) return inUso;
    if (traduttore) {
        QCoreApplication::removeTranslator(traduttore);
        delete traduttore;
    }
    inUso.clear();
    if (codice.empty()) return {};
    const QLocale locale(QString::fromStdString(codice));
    QLocale::setDefault(locale);
    traduttore = new QTranslator(app);
    if (!traduttore->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete traduttore;
        return {};
    }
    QCoreApplication::installTranslator(traduttore);
    inUso = codice;
    return inUso;
}

} // namespace dv
