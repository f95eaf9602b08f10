// The three condition dialogs made of cells, without their windows: frmPari (a cell for each
// count of even numbers), frmConsecutivi (a cell for each longest run) and frmFisse (the grid of
// numbers). Each says which cells are shown, enabled and on, takes the clicks of the sweeping
// gesture, and writes the condition back.
#pragma once

#include "core/Corpo.h"

#include <array>
#include <cstdint>

namespace dv {

// frmPari: cells 0..25, shown up to LenColonna; a cell is on when TabPari says so. A click
// writes TabPari at once, so the closing has nothing left to do. Hidden cells keep their entry.
class DialogoPari {
public:
    static constexpr int Celle = 26;
    explicit DialogoPari(Corpo& c) : m_c(c) {}
    bool visibile(int i) const { return i <= m_c.LenColonna; }
    bool acceso(int i) const { return m_c.condizioni.TabPari[static_cast<size_t>(i)] != Falso; }
    // Toggles cell i; returns its new state.
    bool click(int i);

private:
    Corpo& m_c;
};

// frmConsecutivi: cells 1..25, shown up to LenColonna, on where MaskConsecutivi has the bit.
class DialogoConsecutivi {
public:
    static constexpr int Prima = 1;
    static constexpr int Ultima = 25;
    // Sorts Numeri and reads the mask.
    explicit DialogoConsecutivi(Corpo& c);
    bool visibile(int i) const { return i <= m_c.LenColonna; }
    bool acceso(int i) const { return m_on[static_cast<size_t>(i)]; }
    bool click(int i);
    // The longest run of consecutive numbers inside the forecast, held at LenColonna: the hint l1.
    int sequenzaMassima() const { return m_sequenza; }
    // MaskConsecutivi = the sum of 2^i over the cells that are on, hidden ones included.
    void chiudi();

private:
    Corpo& m_c;
    std::array<bool, 26> m_on{};
    int m_sequenza = 1;
};

// The longest run inside the first Quanti entries of Numeri, held at LenColonna.
int SequenzaPronostico(const Corpo& c);

// frmFisse: cells 0..89 for the numbers 1..90. Only the numbers of the forecast can be chosen,
// and a column must keep one free position, so at most LenColonna-1 numbers are fixed.
class DialogoFisse {
public:
    static constexpr int Celle = 90;
    // Turns on the fixed numbers that are still in the forecast and sets NumFisse to their
    // count, so that a fixed number dropped from the forecast disappears at once. A locked
    // system's conditions are only shown: neither the load nor the closing writes them.
    explicit DialogoFisse(Corpo& c);
    bool abilitato(int i) const { return m_c.Griglia[static_cast<size_t>(i)]; }
    bool acceso(int i) const { return m_on[static_cast<size_t>(i)]; }
    int conteggio() const { return m_conteggio; }
    int limite() const { return m_limite; }
    // A click on a number of the forecast: on goes off; off goes on while the count is below
    // the limit. Returns true when the cell changed.
    bool click(int i);
    // TabFisse takes every cell's state, NumFisse the count.
    void chiudi();

private:
    Corpo& m_c;
    std::array<bool, 90> m_on{};
    int m_conteggio = 0;
    int m_limite = 0;
};

} // namespace dv
