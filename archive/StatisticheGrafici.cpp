// The rows of the six statistics charts, as the window and the command line show them.
#include "archive/Statistiche.h"

#include <cstdio>

namespace dv {

const char* ChiaveTitoloGrafico(int indice) {
    static constexpr const char* Chiavi[NumeroGrafici] = {"0035", "0032", "0033", "0034", "0036", "0038"};
    return indice >= 0 && indice < NumeroGrafici ? Chiavi[indice] : "";
}

std::vector<RigaGrafico> RigheGrafico(const TabelleStatistiche& t, int indice) {
    std::vector<RigaGrafico> righe;
    char testo[48];
    auto riga = [&](const char* etichetta, int32_t valore) {
        std::snprintf(testo, sizeof testo, "%s -->      %d", etichetta, valore);
        righe.push_back({testo, valore});
    };
    char etichetta[16];
    const std::array<int32_t, 21>* conteggi[] = {&t.consecutivi, &t.ripetuti, &t.pari, &t.dispari};
    switch (indice) {
    case 0:
        for (int i = 1; i <= 20; ++i) {
            std::snprintf(etichetta, sizeof etichetta, "%02d", i);
            riga(etichetta, t.consecutivi[static_cast<size_t>(i)]);
        }
        break;
    case 1:
    case 2:
    case 3:
        for (int i = 0; i <= 20; ++i) {
            std::snprintf(etichetta, sizeof etichetta, "%02d", i);
            riga(etichetta, (*conteggi[indice])[static_cast<size_t>(i)]);
        }
        break;
    case 4:
        for (int b = 1; b <= 20; ++b) {
            std::snprintf(etichetta, sizeof etichetta, "%04d-%04d", MinimoBanda(b), MassimoBanda(b));
            riga(etichetta, t.somma[static_cast<size_t>(b)]);
        }
        break;
    case 5:
        for (size_t i = 1; i <= 90; ++i) {
            std::snprintf(etichetta, sizeof etichetta, "%02d", t.frequenza[i][1]);
            riga(etichetta, t.frequenza[i][0]);
        }
        break;
    default:
        break;
    }
    return righe;
}

} // namespace dv
