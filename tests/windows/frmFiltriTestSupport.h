// Finding the elements of control arrays and working the panels as a user would.
#pragma once

#include "core/Engine.h"
#include "platform/ApplyLanguage.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QWidget>

namespace dv::test {

// Element index of the control array name under w.
template <typename T = QLabel> T* Elemento(QWidget& w, const char* name, int index) {
    return elementoArray<T>(w, QString::fromLatin1(name), index);
}

template <typename T = QWidget> T* Controllo(QWidget& w, const char* name) { return w.findChild<T*>(name); }

inline void Clicca(QWidget* w) { QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center()); }

inline QString Testo(QWidget& w, const char* label) { return Controllo<QLabel>(w, label)->text(); }

// Clicks the navigation button so many times.
inline void Vai(QWidget& w, const char* pulsante, int volte = 1) {
    for (int i = 0; i < volte; ++i) Clicca(Controllo<QPushButton>(w, pulsante));
}

// Develops the forecast of c as the engine does; the number of columns kept.
inline int32_t Sviluppa(Corpo& c) {
    RunControl ctl;
    EngineObserver obs;
    return SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, obs, "").kept;
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

// The background of a label as it is painted.
inline QColor Sfondo(const QWidget* w) { return w->palette().color(QPalette::Window); }

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
