// The draw statistics computed the plain way, step by step, with nested loops and string
// concatenation: the reference the program's computation is checked against, in tests and in the
// benchmark. Only the counters and the CSV text; the failures raise ErroreEsecuzione as the
// program's do.
#pragma once

#include "archive/Archivio.h"
#include "archive/Statistiche.h"
#include "core/Ui.h"
#include "settings/Ansi.h"
#include "system_files/ErroreEsecuzione.h"

#include <cstdio>
#include <string>

namespace dv::test {

inline std::string DataLetterale(const Estrazione& e) {
    return e.dataTesto();
}

inline long DataComeNumero(const std::string& d) {
    int g = 0, m = 0, y = 0;
    if (std::sscanf(d.c_str(), "%2d/%2d/%4d", &g, &m, &y) != 3) return -1;
    return y * 10000L + m * 100L + g;
}

// Returns false (as the guard ends the computation) on a failure; t and csv as far as they got.
inline bool StatisticheLetterali(const ArrayEstrazioni& a, int32_t tipo, const IntervalloStatistiche& r,
                                 Ui& ui, TabelleStatistiche& t, std::string& csv) {
    t = TabelleStatistiche{};
    if (UBound(a) == 1 && !IsDate(std::string(a[1].Data.data(), 10))) return true;
    try {
        csv += ui.Lang("0031") + ";";
        if (tipo == 1) csv += "n.;";
        csv += "P1;P2;P3;P4;P5;P6;P7;P8;P9;P10;P11;P12;P13;P14;P15;P16;P17;P18;P19;P20;";
        csv += ui.Lang("0032") + ";" + ui.Lang("0033") + ";" + ui.Lang("0034") + ";" + ui.Lang("0035") + ";" +
               ui.Lang("0036");
        csv = Utf8ToAnsi(csv) + "\r\n";
        const long dal = DataComeNumero(r.dal), al = DataComeNumero(r.al);
        if (dal >= 0 && al >= 0 && al < dal) throw ErroreEsecuzione(-2147211504, ui.Lang("0022"));
        const int32_t ub = UBound(a);
        int32_t primo = 1;
        while (primo <= ub && DataLetterale(a[primo]) != r.dal)
            ++primo;
        if (primo > ub) throw errori::IndiceFuoriIntervallo();
        while (primo <= ub && DataLetterale(a[primo]) == r.dal && a[primo].Concorso < r.concDal)
            ++primo;
        if (primo > ub || DataLetterale(a[primo]) != r.dal) primo = primo - 1;
        int32_t ultimo = primo;
        while (ultimo <= ub && DataLetterale(a[ultimo]) != r.al)
            ++ultimo;
        if (ultimo > ub) {
            ultimo = ub;
        } else {
            while (ultimo <= ub && DataLetterale(a[ultimo]) == r.al && a[ultimo].Concorso < r.concAl)
                ++ultimo;
            if (ultimo > ub || DataLetterale(a[ultimo]) != r.al) ultimo = ultimo - 1;
        }
        for (int32_t i = ultimo; i >= primo; --i) {
            const Estrazione& e = a[i];
            int pari = 0;
            for (int k = 1; k <= 20; ++k)
                if (e.Numeri[k] % 2 == 0) ++pari;
            const int dispari = 20 - pari;
            ++t.pari[pari];
            ++t.dispari[dispari];
            int16_t somma = 0;
            for (int k = 1; k <= 20; ++k)
                somma = static_cast<int16_t>(somma + e.Numeri[k]);
            if (somma >= 210 && somma <= 280) ++t.somma[1];
            for (int k = 2; k <= 20; ++k)
                if (somma >= 70 * (k + 2) + 1 && somma <= 70 * (k + 3)) ++t.somma[k];
            int run = 1, lungo = 1;
            for (int k = 2; k <= 20; ++k) {
                if (e.Numeri[k] == e.Numeri[k - 1] + 1)
                    ++run;
                else
                    run = 1;
                if (run > lungo) lungo = run;
            }
            ++t.consecutivi[lungo];
            int ripetuti = 0;
            if (i != primo)
                for (int k = 1; k <= 20; ++k)
                    for (int h = 1; h <= 20; ++h)
                        if (e.Numeri[k] == a[i - 1].Numeri[h]) {
                            ++ripetuti;
                            break;
                        }
            ++t.ripetuti[ripetuti];
            csv += std::string(e.Data.data(), 10) + ";";
            if (tipo == 1) csv += std::to_string(e.Concorso) + ";";
            std::string numeri;
            for (int k = 1; k <= 20; ++k)
                if (e.Numeri[k] > 0) {
                    char buf[8];
                    std::snprintf(buf, sizeof buf, "%02d", e.Numeri[k]);
                    numeri += (numeri.empty() ? "" : ";") + std::string(buf);
                }
            csv += numeri + ";" + std::to_string(ripetuti) + ";" + std::to_string(pari) + ";" +
                   std::to_string(dispari) + ";" + std::to_string(lungo) + ";" + std::to_string(somma) +
                   "\r\n";
            for (int k = 1; k <= 20; ++k)
                if (e.Numeri[k] > 0) {
                    if (e.Numeri[k] > 90) throw errori::IndiceFuoriIntervallo();
                    ++t.frequenza[e.Numeri[k]][0];
                }
        }
        for (int k = 1; k <= 90; ++k)
            t.frequenza[k][1] = k;
        for (int k = 1; k <= 90; ++k)
            for (int h = k + 1; h <= 90; ++h)
                if (t.frequenza[k][0] <= t.frequenza[h][0]) {
                    const auto tmp = t.frequenza[k];
                    t.frequenza[k] = t.frequenza[h];
                    t.frequenza[h] = tmp;
                }
    } catch (const ErroreEsecuzione&) {
        return false;
    }
    return true;
}

} // namespace dv::test
