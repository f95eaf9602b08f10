// Fuzz target of the settings file reader: any bytes read as settings; what was read saves and
// reads back the same, and the save leaves the keys it does not write as they were.
#include "fuzz/FuzzSupport.h"
#include "settings/classINI.h"
#include "settings/Impostazioni.h"
#include "settings/Lingua.h"

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string appDir = PercorsoFuzz("impostazioni");
    std::filesystem::create_directories(appDir);
    const std::string file = dv::FileImpostazioni(appDir);
    InputFuzz(file, data, size);

    dv::Impostazioni imp;
    dv::Lingua lingua;
    dv::ReadConfiguration(appDir, imp, lingua);
    const dv::classINI ini(file);
    (void)ini.getInt("IMPOSTAZIONI", "SORGENTE RICALCOLO");
    const std::string altro = ini.getProperty("ALTRO", "CHIAVE", "-");

    const dv::ImpostazioniDaSalvare s{imp.Intestazione, imp.StampanteTabulato, imp.ModalitaRicalcolo,
                                      imp.SorgenteRicalcolo == 1 ? 1 : 0, imp.Lingua};
    // Values holding control characters do not survive a rewrite as they stand: not compared.
    if (ConControllo(imp.Intestazione) || ConControllo(imp.StampanteTabulato) || ConControllo(imp.Lingua))
        return 0;
    if (!dv::ScriviImpostazioni(appDir, s)) return 0;
    dv::Impostazioni r;
    dv::ReadConfiguration(appDir, r, lingua);
    Verifica(r.Intestazione == imp.Intestazione && r.StampanteTabulato == imp.StampanteTabulato &&
                 r.ModalitaRicalcolo == imp.ModalitaRicalcolo &&
                 r.SorgenteRicalcolo == imp.SorgenteRicalcolo && r.Lingua == imp.Lingua,
             "saved settings read back the same");
    Verifica(r.Server == imp.Server, "a key the save does not write stays");
    Verifica(ini.getProperty("ALTRO", "CHIAVE", "-") == altro, "another section stays");
    return 0;
}
