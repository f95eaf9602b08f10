// Fuzz target of the system file reader: any bytes, written to a file and opened into a fresh
// state, must give an answer and a sound state; a file that opens must save and open again
// to the same system.
#include "core/Corpo.h"
#include "core/Ui.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

std::string PercorsoTemporaneo(const char* nome) {
    return (std::filesystem::temp_directory_path() / ("dv_fuzz_" + std::to_string(::getpid()) + nome)).string();
}

// A fresh state that keeps the store already allocated: only its used part is erased.
void Rinnova(dv::Corpo& c) {
    dv::ColumnStore store = std::move(c.Colonne);
    store.erase();
    c = dv::Corpo{};
    c.Colonne = std::move(store);
}

void Verifica(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "broken invariant: %s\n", what);
    std::abort();
}

void VerificaStato(const dv::Corpo& c) {
    Verifica(c.LenColonna >= 1 && c.LenColonna <= dv::MaxLenColonna, "LenColonna in 1..25");
    Verifica(c.pronostico.NumColonne >= 0 && c.pronostico.NumColonne <= dv::MaxColonne, "NumColonne in range");
    Verifica(c.pronostico.Quanti <= 90, "Quanti <= 90");
    Verifica(c.FiltriAND.count() <= dv::MaxFiltri && c.FiltriOR.count() <= dv::MaxFiltri &&
                 c.FiltriXOR.count() <= dv::MaxFiltri,
             "filter tables within capacity");
    Verifica(c.CondizioniDistanza.count() <= dv::MaxCondizioniDistanza, "distance table within capacity");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string input = PercorsoTemporaneo(".dvs");
    static const std::string copia = PercorsoTemporaneo("_copia.dvs");
    static auto c = std::make_unique<dv::Corpo>();
    static auto d = std::make_unique<dv::Corpo>();
    dv::test::FakeUi ui; // answers every box, records what it was asked
    {
        std::ofstream out(input, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    Rinnova(*c);
    const dv::EsitoApriFile esito = dv::ApriFile(*c, ui, input);
    VerificaStato(*c);
    if (esito != dv::EsitoApriFile::Aperto) return 0;

    // What opened saves and opens again to the same system.
    Verifica(dv::SalvaFile(*c, ui, copia), "an opened system saves");
    Rinnova(*d);
    Verifica(dv::ApriFile(*d, ui, copia) == dv::EsitoApriFile::Aperto, "a saved system opens");
    Verifica(d->LenColonna == c->LenColonna && d->pronostico.NumColonne == c->pronostico.NumColonne &&
                 d->pronostico.Quanti == c->pronostico.Quanti && d->Griglia == c->Griglia,
             "the reopened system is the same");
    for (int32_t j = 1; j <= c->pronostico.NumColonne; ++j)
        for (int p = 1; p <= c->LenColonna; ++p) Verifica(d->Colonne.get(j, p) == c->Colonne.get(j, p), "same columns");
    return 0;
}
