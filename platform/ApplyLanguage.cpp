#include "platform/ApplyLanguage.h"

#include "settings/Lingua.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>
#include <QWidget>

namespace dv {

namespace {

QString leggi(const std::string& file, const std::string& section, const std::string& key) {
    return QString::fromStdString(ReadLanguageValue(file, section, key));
}

void impostaCaption(QObject& o, const QString& text) {
    if (auto* m = qobject_cast<QMenu*>(&o)) m->setTitle(text);
    else if (auto* w = qobject_cast<QWidget*>(&o); w && w->isWindow()) w->setWindowTitle(text);
    else if (auto* b = qobject_cast<QAbstractButton*>(&o)) b->setText(text);
    else if (auto* l = qobject_cast<QLabel*>(&o)) l->setText(text);
    else if (auto* g = qobject_cast<QGroupBox*>(&o)) g->setTitle(text);
    else if (auto* a = qobject_cast<QAction*>(&o)) a->setText(text);
}

void impostaToolTip(QObject& o, const QString& text) {
    if (auto* w = qobject_cast<QWidget*>(&o)) w->setToolTip(text);
    else if (auto* a = qobject_cast<QAction*>(&o)) a->setToolTip(text);
}

// Caption, tool tip and tag of one object, under the key prefix name or name(index).
void applica(QObject& o, const std::string& file, const std::string& section, const std::string& prefix) {
    if (const QString v = leggi(file, section, prefix + ".Caption"); !v.isEmpty()) impostaCaption(o, v);
    if (const QString v = leggi(file, section, prefix + ".ToolTipText"); !v.isEmpty()) impostaToolTip(o, v);
    if (const QString v = leggi(file, section, prefix + ".Tag"); !v.isEmpty()) o.setProperty("tag", v);
}

// The captions, tool tips and tags of the window and its controls, then the language change.
void applicaTesti(QWidget& form, const std::string& languageFile, const std::string& section) {
    applica(form, languageFile, section, section);

    for (QObject* o : form.findChildren<QObject*>()) {
        const QString name = o->objectName();
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))) continue;
        std::string prefix = name.toStdString();
        if (const int i = indiceArray(*o); i >= 0) prefix += "(" + std::to_string(i) + ")";
        applica(*o, languageFile, section, prefix);

        if (auto* tabs = qobject_cast<QTabWidget*>(o)) {
            for (int t = 0; t < tabs->count(); ++t)
                tabs->setTabText(t, leggi(languageFile, section, prefix + ".TabCaption(" + std::to_string(t) + ")"));
        }
    }
    // The window and its controls hear of the new language, so that texts built from the state
    // (counts, names) are written again over the language file's fixed captions.
    QEvent changed(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&form, &changed);
}

} // namespace

int LarghezzaTitolo(const QString& title) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
    font.setBold(true);
    // The icon at the left, three buttons at the right and the margins of a common title bar.
    constexpr int Decorazioni = 140;
    return QFontMetrics(font).horizontalAdvance(title) + Decorazioni;
}

void AllargaPerTitolo(QWidget& window) {
    const int needed = LarghezzaTitolo(window.windowTitle());
    if (window.minimumWidth() < needed) window.setMinimumWidth(needed);
}

void ApplyLanguage(QWidget& form, const std::string& languageFile) {
    const std::string section = form.objectName().toStdString();
    if (!languageFile.empty() && !section.empty()) applicaTesti(form, languageFile, section);
    if (form.isWindow()) AllargaPerTitolo(form);
}

} // namespace dv
