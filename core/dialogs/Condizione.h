// What the six condition dialogs share: the ON/OFF switch, the read-only view of a finished
// system, and the colours of their cells.
#pragma once

#include "core/Corpo.h"

#include <cstdint>

namespace dv {

// Colours as the program writes them, blue in the high byte (0xBBGGRR).
constexpr uint32_t ColoreBianco = 0xFFFFFF;
constexpr uint32_t ColoreNero = 0x000000;
constexpr uint32_t ColoreRosso = 0x0000FF;
constexpr uint32_t ColoreGrigio = 0xE0E0E0; // a number that is not in the forecast
constexpr uint32_t ColoreBlu = 0xC00000;    // the cells of the forecast order
constexpr uint32_t ColoreGiallo = 0x00FFFF; // a cell moved by hand

// While a finished system is locked, a condition dialog only shows its conditions.
inline bool SoloLettura(const Corpo& c) {
    return c.SistemaBloccato == -1;
}

// A click on the ON/OFF options: index 0 switches the condition on, any other index off.
inline void ImpostaCondizione(int16_t& flag, int index) {
    flag = index == 0 ? Vero : Falso;
}

// The option that shows a flag at load: 0 (ON) when it is set, 1 (OFF) when it is not.
inline int IndiceCondizione(int16_t flag) {
    return flag != Falso ? 0 : 1;
}

} // namespace dv
