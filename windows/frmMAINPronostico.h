// The forecast menu of the main window, opened from labnumeri and lbMnu while no system is held.
#pragma once

#include <QPoint>

class QMenu;

namespace dv {

class frmMAIN;

class frmMAINPronostico {
public:
    explicit frmMAINPronostico(frmMAIN& window);

    // Opens the menu at pos, when no system is held.
    void apri(const QPoint& pos);
    QMenu* menu() const { return m_menu; }

private:
    void tuttiI90();

    frmMAIN& m_window;
    QMenu* m_menu;
};

} // namespace dv
