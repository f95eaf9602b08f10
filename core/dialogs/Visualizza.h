// frmVisualizza without its window: paging through the stored columns ten at a time, the
// unit a play slip holds, and the text of each column's line.
#pragma once

#include "core/Corpo.h"

#include <array>
#include <cstdint>
#include <string>

namespace dv {

constexpr int ColonnePerPannello = 10;

// Panel p shows the columns 10p-9 .. 10p. Every move stays within the first and last panel.
class PannelliSistema {
public:
    // The last panel is NumColonne / 10 rounded up, and at least the first.
    explicit PannelliSistema(int32_t numColonne);
    int32_t primo() const { return 1; }
    int32_t ultimo() const { return m_ultimo; }
    int32_t corrente() const { return m_corrente; }
    void avanti(int32_t passo);
    void indietro(int32_t passo);
    void vaiAlPrimo() { m_corrente = 1; }
    void vaiAllUltimo() { m_corrente = m_ultimo; }

private:
    int32_t m_ultimo;
    int32_t m_corrente = 1;
};

// The line of column c: two blanks, then its numbers as "07-12-...-88". A column past
// NumColonne has no numbers, so its line holds the two blanks only.
std::string RigaColonna(const Corpo& c, int32_t colonna);

// The ten lines of panel p.
std::array<std::string, ColonnePerPannello> RighePannello(const Corpo& c, int32_t pannello);

} // namespace dv
