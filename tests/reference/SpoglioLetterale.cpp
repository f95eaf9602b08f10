#include "tests/reference/SpoglioLetterale.h"

#include "prize/Premi.h"

#include <algorithm>
#include <cmath>

namespace dv::reference {

namespace {
// round(x) to nearest, ties to even, kept in 32 bits.
int32_t Arrotonda(double x) {
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<int64_t>(std::nearbyint(x))));
}
} // namespace

RisultatoSpoglio SpoglioColonne(const Corpo& c, int32_t dal, int32_t al) {
    RisultatoSpoglio r;
    std::array<uint8_t, 256> presenza{};
    for (int i = 1; i <= 20; ++i)
        if (c.NumeriSpoglio[static_cast<size_t>(i)] <= 90)
            presenza[c.NumeriSpoglio[static_cast<size_t>(i)]] = 1;
    presenza[0] = 0;
    const int L = c.LenColonna;
    for (int32_t col = 1; col <= c.pronostico.NumColonne; ++col) {
        if (col < dal || col > al) continue;
        int h = 0;
        bool oro1 = false, oro2 = false;
        for (int p = 1; p <= L; ++p) {
            const uint8_t n = c.Colonne.get(col, p);
            if (presenza[n] == 1) {
                ++h;
                if (n == c.OroSpoglio) oro1 = true;
                if (n == c.DoppioOroSpoglio) oro2 = true;
            }
        }
        const int32_t cella = Premio(ScegliTabella(c.TipoGiocata, oro1, oro2), L, h);
        if (cella != 0) {
            r.colonne[static_cast<size_t>(h)].push_back(col);
            r.Vincite[static_cast<size_t>(h)] += 1;
            r.TotaleVinto = static_cast<int32_t>(
                static_cast<uint32_t>(r.TotaleVinto) +
                static_cast<uint32_t>(Arrotonda(cella * static_cast<double>(c.Importo))));
        }
        if (h > r.MaxPunti) r.MaxPunti = static_cast<uint8_t>(h);
        if (h < r.MinPunti) r.MinPunti = static_cast<uint8_t>(h);
    }
    return r;
}

RisultatoEstrazioni SpoglioArchivio(Corpo& c, Ui& ui, Tratto tratto) {
    RisultatoEstrazioni r;
    r.Totali[14] = 10;
    const int L = c.LenColonna;
    for (int32_t i = tratto.primo; i <= tratto.ultimo; ++i) {
        const Estrazione& e = c.mArrEstrazioni[static_cast<size_t>(i)];
        RigaSpoglio riga;
        riga.indice = i;
        // CheckEstrazione
        c.OroSpoglio = e.NumeroOro;
        c.DoppioOroSpoglio = e.DoppioOro;
        std::array<uint8_t, 256> presenza{};
        for (int k = 1; k <= 20; ++k)
            if (e.Numeri[static_cast<size_t>(k)] <= 90) presenza[e.Numeri[static_cast<size_t>(k)]] = 1;
        presenza[0] = 0;
        int32_t vincita = 0;
        int mx = 0, mn = 10;
        bool flag1 = false, flag2 = false;
        if (c.TipoGiocata >= 2 && e.NumeroOro != 0 && presenza[e.NumeroOro] == 0) {
            ui.messageBox(TestoOroMancante(ui, e, false), "", BoxIcon::Exclamation);
            riga.saltata = true;
        } else if (c.TipoGiocata == 3 && e.DoppioOro != 0 && presenza[e.DoppioOro] == 0) {
            ui.messageBox(TestoOroMancante(ui, e, true), "", BoxIcon::Exclamation);
            riga.saltata = true;
        } else {
            int base = 0;
            for (int q = 0; q < c.pronostico.Quanti; ++q)
                if (presenza[c.pronostico.Numeri[static_cast<size_t>(q)]] == 1) ++base;
            for (int32_t col = 1; col <= c.pronostico.NumColonne; ++col) {
                int h = 0;
                bool oro1 = false, oro2 = false;
                for (int p = 1; p <= L; ++p) {
                    const uint8_t n = c.Colonne.get(col, p);
                    if (presenza[n] == 1) {
                        ++h;
                        if (n == e.NumeroOro) oro1 = flag1 = true;
                        if (n == e.DoppioOro) oro2 = flag2 = true;
                    }
                }
                const int32_t cella = Premio(ScegliTabella(c.TipoGiocata, oro1, oro2), L, h);
                if (cella != 0) {
                    riga.Vincite[static_cast<size_t>(h)] += 1;
                    r.Totali[static_cast<size_t>(h)] += 1;
                    vincita = Arrotonda(vincita + cella * static_cast<double>(c.Importo));
                }
                if (h > mx) mx = h;
                if (h < mn) mn = h;
            }
            riga.Base = static_cast<uint8_t>(base);
            riga.Max = static_cast<uint8_t>(mx);
            riga.Min = static_cast<uint8_t>(mn);
            riga.oro1 = flag1;
            riga.oro2 = flag2;
            riga.euro = vincita;
            if (base > r.Totali[13]) r.Totali[13] = base;
            if (mx > r.Totali[15]) r.Totali[15] = mx;
            if (mn < r.Totali[14]) r.Totali[14] = mn;
            if (flag1) ++r.Totali[12];
            if (flag2) ++r.Totali[11];
            r.TotVinto =
                static_cast<int32_t>(static_cast<uint32_t>(r.TotVinto) + static_cast<uint32_t>(vincita));
        }
        r.righe.push_back(riga);
        r.TotGiocato =
            Arrotonda(static_cast<double>(c.pronostico.NumColonne) * static_cast<double>(c.CostoColonna) +
                      r.TotGiocato);
        ++r.NumEstrazioni;
    }
    return r;
}

RisultatoVerifica VerificaSistema(const std::vector<RecordNumeri>& colonne1,
                                  const std::vector<RecordNumeri>& colonne2) {
    RisultatoVerifica v;
    const int len = colonne1.size() > 1 ? colonne1[1].count : 0;
    v.lenFile1 = len;
    v.totali.assign(static_cast<size_t>(len) + 3, 0);
    int32_t maxTutti = 0, minTutti = 255;
    for (size_t r = 1; r < colonne2.size(); ++r) {
        std::array<uint8_t, 256> presenza{};
        for (int k = 0; k < colonne2[r].count && k < 25; ++k)
            if (colonne2[r].numbers[static_cast<size_t>(k)] <= 90)
                presenza[colonne2[r].numbers[static_cast<size_t>(k)]] = 1;
        presenza[0] = 0;
        std::vector<int32_t> conteggi(static_cast<size_t>(len) + 3, 0);
        int32_t mx = 0, mn = 255;
        for (size_t j = 1; j < colonne1.size(); ++j) {
            int h = 0;
            for (int p = 1; p <= len; ++p)
                if (presenza[colonne1[j].numbers[static_cast<size_t>(p - 1)]] == 1) ++h;
            ++conteggi[static_cast<size_t>(h)];
            mx = std::max(mx, h);
            mn = std::min(mn, h);
        }
        conteggi[static_cast<size_t>(len) + 1] = mn;
        conteggi[static_cast<size_t>(len) + 2] = mx;
        for (size_t i = 0; i < conteggi.size(); ++i)
            v.totali[i] += conteggi[i];
        maxTutti = std::max(maxTutti, mx);
        minTutti = std::min(minTutti, mn);
        v.conteggi.push_back(std::move(conteggi));
    }
    v.totali[static_cast<size_t>(len) + 2] = maxTutti;
    v.totali[static_cast<size_t>(len) + 1] = minTutti;
    return v;
}

} // namespace dv::reference
