// Fuzz target of the archive text converter: any text either converts into whole records that
// load again, or fails leaving the previous archive byte for byte and no stray file beside it.
#include "archive/Archivio.h"
#include "archive/Conversione.h"
#include "fuzz/FuzzSupport.h"
#include "tests/archive/LeggiFile.h"
#include "tests/support/FakeUi.h"

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string precedente = "previous archive, kept on failure";
    const std::string source = InputFuzz("conversione.txt", data, size);
    const std::string target = InputFuzz(
        "conversione/10elotto.dat", reinterpret_cast<const uint8_t*>(precedente.data()), precedente.size());
    const std::string cartella = PercorsoFuzz("conversione");

    const dv::EsitoConversione esito = dv::ConvertArchivioTmpToDat(source, target);
    size_t file = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(cartella))
        ++file;
    Verifica(file == 1, "nothing but the archive beside the archive");
    dv::test::FakeUi ui;
    if (!esito.completata()) {
        Verifica(dv::test::LeggiFile(target) == precedente, "a failed conversion keeps the previous archive");
        Verifica(esito.testo.size() <= 40, "the bad field is quoted in at most 40 characters");
        Verifica(!dv::MessaggioConversione(esito, source, ui).empty(), "a failure has its message");
        return 0;
    }
    Verifica(std::filesystem::file_size(target) ==
                 static_cast<uintmax_t>(esito.estrazioni) * dv::DimensioneRecordEstrazione,
             "one whole record a draw line");
    const dv::ArrayEstrazioni a = dv::LoadArchivioDAT(target, cartella, ui);
    Verifica(a.size() >= 2 && static_cast<int64_t>(a.size()) - 1 <= std::max<int64_t>(1, esito.estrazioni),
             "the converted archive loads");
    return 0;
}
