#include "windows/frmMAINPronostico.h"

#include "core/Sistema.h"
#include "windows/frmMAIN.h"
#include "windows/QtUi.h"

#include <QAction>
#include <QMenu>

namespace dv {

frmMAINPronostico::frmMAINPronostico(frmMAIN& window) : m_window(window), m_menu(new QMenu(&window)) {
    m_menu->setObjectName(QStringLiteral("menuPopup"));
    // The entries that take the forecast from the archive or its statistics wait for those windows.
    const struct {
        const char* name;
        const char* caption;
        bool visible;
    } voci[] = {
        {"mnuCancellaPronostico", "Cancella Pronostico", true},
        {"mnuPronostico90Numeri", "Tutti e 90 i numeri", true},
        {"mnu10piuFrequenti", "I 10 numeri più frequenti", false},
        {"mnu10menoFrequenti", "I 10 numeri meno frequenti", false},
        {"mnu30piuFrequenti", "I 30 numeri più frequenti", false},
        {"mnu30menoFrequenti", "I 30 numeri meno frequenti", false},
        {"mnuUltimaEstrazione", "Ultima Estrazione", false},
    };
    for (const auto& v : voci) {
        QAction* a = m_menu->addAction(QString::fromUtf8(v.caption));
        a->setObjectName(QString::fromLatin1(v.name));
        a->setVisible(v.visible);
    }
    Corpo& c = window.corpo();
    QObject::connect(m_menu->findChild<QAction*>(QStringLiteral("mnuCancellaPronostico")),
                     &QAction::triggered, &window, [this, &c] { CancellaPronostico(c, m_window.ui()); });
    QObject::connect(m_menu->findChild<QAction*>(QStringLiteral("mnuPronostico90Numeri")),
                     &QAction::triggered, &window, [this] { tuttiI90(); });
}

void frmMAINPronostico::apri(const QPoint& pos) {
    if (m_window.corpo().pronostico.NumColonne != 0 || m_menu->isVisible()) return;
    m_menu->popup(pos);
}

void frmMAINPronostico::tuttiI90() {
    Corpo& c = m_window.corpo();
    CancellaPronostico(c, m_window.ui());
    for (int i = 0; i < 90; ++i)
        GrigliaNumeriClick(c, m_window.ui(), i);
}

} // namespace dv
