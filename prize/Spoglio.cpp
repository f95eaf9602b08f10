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

std::string TestoTotale(int32_t totale, char sep, char dec) {
    std::string s = FormatIntero(totale, sep);
    s += dec;
    s += "00";
    return s;
}

} // namespace dv
