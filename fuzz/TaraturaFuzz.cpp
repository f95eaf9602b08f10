// Fuzz target of the slip calibration reader: any bytes give a calibration; what was read saves
// and reads back the same.
#include "fuzz/FuzzSupport.h"
#include "print/TaraturaScheda.h"

#include <cmath>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input = InputFuzz("printer/FUZZ.prn", data, size);
    static const std::string copia = PercorsoFuzz("printer/COPIA.prn");
    const dv::SlipCalibration c = dv::LoadCalibration(input);
    for (int i = 0; i < dv::NumeroValoriTaratura; ++i)
        (void)dv::BarraDaMm(dv::ValoreTaratura(c, i));
    // A printer's name holding control characters does not survive a rewrite: not compared.
    if (ConControllo(c.STAMPANTE) || !dv::SalvaTaratura(copia, c)) return 0;
    const dv::SlipCalibration r = dv::LoadCalibration(copia);
    for (int i = 0; i < dv::NumeroValoriTaratura; ++i) {
        const float a = dv::ValoreTaratura(r, i), b = dv::ValoreTaratura(c, i);
        Verifica(a == b || (std::isnan(a) && std::isnan(b)), "a saved length reads back the same");
    }
    Verifica(r.STAMPANTE == c.STAMPANTE && r.INTENSITA_STAMPA == c.INTENSITA_STAMPA,
             "printer and quality read back");
    return 0;
}
