#include "prize/Spoglio.h"

#include "core/Helpers.h"
#include "prize/Premi.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstdio>

namespace dv {

int32_t ValoreCasella(const std::string& testo) {
    size_t i = 0;
    while (i < testo.size() && testo[i] == ' ')
        ++i;
    int64_t v = 0;
    for (; i < testo.size() && std::isdigit(static_cast<unsigned char>(testo[i])) && v < 100'000'000; ++i)
        v = v * 10 + (testo[i] - '0');
    return static_cast<int32_t>(v);
}

std::string TestoCasella(uint8_t n) {
    if (n == 0) return "__";
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02u", static_cast<unsigned>(n));
    return buf;
}

EsitoValidazione ValidaSpoglio(Corpo& c, Ui& ui, CaselleSpoglio& caselle) {
    EsitoValidazione esito;
    // 1. Prizes exist for columns of at most 10 numbers.
    if (!InitPremi(c.LenColonna)) {
        ui.messageBox(TestoNonDisponibile, TitoloNonDisponibile, BoxIcon::Critical);
        return esito;
    }
    // 2. The boxes in ascending order of their values; blanks read 0 and come first.
    auto& n = caselle.numeri;
    for (size_t i = 0; i < 20; ++i)
        for (size_t j = i + 1; j < 20; ++j)
            if (ValoreCasella(n[i]) > ValoreCasella(n[j])) std::swap(n[i], n[j]);
    // 3. A number entered twice.
    for (size_t i = 0; i < 19; ++i)
        if (ValoreCasella(n[i + 1]) == ValoreCasella(n[i])) {
            ui.messageBox(ui.Lang("0025"), "", BoxIcon::Exclamation);
            esito.fuoco = static_cast<int>(i);
            return esito;
        }
    // 4. A number outside 1..90.
    for (size_t i = 0; i < 20; ++i) {
        const int32_t v = ValoreCasella(n[i]);
        if (v == 0 || v > 90) {
            ui.messageBox(ui.Lang("0026") + "[" + std::to_string(v) + "]", "", BoxIcon::Exclamation);
            esito.fuoco = static_cast<int>(i);
            return esito;
        }
    }
    // 5. The range of columns.
    const int32_t da = ValoreCasella(caselle.da), a = ValoreCasella(caselle.a);
    const char* chiave = da > a ? "0022" : da < 1 ? "0023" : a > c.pronostico.NumColonne ? "0024" : nullptr;
    if (chiave) {
        ui.messageBox(ui.Lang(chiave), " !!! ERROR !!! ", BoxIcon::Exclamation);
        return esito;
    }
    // 6. The draw is stored, blank Oro boxes as 0.
    esito.dal = da;
    esito.al = a;
    for (size_t i = 0; i < 20; ++i)
        c.NumeriSpoglio[i + 1] = static_cast<uint8_t>(ValoreCasella(n[i]));
    c.OroSpoglio = static_cast<uint8_t>(std::min(ValoreCasella(caselle.oro), int32_t{255}));
    c.DoppioOroSpoglio = static_cast<uint8_t>(std::min(ValoreCasella(caselle.doppio), int32_t{255}));
    // 7. An Oro number that is not drawn, for the kinds of play that use it.
    auto estratto = [&c](uint8_t v) {
        return std::find(c.NumeriSpoglio.begin() + 1, c.NumeriSpoglio.end(), v) != c.NumeriSpoglio.end();
    };
    if (c.TipoGiocata >= 2 && c.OroSpoglio != 0 && !estratto(c.OroSpoglio)) {
        ui.messageBox(ui.Lang("0026") + "[" + std::to_string(c.OroSpoglio) + "]", "", BoxIcon::Exclamation);
        esito.fuoco = FuocoOro;
        return esito;
    }
    if (c.TipoGiocata == 3 && c.DoppioOroSpoglio != 0 && !estratto(c.DoppioOroSpoglio)) {
        ui.messageBox(ui.Lang("0026") + "[" + std::to_string(c.DoppioOroSpoglio) + "]", "",
                      BoxIcon::Exclamation);
        esito.fuoco = FuocoDoppio;
        return esito;
    }
    esito.ok = true;
    return esito;
}

void PianiDelSistema(const Corpo& c, PianiColonne& piani) {
    piani.daSistema(c.Colonne, c.pronostico.NumColonne, c.LenColonna, c.pronostico.Numeri.data(),
                    c.pronostico.Quanti);
}

RisultatoSpoglio SpoglioColonne(const Corpo& c, int32_t dal, int32_t al) {
    PianiColonne piani;
    PianiDelSistema(c, piani);
    return SpoglioColonne(c, piani, dal, al);
}

RisultatoSpoglio SpoglioColonne(const Corpo& c, const PianiColonne& piani, int32_t dal, int32_t al) {
    const int len = c.LenColonna;
    // The cell and the rounded prize of each category, by hits and Oro flags.
    std::array<std::array<int32_t, 4>, 26> cella{}, euro{};
    for (int h = 0; h <= len; ++h)
        for (int k = 0; k < 4; ++k) {
            const int32_t v = Premio(ScegliTabella(c.TipoGiocata, k & 1, k & 2), len, h);
            cella[static_cast<size_t>(h)][static_cast<size_t>(k)] = v;
            euro[static_cast<size_t>(h)][static_cast<size_t>(k)] =
                ArrotondaEuro(static_cast<double>(v) * static_cast<double>(c.Importo));
        }
    EstrazionePiani e;
    e.imposta(piani, c.NumeriSpoglio.data() + 1, 20, c.OroSpoglio, c.DoppioOroSpoglio);

    dal = std::max(dal, int32_t{1});
    al = std::min(al, piani.colonne());
    std::array<RisultatoSpoglio, 2> parte;
    if (dal > al) return parte[0];
    const int32_t primo = (dal - 1) / 64, ultimo = (al - 1) / 64;
    DueParti(ultimo - primo >= 4096, [&](int t, int n) {
        RisultatoSpoglio& r = parte[static_cast<size_t>(t)];
        const int32_t b0 = primo + static_cast<int32_t>(int64_t{ultimo - primo + 1} * t / n);
        const int32_t b1 = primo + static_cast<int32_t>(int64_t{ultimo - primo + 1} * (t + 1) / n);
        ClassiBlocco classi;
        for (int32_t b = b0; b < b1; ++b) {
            // The columns of the block that lie in the range.
            uint64_t scelte = ~uint64_t{0};
            if (b == primo) scelte &= ~uint64_t{0} << ((dal - 1) & 63);
            if (b == ultimo) scelte &= ~uint64_t{0} >> (63 - ((al - 1) & 63));
            Classifica(piani, b, scelte, e, classi);
            for (int h = 0; h <= classi.hMax; ++h) {
                const auto& m = classi.m[static_cast<size_t>(h)];
                if ((m[0] | m[1] | m[2] | m[3]) == 0) continue;
                r.MaxPunti = std::max(r.MaxPunti, static_cast<uint8_t>(h));
                r.MinPunti = std::min(r.MinPunti, static_cast<uint8_t>(h));
                uint64_t vincenti = 0;
                for (size_t k = 0; k < 4; ++k) {
                    if (cella[static_cast<size_t>(h)][k] == 0 || m[k] == 0) continue;
                    const int n = std::popcount(m[k]);
                    vincenti |= m[k];
                    r.Vincite[static_cast<size_t>(h)] += n;
                    r.TotaleVinto = Somma32(r.TotaleVinto, int64_t{n} * euro[static_cast<size_t>(h)][k]);
                }
                auto& lista = r.colonne[static_cast<size_t>(h)];
                for (; vincenti != 0; vincenti &= vincenti - 1)
                    lista.push_back(b * 64 + std::countr_zero(vincenti) + 1);
            }
        }
    });
    RisultatoSpoglio& r = parte[0];
    const RisultatoSpoglio& s = parte[1];
    for (size_t h = 0; h <= 10; ++h) {
        r.colonne[h].insert(r.colonne[h].end(), s.colonne[h].begin(), s.colonne[h].end());
        r.Vincite[h] += s.Vincite[h];
    }
    r.TotaleVinto = Somma32(r.TotaleVinto, s.TotaleVinto);
    r.MaxPunti = std::max(r.MaxPunti, s.MaxPunti);
    r.MinPunti = std::min(r.MinPunti, s.MinPunti);
    return r;
}

std::string TestoTotale(int32_t totale, char sep, char dec) {
    std::string s = FormatIntero(totale, sep);
    s += dec;
    s += "00";
    return s;
}

} // namespace dv
