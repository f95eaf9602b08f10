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
    std::array<bool, 256> visto{};
    for (size_t j = 0; j < colonne.size(); ++j)
        for (int p = 0; p < len; ++p) {
            const int n = colonne[j][static_cast<size_t>(p)];
            c.Colonne.set(static_cast<int32_t>(j + 1), p + 1, static_cast<uint8_t>(n));
            if (n >= 1 && n <= 90 && !visto[static_cast<size_t>(n)])
                usati.push_back(n), visto[static_cast<size_t>(n)] = true;
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

inline std::string Descrivi(const RisultatoSpoglio& r) {
    std::ostringstream s;
    for (size_t h = 0; h <= 10; ++h) {
        s << "h" << h << ":" << r.Vincite[h] << "[";
        for (int32_t c : r.colonne[h])
            s << c << " ";
        s << "] ";
    }
    s << "tot " << r.TotaleVinto << " max " << int(r.MaxPunti) << " min " << int(r.MinPunti);
    return s.str();
}

inline std::string Descrivi(const RisultatoEstrazioni& r) {
    std::ostringstream s;
    for (const RigaSpoglio& g : r.righe) {
        s << g.indice << (g.saltata ? " skip" : "") << " b" << int(g.Base) << " " << int(g.Max) << "/"
          << int(g.Min) << " " << g.oro1 << g.oro2 << " [";
        for (int32_t v : g.Vincite)
            s << v << " ";
        s << "] " << g.euro << "\n";
    }
    s << "T[";
    for (int32_t v : r.Totali)
        s << v << " ";
    s << "] " << r.TotGiocato << " " << r.TotVinto << " " << r.NumEstrazioni;
    return s.str();
}

inline std::string Descrivi(const RisultatoVerifica& v) {
    std::ostringstream s;
    s << v.lenFile1 << ":";
    for (const auto& r : v.conteggi) {
        for (int32_t x : r)
            s << x << " ";
        s << "| ";
    }
    for (int32_t x : v.totali)
        s << x << " ";
    return s.str();
}

} // namespace dv::test
