// Fuzz target of the text columns reader: any bytes imported into a fresh state give an answer and
// a sound state; columns that were taken hold numbers up to 90 and, without a 0, save as text that
// imports again to the same columns.
#include "fuzz/FuzzSupport.h"
#include "system_files/ColonneTesto.h"
#include "tests/support/FakeUi.h"

#include <memory>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string copia = PercorsoFuzz("copia.txt");
    static auto c = std::make_unique<dv::Corpo>();
    static auto d = std::make_unique<dv::Corpo>();
    dv::test::FakeUi ui;
    const std::string input = InputFuzz("colonne.txt", data, size);
    for (const dv::RecordNumeri& r : dv::LoadTxtToColonneArray(ui, input))
        Verifica(r.count <= dv::MaxLenColonna, "at most 25 numbers a line");
    Rinnova(*c);
    const bool preso = dv::ImportaColonneTxt(*c, ui, input);
    VerificaStato(*c);
    if (!preso) return 0;
    bool zeri = false; // a 0 is kept in its cell but left out of the text a save writes
    for (int32_t j = 1; j <= c->pronostico.NumColonne; ++j)
        for (int p = 1; p <= c->LenColonna; ++p) {
            const int n = c->Colonne.get(j, p);
            Verifica(n <= 90, "imported numbers up to 90");
            zeri = zeri || n == 0;
        }
    if (zeri) return 0;

    Verifica(dv::SalvaColonneTxt(*c, ui, copia), "imported columns save");
    Rinnova(*d);
    Verifica(dv::ImportaColonneTxt(*d, ui, copia), "saved columns import");
    VerificaStesseColonne(*c, *d);
    return 0;
}
