// Fills a window's texts from a language file.
//
// The section is the window's object name. For the window and every named object in it (widgets,
// menus and menu actions) the keys NAME.Caption, NAME.ToolTipText and NAME.Tag are read, and a value
// that is not empty replaces the caption, the tool tip or the dynamic property "tag".
//
// Control arrays: every element carries the array's name as its object name and its position as the
// dynamic property "index" (an int, 0 or more), so "optImporto" element 3 is the object named
// "optImporto" with index 3, and its keys are optImporto(3).Caption and so on. An object without
// that property is a plain control. dv::elementoArray finds an element.
//
// The caption is the window's title, a button's, label's or action's text, a group box's or a menu's
// title. A tab widget takes NAME.TabCaption(i) for each tab i from 0, and sets it even when it is
// empty: a tab control loses its captions when the file has no key for them.
// Then the window receives QEvent::LanguageChange (passed on to its controls): a window that shows
// texts built from its state writes them again there.
// Every failure is ignored: a missing file or key leaves the text as it was (tabs aside). An empty
// languageFile means no language is in use, and no text changes.
// Last, a window is made at least as wide as the title bar needs for its title (whatever the
// language), so that the desktop does not cut the title short.
#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

#include <string>

class QWidget;

namespace dv {

void ApplyLanguage(QWidget& form, const std::string& languageFile);

// The width a title bar needs to show title whole: the text in the desktop's title font, bold,
// and room for the window's icon and buttons.
int LarghezzaTitolo(const QString& title);
// Raises the window's minimum width to LarghezzaTitolo of its title.
void AllargaPerTitolo(QWidget& window);

// The position of a control in its array, or -1 for a plain control.
inline int indiceArray(const QObject& control) {
    const QVariant v = control.property("index");
    bool ok = false;
    const int i = v.toInt(&ok);
    return v.isValid() && ok && i >= 0 ? i : -1;
}

// Element index of the control array name under parent, or nullptr.
template <typename T> T* elementoArray(const QObject& parent, const QString& name, int index) {
    for (T* child : parent.findChildren<T*>(name))
        if (indiceArray(*child) == index) return child;
    return nullptr;
}

} // namespace dv
