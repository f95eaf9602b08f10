// The update of the five-minute archive that the Ultimate window runs: the latest 30 days, 8,640
// draws at 288 a day, enough for the largest number of draws the search evaluates.
#pragma once

#include "archive/Aggiornamento.h"

namespace dv {

constexpr int16_t GiorniUltimate = -30;

// Downloads the five-minute draws from today plus GiorniUltimate on and rebuilds PathArchivio5Min.
// A failed download shows "0049". A conversion that fails keeps the archive as it was and ends in
// one box: "Error N (description) ", "last DLL ( 0 ) source ( ConvertArchivioTmpToDat ) ",
// "in procedure cmdUpdate_Click of Form frmUltimate" on three lines, then the line and field that
// failed.
EsitoAggiornamento AggiornaArchivioUltimate(const Corpo& c, Ui& ui, const ServerArchivi& server,
                                            double oggi = DataOdierna());

} // namespace dv
