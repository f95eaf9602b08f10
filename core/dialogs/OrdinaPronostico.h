// frmOrdinaPronostico without its window: the forecast's numbers in cells that the user
// exchanges by dragging or puts in a random order, and the closing that writes the order to
// Numeri. The matrix adaptation gives each matrix index the number at that place.
#pragma once

#include "core/Corpo.h"

#include <array>
#include <cstdint>
#include <vector>

namespace dv {

// Text colours of the random order, one per press in turn (0xBBGGRR).
constexpr std::array<uint32_t, 5> ColoriOrdineCasuale = {65535, 8454016, 16744703, 16777088, 33023};

class OrdinePronostico {
public:
    // Sorts Numeri (AggiornaPronostico); one cell for each of the Quanti numbers, white text.
    explicit OrdinePronostico(Corpo& c);

    int quanti() const { return static_cast<int>(m_numeri.size()); }
    uint8_t numero(int i) const { return m_numeri[static_cast<size_t>(i)]; }
    uint32_t coloreTesto(int i) const { return m_colori[static_cast<size_t>(i)]; }
    // The counter 0..4 of presses of cmdPronosticoRnd, which picks the colour.
    int contatore() const { return m_contatore; }

    // A cell dropped on another: the two numbers change places and both turn yellow. A drop
    // on itself or on a cell that holds no number changes nothing. Returns true on a change.
    bool rilascia(int sorgente, int destinazione);
    // cmdPronosticoRnd: the counter moves on, then Quanti * 10 exchanges of two different
    // cells drawn from seed, each painted in the counter's colour. One number has no partner
    // to exchange with, so it stays.
    void casuale(uint32_t seed);
    // Numeri[i] = the number of cell i, for the Quanti cells.
    void chiudi();

private:
    Corpo& m_c;
    std::vector<uint8_t> m_numeri;
    std::vector<uint32_t> m_colori;
    int m_contatore = 0;
};

} // namespace dv
