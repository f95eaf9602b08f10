// The windows that one area of the program opens in another. Each area (archive, checks,
// statistics, Ultimate and filter import, matrices, printing) is a library of its own that the
// main window does not link; an area fills the entries it offers when the program wires it, and
// another area calls them. An entry left empty means that window is not part of the program.
#pragma once

#include "archive/Estrazione.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace dv {

struct Finestre {
    // The archive window: shown, with the archive it holds.
    std::function<void()> mostraArchivio;
    // The archive check's date lists rebuilt from mArrEstrazioni after the archive window changed
    // it (populateCmbEstrazioni of frmSpoglioEstrazioni).
    std::function<void()> popolaSpoglioEstrazioni;
    // The statistics window: shown; and its lists rebuilt and counts recomputed after the archive
    // in memory changed (aggiornaStatistiche does both, lists first). An update of the archive
    // recomputes first and then rebuilds the lists, a change of archive the other way round: the
    // two steps are also offered one by one, ricalcolaStatistiche (refreshStat) and
    // popolaStatistiche (populateCmbEstrazioni, false when the archive has too many dates).
    std::function<void()> mostraStatistiche;
    std::function<void()> aggiornaStatistiche;
    std::function<void()> ricalcolaStatistiche;
    std::function<bool()> popolaStatistiche;
    // The frequency table of the statistics, most frequent first: the numbers in that order
    // (fewer than 90 when no statistics were computed).
    std::function<std::vector<uint8_t>()> numeriPerFrequenza;
    // The single-draw check after the archive window copied a draw into NumeriSpoglio, OroSpoglio
    // and DoppioOroSpoglio: init of frmSpoglio and, when it returns true, the window shown.
    std::function<bool()> initSpoglio;
    std::function<void()> mostraSpoglio;
    // The system changed: an open single-draw check takes the new range of columns.
    std::function<void()> aggiornaSpoglio;
    // The filter import into table 1 AND, 2 OR, 3 XOR, opened from the filter window.
    std::function<void(int tabella)> importaFiltri;
};

} // namespace dv
