// The synthetic archives of the server's demo mode: draws made up deterministically from their
// date and number, so that a machine without any real archive sees every window work. They are
// no real results. The text is the archive format the program reads: a heading, then one line a
// draw, tab-separated: date dd/mm/yyyy, number, twenty numbers ascending, Numero Oro, Doppio Oro.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace dv::server {

// One made-up draw: twenty distinct numbers 1..90 ascending; the Numero Oro and the Doppio Oro
// are the first and the second drawn, so both are among the twenty and differ.
struct EstrazioneDemo {
    std::array<uint8_t, 20> numeri{};
    uint8_t oro = 0;
    uint8_t doppio = 0;
};

// The draw of that day (YYYYMMDD) and number; kind 0 evening, 1 five-minute.
EstrazioneDemo EstrazioneDemoDi(int yyyymmdd, int concorso, int tipo);

// One evening draw a day for the three years up to today (days since 30 December 1899); today's
// only from 20:00 on (minutes is the time of day in minutes). Number = day of the year.
std::string ArchivioDemoSerale(double oggi, int minuti);

// 288 draws a day, number k at 5*k minutes past midnight, for the 150 days up to today (today's
// as far as the time of day), keeping only the days from dal (YYYYMMDD) on.
std::string ArchivioDemo5Minuti(double oggi, int minuti, int dal);

} // namespace dv::server
