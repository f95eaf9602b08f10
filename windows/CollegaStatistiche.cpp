// Wires the statistiche area's windows into the main window: the statistics window, loaded unseen,
// its menu entry, and the forecast from the most and least frequent numbers.
#include "archive/Archivio.h"
#include "archive/Statistiche.h"
#include "windows/Aree.h"
#include "windows/frmMAIN.h"
#include "windows/frmStatistiche.h"
#include "windows/QtUi.h"

#include <memory>

namespace dv {

void CollegaStatistiche(frmMAIN& main) {
    // Owned by the main window and hidden, not closed, for the life of the program.
    auto* statistiche = new frmStatistiche(main.corpo(), main.ui(), main.dialogs(), &main);
    statistiche->carica();

    Finestre& f = main.finestre();
    f.mostraStatistiche = [statistiche] {
        statistiche->show();
        statistiche->raise();
        statistiche->activateWindow();
    };
    // An update recomputes before it rebuilds the date lists. When the updated archive no longer
    // holds the dates the lists still show (its oldest days dropped out), the counts are made
    // right after the lists are rebuilt instead of ending in a box about a date that is gone.
    auto rinviato = std::make_shared<bool>(false);
    f.popolaStatistiche = [statistiche, rinviato] {
        const bool ok = statistiche->populateCmbEstrazioni();
        if (*rinviato && ok) statistiche->refreshStat();
        *rinviato = false;
        return ok;
    };
    f.ricalcolaStatistiche = [statistiche, rinviato, &main] {
        if (!ArchivioVuoto(main.corpo().mArrEstrazioni) && !statistiche->intervalloNellArchivio()) {
            *rinviato = true;
            return;
        }
        statistiche->refreshStat();
    };
    f.aggiornaStatistiche = [statistiche] {
        statistiche->populateCmbEstrazioni();
        statistiche->refreshStat();
    };
    f.numeriPerFrequenza = [statistiche] { return NumeriPerFrequenza(statistiche->tabelle()); };

    main.collega("menuStatistiche", [&main] { main.finestre().mostraStatistiche(); });
    const struct {
        const char* nome;
        int quanti;
        bool piu;
    } voci[] = {{"mnu10piuFrequenti", 10, true},
                {"mnu10menoFrequenti", 10, false},
                {"mnu30piuFrequenti", 30, true},
                {"mnu30menoFrequenti", 30, false}};
    for (const auto& v : voci)
        main.collega(v.nome, [&main, v] {
            PronosticoDaFrequenze(main.corpo(), main.ui(), main.finestre().numeriPerFrequenza(), v.quanti,
                                  v.piu);
        });
    main.aggiornaVisibilitaMenu();
}

} // namespace dv
