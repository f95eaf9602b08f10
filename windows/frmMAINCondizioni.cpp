#include "windows/frmMAINCondizioni.h"

#include "windows/frmConsecutivi.h"
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFiltri.h"
#include "windows/frmFiltriDistanzaNumeri.h"
#include "windows/frmFisse.h"
#include "windows/frmMAIN.h"
#include "windows/frmPari.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"
#include "windows/QtUi.h"

#include <QAction>

#include <cstring>
#include <type_traits>

namespace dv {

frmMAINCondizioni::frmMAINCondizioni(frmMAIN& window) : m_window(window) {
    window.collega("menuColonnaFiltroAND",
                   [this] { apri<frmFiltri>({"menuColonnaFiltroAND"}, TipoFiltro::AND); });
    window.collega("menuColonnaFiltroOR",
                   [this] { apri<frmFiltri>({"menuColonnaFiltroOR"}, TipoFiltro::OR); });
    window.collega("menuColonnaFiltroXOR",
                   [this] { apri<frmFiltri>({"menuColonnaFiltroXOR"}, TipoFiltro::XOR); });
    window.collega("menuDistanzaNumeri", [this] { apri<frmFiltriDistanzaNumeri>({"menuDistanzaNumeri"}); });
    window.collega("menuConsecutivi", [this] { apri<frmConsecutivi>({"menuConsecutivi"}); });
    window.collega("menuFisse", [this] { apri<frmFisse>({"menuFisse"}); });
    window.collega("menuPariDispari", [this] { apri<frmPari>({"menuPariDispari"}); });
    window.collega("menuSomma", [this] { apri<frmSomma>({"menuSomma"}); });
    window.collega("menuRidotto", [this] { apri<frmRidotto>({"menuRidotto", "menuDistanzaMinima"}); });
    window.collega("menuDistanzaMinima", [this] {
        apri<frmDistanzaMinima>({"menuRidotto", "menuDistanzaMinima"});
    });
}

template <typename D, typename... Args>
void frmMAINCondizioni::apri(std::initializer_list<const char*> segni, Args... args) {
    {
        D dialog(m_window.corpo(), m_window.ui(), args..., &m_window);
        if constexpr (std::is_same_v<D, frmFiltri>) dialog.setImporta(m_window.finestre().importaFiltri);
        dialog.exec();
    }
    for (const char* name : segni)
        segna(name);
}

void frmMAINCondizioni::segna(const char* name, bool on) {
    if (QAction* a = m_window.azione(QString::fromLatin1(name))) a->setChecked(on);
}

// The mark of one entry, from the state of its condition.
void frmMAINCondizioni::segna(const char* name) {
    const Corpo& c = m_window.corpo();
    const auto is = [name](const char* n) { return std::strcmp(name, n) == 0; };
    if (is("menuSomma"))
        segna(name, c.condizioni.CondSomma != 0);
    else if (is("menuFisse"))
        segna(name, c.condizioni.CondFisse != 0);
    else if (is("menuPariDispari"))
        segna(name, c.condizioni.CondPari != 0);
    else if (is("menuRidotto"))
        segna(name, c.condizioni.CondRidotto != 0);
    else if (is("menuDistanzaMinima"))
        segna(name, c.distanzaMinima.CondDistanzaMinima != 0);
    else if (is("menuConsecutivi"))
        segna(name, c.consecutivi.CondConsecutivi != 0);
    else if (is("menuColonnaFiltroAND"))
        segna(name, c.FiltriAND.count() >= 1);
    else if (is("menuColonnaFiltroOR"))
        segna(name, c.FiltriOR.count() >= 1);
    else if (is("menuColonnaFiltroXOR"))
        segna(name, c.FiltriXOR.count() >= 1);
    else if (is("menuDistanzaNumeri"))
        segna(name, c.CondizioniDistanza.count() != 0);
}

// After a system file is opened: every mark from the state, but the distance conditions' mark
// from the last distance record the file held, ON or OFF, whatever the table now counts.
void frmMAINCondizioni::aggiornaSegni() {
    for (const char* name :
         {"menuSomma", "menuFisse", "menuPariDispari", "menuRidotto", "menuDistanzaMinima", "menuConsecutivi",
          "menuColonnaFiltroAND", "menuColonnaFiltroOR", "menuColonnaFiltroXOR"})
        segna(name);
    segna("menuDistanzaNumeri", m_window.corpo().CondizioneDistanzaLetta.Stato != 0);
}

void frmMAINCondizioni::togliSegni() {
    for (const char* name :
         {"menuColonnaFiltroAND", "menuColonnaFiltroOR", "menuColonnaFiltroXOR", "menuConsecutivi",
          "menuDistanzaMinima", "menuFisse", "menuPariDispari", "menuRidotto", "menuSomma"})
        segna(name, false);
}

} // namespace dv
