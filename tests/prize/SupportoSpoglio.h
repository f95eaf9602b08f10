// Builders of the check tests: a system from a list of columns, a draw, an archive; and the
// results written out as text, so that a difference shows where it lies.
#pragma once

#include "prize/Spoglio.h"
#include "prize/SpoglioEstrazioni.h"
#include "prize/VerificaSistemi.h"
#include "tests/archive/SupportoArchivio.h"
#include "tests/support/StateBuilder.h"

#include <sstream>
#include <string>
#include <vector>

namespace dv::test {

// Columns of length len as the system: forecast = the numbers 1..90 that the columns use.
inline void ImpostaSistema(Corpo& c, int len, const std::vector<std::vector<int>>& colonne) {
    c.LenColonna = static_cast<int16_t>(len);
    std::vector<int> usati;
    for (size_t j = 0; j < colonne.size(); ++j)
        for (int p = 0; p < len; ++p) {
            const int n = colonne[j][static_cast<size_t>(p)];
            c.Colonne.set(static_cast<int32_t>(j + 1), p + 1, static_cast<uint8_t>(n));
            if (n >= 1 && n <= 90) usati.push_back(n);
        }
    SetForecast(c, usati);
    c.pronostico.NumColonne = static_cast<int32_t>(colonne.size());
}

inline void ImpostaGiocata(Corpo& c, int tipo, float importo) {
    c.TipoGiocata = static_cast<uint8_t>(tipo);
    c.Importo = importo;
    c.CostoColonna = static_cast<float>(tipo) * importo;
}

inline void ImpostaEstrazione(Corpo& c, const std::vector<int>& numeri, int oro = 0, int doppio = 0) {
    c.NumeriSpoglio.fill(0);
    for (size_t i = 0; i < numeri.size() && i < 20; ++i)
        c.NumeriSpoglio[i + 1] = static_cast<uint8_t>(numeri[i]);
    c.OroSpoglio = static_cast<uint8_t>(oro);
    c.DoppioOroSpoglio = static_cast<uint8_t>(doppio);
}

inline RecordNumeri Riga(const std::vector<int>& numeri) {
    RecordNumeri r;
    r.count = static_cast<uint8_t>(numeri.size());
    for (size_t i = 0; i < numeri.size() && i < 25; ++i)
        r.numbers[i] = static_cast<uint8_t>(numeri[i]);
    return r;
}

// The values of a container, each followed by a blank.
template <typename C> std::string Elenco(const C& valori) {
    std::ostringstream s;
    for (const auto& v : valori)
        s << v << " ";
    return s.str();
}

inline std::string Descrivi(const RisultatoSpoglio& r) {
    std::ostringstream s;
    for (size_t h = 0; h <= 10; ++h)
        s << "h" << h << ":" << r.Vincite[h] << "[" << Elenco(r.colonne[h]) << "] ";
    s << "tot " << r.TotaleVinto << " max " << int(r.MaxPunti) << " min " << int(r.MinPunti);
    return s.str();
}

inline std::string Descrivi(const RisultatoEstrazioni& r) {
    std::ostringstream s;
    for (const RigaSpoglio& g : r.righe)
        s << g.indice << (g.saltata ? " skip" : "") << " b" << int(g.Base) << " " << int(g.Max) << "/"
          << int(g.Min) << " " << g.oro1 << g.oro2 << " [" << Elenco(g.Vincite) << "] " << g.euro << "\n";
    s << "T[" << Elenco(r.Totali) << "] " << r.TotGiocato << " " << r.TotVinto << " " << r.NumEstrazioni;
    return s.str();
}

inline std::string Descrivi(const RisultatoVerifica& v) {
    std::ostringstream s;
    s << v.lenFile1 << ":";
    for (const auto& r : v.conteggi)
        s << Elenco(r) << "| ";
    s << Elenco(v.totali);
    return s.str();
}

} // namespace dv::test
