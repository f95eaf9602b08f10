// Fuzz target of the matrix file reader: any bytes give a header, a catalogue row and a seal
// check without reading past the file; a body that reads holds exactly K * C indices, and a
// sealed file whose body reads is written back byte for byte.
#include "fuzz/FuzzSupport.h"
#include "matrix/Catalogo.h"
#include "matrix/Matrice.h"
#include "system_files/ErroreEsecuzione.h"

#include <vector>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input = InputFuzz("matrici/FUZZ.mqvn", data, size);
    const std::string cartella = PercorsoFuzz("matrici");
    try {
        (void)dv::ReadMatrixHeader(input);
    } catch (const dv::ErroreEsecuzione&) {
    }
    const bool sigillo = dv::CheckMatrixCrc(input);
    const dv::MATRIX_CATALOG_ENTRY e = dv::VoceCatalogo(cartella, "FUZZ.mqvn", 46000.0);
    Verifica(e.CRC_OK == 0 || sigillo, "the catalogue trusts no seal that CheckMatrixCrc refuses");
    dv::MATRIX_STRUCTURE m;
    try {
        m = dv::ReadMatrix(input);
    } catch (const dv::ErroreEsecuzione&) {
        return 0;
    }
    Verifica(static_cast<int64_t>(m.COLUMS.size()) == dv::LunghezzaCorpo(m), "the body holds K * C indices");
    const size_t atteso = dv::LunghezzaIntestazioneMatrice + m.COLUMS.size() + dv::LunghezzaSigillo;
    if (sigillo && size == atteso) {
        const std::vector<uint8_t> scritto = dv::SerializzaMatrice(m);
        Verifica(scritto == std::vector<uint8_t>(data, data + size), "a sealed matrix writes back as it was");
    }
    return 0;
}
