// Finding the controls of a window by their object names and working them as a user would.
#pragma once

#include "platform/ApplyLanguage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QWidget>

#include <ostream>
#include <utility>
#include <vector>

namespace dv::test {

// The control of w named name; "name(i)" is the element i of the control array name.
template <typename T = QWidget> T* Controllo(QWidget& w, const char* name) {
    const QString n = QString::fromLatin1(name);
    const int p = n.indexOf(QLatin1Char('('));
    if (p < 0) return w.findChild<T*>(n);
    return elementoArray<T>(w, n.left(p), n.mid(p + 1, n.size() - p - 2).toInt());
}

// Element index of the control array name under w.
template <typename T = QLabel> T* Elemento(QWidget& w, const char* name, int index) {
    return elementoArray<T>(w, QString::fromLatin1(name), index);
}

// What a control shows: a label's, a box's or a button's text, a list's choice, a frame's title.
inline QString TestoDi(const QWidget* c) {
    if (auto* l = qobject_cast<const QLabel*>(c)) return l->text();
    if (auto* e = qobject_cast<const QLineEdit*>(c)) return e->text();
    if (auto* b = qobject_cast<const QAbstractButton*>(c)) return b->text();
    if (auto* cb = qobject_cast<const QComboBox*>(c)) return cb->currentText();
    if (auto* g = qobject_cast<const QGroupBox*>(c)) return g->title();
    return c->windowTitle();
}

// What the controls of w named in the list show, separated by "|"; w itself by its own name.
inline QString Testi(QWidget& w, const char* nomi) {
    QStringList testi;
    for (const QString& nome : QString::fromLatin1(nomi).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QWidget* c = nome == w.objectName() ? &w : Controllo(w, nome.toLatin1().constData());
        testi << (c ? TestoDi(c) : QStringLiteral("(no %1)").arg(nome));
    }
    return testi.join(QLatin1Char('|'));
}

inline void Clicca(QWidget* w) {
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center());
}

// Clicks the navigation button so many times.
inline void Vai(QWidget& w, const char* pulsante, int volte = 1) {
    for (int i = 0; i < volte; ++i)
        Clicca(Controllo<QPushButton>(w, pulsante));
}

// Presses on the first label, moves with the button held through the others, releases.
inline void Trascina(const std::vector<QWidget*>& percorso) {
    QWidget* premuta = percorso.front();
    QTest::mousePress(premuta, Qt::LeftButton, Qt::NoModifier, premuta->rect().center());
    for (QWidget* w : percorso) {
        for (QPoint p : {w->rect().center(), w->rect().center() + QPoint(1, 1)}) {
            const QPoint globale = w->mapToGlobal(p);
            QMouseEvent move(QEvent::MouseMove, premuta->mapFromGlobal(globale), globale, Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(premuta, &move);
        }
    }
    QTest::mouseRelease(premuta, Qt::LeftButton, Qt::NoModifier, premuta->rect().center());
}

// A key held down on a button: the first press and then count auto-repeated presses.
inline void TastoTenuto(QWidget* w, Qt::Key key, int count) {
    for (int i = 0; i <= count; ++i) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), i > 0);
        QApplication::sendEvent(w, &press);
    }
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

} // namespace dv::test

// GoogleTest shows a QString as its text.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
