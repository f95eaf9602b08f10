#include "core/dialogs/OrdinaPronostico.h"

#include "core/dialogs/Condizione.h"
#include "core/Sistema.h"

#include <cmath>
#include <random>
#include <utility>

namespace dv {

OrdinePronostico::OrdinePronostico(Corpo& c) : m_c(c) {
    AggiornaPronostico(c);
    const int quanti = c.pronostico.Quanti;
    m_numeri.assign(c.pronostico.Numeri.begin(), c.pronostico.Numeri.begin() + quanti);
    m_colori.assign(static_cast<size_t>(quanti), ColoreBianco);
}

bool OrdinePronostico::rilascia(int sorgente, int destinazione) {
    if (sorgente == destinazione) return false;
    if (sorgente < 0 || sorgente >= quanti() || destinazione < 0 || destinazione >= quanti()) return false;
    const auto s = static_cast<size_t>(sorgente);
    const auto d = static_cast<size_t>(destinazione);
    std::swap(m_numeri[s], m_numeri[d]);
    m_colori[s] = m_colori[d] = ColoreGiallo;
    return true;
}

void OrdinePronostico::casuale(uint32_t seed) {
    m_contatore = (m_contatore + 1) % static_cast<int>(ColoriOrdineCasuale.size());
    const uint32_t colore = ColoriOrdineCasuale[static_cast<size_t>(m_contatore)];
    const int n = quanti();
    if (n < 2) return;

    std::mt19937 gen(seed);
    // A value in [0, 1) with the 24 bits of a single-precision random number.
    auto caso = [&gen] { return static_cast<double>(gen() >> 8) * (1.0 / 16777216.0); };
    auto indice = [&] { return static_cast<int>(std::floor(n * caso())); };
    caso(); // the first value after seeding is dropped
    for (int k = 0; k < n * 10; ++k) {
        const int i = indice();
        int j = indice();
        while (j == i)
            j = indice();
        std::swap(m_numeri[static_cast<size_t>(i)], m_numeri[static_cast<size_t>(j)]);
        m_colori[static_cast<size_t>(i)] = m_colori[static_cast<size_t>(j)] = colore;
    }
}

void OrdinePronostico::chiudi() {
    for (int i = 0; i < quanti(); ++i)
        m_c.pronostico.Numeri[static_cast<size_t>(i)] = m_numeri[static_cast<size_t>(i)];
}

} // namespace dv
