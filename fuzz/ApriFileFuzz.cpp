// Fuzz target of the system file reader: any bytes, written to a file and opened into a fresh
// state, must give an answer and a sound state; a file that opens must save and open again
// to the same system.
#include "fuzz/FuzzSupport.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"

#include <memory>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string copia = PercorsoFuzz("copia.dvs");
    static auto c = std::make_unique<dv::Corpo>();
    static auto d = std::make_unique<dv::Corpo>();
    dv::test::FakeUi ui; // answers every box, records what it was asked
    const std::string input = InputFuzz("input.dvs", data, size);
    Rinnova(*c);
    const dv::EsitoApriFile esito = dv::ApriFile(*c, ui, input);
    VerificaStato(*c);
    Verifica(ui.busyDepth == 0, "the busy pointer is given back");
    if (esito != dv::EsitoApriFile::Aperto) return 0;

    // What opened saves and opens again to the same system.
    Verifica(dv::SalvaFile(*c, ui, copia), "an opened system saves");
    Rinnova(*d);
    Verifica(dv::ApriFile(*d, ui, copia) == dv::EsitoApriFile::Aperto, "a saved system opens");
    Verifica(d->pronostico.Quanti == c->pronostico.Quanti && d->Griglia == c->Griglia, "the same forecast");
    VerificaStesseColonne(*c, *d);
    return 0;
}
