// What the main window shows and sets, without the window: the texts of its labels, the stake
// table, the cost of a system and the file names its menus propose.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"

#include <array>
#include <string>

namespace dv {

// The stake options: caption and value in tenths of a euro, by option index 0..9.
struct OpzioneImporto {
    const char* caption;
    int decimi;
};
constexpr std::array<OpzioneImporto, 10> ImportiGiocata{{{"1", 10},
                                                         {"1,5", 15},
                                                         {"2", 20},
                                                         {"2,5", 25},
                                                         {"3", 30},
                                                         {"5", 50},
                                                         {"10", 100},
                                                         {"20", 200},
                                                         {"50", 500},
                                                         {"200", 2000}}};

// The kinds of play, by option index 0..2; the kind's value is the index + 1.
constexpr std::array<const char*, 3> TipiGiocata{{"Classico", "Numero ORO", "Doppio ORO"}};

// optTipoGiocata: TipoGiocata = tipo (1..3), CostoColonna = TipoGiocata * Importo, status line.
void ImpostaTipoGiocata(Corpo& c, Ui& ui, int tipo);
// optImporto: IndiceImporto = index (0..9), Importo from the stake table, cost, status line.
void ImpostaImporto(Corpo& c, Ui& ui, int index);
// The cost of the held system, CostoColonna * NumColonne in 64-bit floats.
double CostoSistema(const Corpo& c);

// The text of labnumeri: "0042", " [", Quanti as two digits, "]".
std::string TestoNumeriInGioco(const Corpo& c, Ui& ui);
// What lblIntegrale counts: the integral development when enough numbers are chosen, else 0.
double IntegraleMostrato(const Corpo& c);

// AppDir/sistemi/nuovo.dvs, the path of a new system.
std::string PercorsoNuovoSistema(const Corpo& c);
// menuNuovo: empty system, FileCorrente back to the new system's path, status line.
void NuovoSistema(Corpo& c, Ui& ui);
// The name under which menuSalva saves: FileCorrente's file name, ".txt" made ".dvs", in
// AppDir/sistemi.
std::string PercorsoSalva(const Corpo& c);
// True when saving to target would replace an existing file other than ultimo, the file the
// system in memory was last opened from or saved to (empty for a system that has none).
bool SostituisceAltroFile(const std::string& target, const std::string& ultimo);
// The name menuEsportaColonne proposes: the file name of the save path, ".dvs" made ".txt".
std::string NomeEsportazione(const Corpo& c);

} // namespace dv
