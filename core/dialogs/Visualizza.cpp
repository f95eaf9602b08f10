#include "core/dialogs/Visualizza.h"

#include <algorithm>
#include <cstdio>

namespace dv {

PannelliSistema::PannelliSistema(int32_t numColonne)
    : m_ultimo(std::max<int32_t>(1, (std::max<int32_t>(0, numColonne) + ColonnePerPannello - 1) /
                                        ColonnePerPannello)) {}

void PannelliSistema::avanti(int32_t passo) {
    m_corrente = std::min(m_ultimo, m_corrente + passo);
}

void PannelliSistema::indietro(int32_t passo) {
    m_corrente = std::max<int32_t>(1, m_corrente - passo);
}

std::string RigaColonna(const Corpo& c, int32_t colonna) {
    std::string riga = "  ";
    if (colonna < 1 || colonna > c.pronostico.NumColonne || colonna > MaxColonne) return riga;
    const int len = c.LenColonna;
    char buf[8];
    for (int p = 1; p < len; ++p) {
        const uint8_t n = c.Colonne.get(colonna, p);
        if (n == 0) continue;
        std::snprintf(buf, sizeof buf, "%02u-", static_cast<unsigned>(n));
        riga += buf;
    }
    const uint8_t ultimo = c.Colonne.get(colonna, len);
    if (ultimo != 0) {
        std::snprintf(buf, sizeof buf, "%02u", static_cast<unsigned>(ultimo));
        riga += buf;
    }
    return riga;
}

std::array<std::string, ColonnePerPannello> RighePannello(const Corpo& c, int32_t pannello) {
    std::array<std::string, ColonnePerPannello> righe;
    const int32_t prima = ColonnePerPannello * pannello - (ColonnePerPannello - 1);
    for (int i = 0; i < ColonnePerPannello; ++i)
        righe[static_cast<size_t>(i)] = RigaColonna(c, prima + i);
    return righe;
}

} // namespace dv
