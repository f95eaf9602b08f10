#include "windows/frmMAINCondizioni.h"

#include "windows/frmMAIN.h"

#include <QAction>

namespace dv {

frmMAINCondizioni::frmMAINCondizioni(frmMAIN& window) : m_window(window) {}

void frmMAINCondizioni::segna(const char* name, bool on) {
    if (QAction* a = m_window.azione(QString::fromLatin1(name))) a->setChecked(on);
}

void frmMAINCondizioni::aggiornaSegni() {
    const Corpo& c = m_window.corpo();
    segna("menuSomma", c.condizioni.CondSomma != 0);
    segna("menuFisse", c.condizioni.CondFisse != 0);
    segna("menuPariDispari", c.condizioni.CondPari != 0);
    segna("menuRidotto", c.condizioni.CondRidotto != 0);
    segna("menuDistanzaMinima", c.distanzaMinima.CondDistanzaMinima != 0);
    segna("menuConsecutivi", c.consecutivi.CondConsecutivi != 0);
    segna("menuColonnaFiltroAND", c.FiltriAND.count() >= 1);
    segna("menuColonnaFiltroOR", c.FiltriOR.count() >= 1);
    segna("menuColonnaFiltroXOR", c.FiltriXOR.count() >= 1);
    segna("menuDistanzaNumeri", c.CondizioniDistanza.count() != 0);
}

void frmMAINCondizioni::togliSegni() {
    for (const char* name : {"menuColonnaFiltroAND", "menuColonnaFiltroOR", "menuColonnaFiltroXOR", "menuConsecutivi",
                             "menuDistanzaMinima", "menuFisse", "menuPariDispari", "menuRidotto", "menuSomma"})
        segna(name, false);
}

} // namespace dv
