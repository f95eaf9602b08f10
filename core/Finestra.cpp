#include "core/Finestra.h"

#include "core/Cartelle.h"
#include "core/Engine.h"
#include "core/Sistema.h"

#include <cstdio>
#include <filesystem>

namespace dv {

namespace fs = std::filesystem;

namespace {
void AggiornaCosto(Corpo& c, Ui& ui) {
    c.CostoColonna = static_cast<float>(c.TipoGiocata) * c.Importo;
    ui.ViewStatusBar();
}

// The file name of a path, with an ending ext1 (compared without case) replaced by ext2.
std::string CambiaEstensione(const std::string& path, const std::string& ext1, const std::string& ext2) {
    std::string name = fs::path(path).filename().string();
    if (name.size() >= ext1.size()) {
        const std::string tail = TitoloDaPath(name.substr(name.size() - ext1.size()));
        if (tail == ext1) name = name.substr(0, name.size() - ext1.size()) + ext2;
    }
    return name;
}
} // namespace

void ImpostaTipoGiocata(Corpo& c, Ui& ui, int tipo) {
    if (tipo < 1 || tipo > static_cast<int>(TipiGiocata.size())) return;
    c.TipoGiocata = static_cast<uint8_t>(tipo);
    AggiornaCosto(c, ui);
}

void ImpostaImporto(Corpo& c, Ui& ui, int index) {
    if (index < 0 || index >= static_cast<int>(ImportiGiocata.size())) return;
    c.IndiceImporto = static_cast<float>(index);
    c.Importo = static_cast<float>(ImportiGiocata[static_cast<size_t>(index)].decimi / 10.0);
    AggiornaCosto(c, ui);
}

double CostoSistema(const Corpo& c) {
    return static_cast<double>(c.CostoColonna) * static_cast<double>(c.pronostico.NumColonne);
}

std::string TestoNumeriInGioco(const Corpo& c, Ui& ui) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d", static_cast<int>(c.pronostico.Quanti));
    return ui.Lang("0042") + " [" + buf + "]";
}

double IntegraleMostrato(const Corpo& c) {
    return OperazioniAbilitate(c) ? ColonneIntegrali(c.pronostico.Quanti, c.LenColonna) : 0.0;
}

std::string PercorsoNuovoSistema(const Corpo& c) {
    return PercorsoIn(c.AppDir, {"sistemi", "nuovo.dvs"});
}

void NuovoSistema(Corpo& c, Ui& ui) {
    ResetSistema(c, ui, false);
    c.FileCorrente = PercorsoNuovoSistema(c);
    c.TitoloFile = TitoloDaPath(c.FileCorrente);
    ui.ViewStatusBar();
}

std::string PercorsoSalva(const Corpo& c) {
    return PercorsoIn(c.AppDir, {"sistemi", CambiaEstensione(c.FileCorrente, ".txt", ".dvs").c_str()});
}

bool SostituisceAltroFile(const std::string& target, const std::string& ultimo) {
    std::error_code ec;
    if (!fs::exists(target, ec)) return false;
    if (ultimo.empty()) return true;
    return !fs::equivalent(target, ultimo, ec);
}

std::string NomeEsportazione(const Corpo& c) {
    return CambiaEstensione(PercorsoSalva(c), ".dvs", ".txt");
}

} // namespace dv
