// Fuzz target of the HTTP answer reader: any bytes, fed whole and then in pieces whose sizes the
// input's first byte sets, give the same state, status and body; a body never holds more than came,
// and a complete one with a length (never with chunks too) holds exactly that length.
#include "fuzz/FuzzSupport.h"
#include "settings/RispostaHttp.h"

#include <string_view>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const size_t passo = 1 + data[0] % 13;
    const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);

    dv::RispostaHttp intera, pezzi;
    std::string corpoIntero, corpoPezzi;
    intera.aggiungi(input, corpoIntero);
    for (size_t i = 0; i < input.size(); i += passo)
        pezzi.aggiungi(input.substr(i, passo), corpoPezzi);
    Verifica(intera.stato() == pezzi.stato(), "the same state whatever the pieces");
    Verifica(intera.status() == pezzi.status(), "the same status whatever the pieces");
    Verifica(corpoIntero == corpoPezzi, "the same body whatever the pieces");
    Verifica(corpoIntero.size() <= input.size(), "no more body than bytes came");
    if (intera.stato() == dv::RispostaHttp::Stato::Completa && intera.contentLength() >= 0 &&
        intera.status() != 204 && intera.status() != 304)
        Verifica(static_cast<int64_t>(corpoIntero.size()) == intera.contentLength(),
                 "a whole body of its length");
    (void)intera.chiusa();
    return 0;
}
