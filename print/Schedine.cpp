#include "print/Schedine.h"

#include "print/FormatiStampa.h"
#include "settings/classINI.h"

#include <algorithm>

namespace dv {

namespace {

void Segno(OperazioniStampa& out, float x, float y) {
    out.riquadro(x, y, x + LatoSegno, y + LatoSegno);
}

// The ninety boxes, row by row, ten a row; marked where segna(n) is true.
template <typename F> void Numeri(OperazioniStampa& out, const SlipCalibration& cal, F segna) {
    float x = cal.POSX_UNO;
    float y = cal.POSY_UNO;
    for (int n = 1; n <= 90; ++n) {
        if (segna(n)) Segno(out, x, y);
        if (n % 10 != 0) {
            x += cal.DISX_UNO;
        } else {
            y += cal.DISY_UNO;
            x = cal.POSX_UNO;
        }
    }
}

// The kinds of draw, at 2, then 3 and 4 more box distances from their origin.
void Estrazioni(OperazioniStampa& out, const SlipCalibration& cal, const std::array<bool, 3>& tipo) {
    const float passi[3] = {2, 3, 4};
    float x = cal.POSX_ESTRAZIONI;
    for (size_t i = 0; i < 3; ++i) {
        x += passi[i] * cal.DISX_UNO;
        if (tipo[i]) Segno(out, x, cal.POSY_ESTRAZIONI);
    }
}

// The four game options, 19, 20 and 21 mm apart whatever the calibration.
void OpzioniGioco(OperazioniStampa& out, const SlipCalibration& cal, const std::array<bool, 4>& segna) {
    float x = cal.POSX_OPZIONIGIOCO;
    for (int i = 0; i < 4; ++i) {
        if (segna[static_cast<size_t>(i)]) Segno(out, x, cal.POSY_OPZIONIGIOCO);
        x += static_cast<float>(19 + i);
    }
}

// Header, title, price and the program's line, after the marks.
void Testi(OperazioniStampa& out, const SlipCalibration& cal, const OpzioniSchedine& o,
           const std::string& titolo, float prezzo) {
    out.font("Comic Sans MS", 8, false);
    out.posizione(cal.POSX_INTESTAZIONE, cal.POSY_INTESTAZIONE);
    out.testo(o.intestazione);
    out.font("Comic Sans MS", 10, true);
    out.posizione(cal.POSX_INTESTAZIONE, cal.POSY_UNO - 3 * cal.DISY_UNO);
    out.testo(titolo);
    // The price goes where the title left y; bold stays on.
    out.posX(cal.POSX_UNO);
    out.font("Arial", 20, true);
    out.testo("               \u20AC " + FormatoMigliaia(prezzo, 2, true));
    out.font("Comic Sans MS", 10, false);
    out.posX(cal.POSX_INTESTAZIONE);
    out.testo("Dorvanta - " + o.sitoWeb);
}

void Preparazione(OperazioniStampa& out) {
    out.unita(UnitaStampa::Millimetri);
}

} // namespace

std::optional<IntervalloSchedine> ControllaIntervallo(const Corpo& c, std::string_view da, std::string_view a,
                                                      Ui& ui) {
    const auto valore = [](std::string_view t) {
        const long long v = ValoreIniziale(t);
        return static_cast<int32_t>(std::clamp<long long>(v, -1'000'000'000LL, 1'000'000'000LL));
    };
    const auto vuoto = [](std::string_view t) { return t.find_first_not_of(" ") == std::string_view::npos; };
    IntervalloSchedine r{valore(da), valore(a)};
    const char* errore = nullptr;
    if (r.da > r.a)
        errore = "0022";
    else if (!vuoto(da) && r.da < 1)
        errore = "0023";
    else if (!vuoto(a) && r.a > c.pronostico.NumColonne)
        errore = "0024";
    if (!errore) return r;
    ui.messageBox(ui.Lang(errore), " !!! ERROR !!! ", BoxIcon::Exclamation);
    return std::nullopt;
}

void StampaScheda(const Corpo& c, const SlipCalibration& cal, const OpzioniSchedine& o, int32_t n,
                  const std::string& parola, OperazioniStampa& out) {
    // 1. The column's numbers; a position holding 0 is empty.
    std::array<bool, 91> presente{};
    bool conNumeri = false;
    if (n >= 1 && n <= MaxColonne)
        for (int p = 1; p <= c.LenColonna; ++p) {
            const uint8_t v = c.Colonne.get(n, p);
            if (v >= 1 && v <= 90) {
                presente[v] = true;
                conNumeri = true;
            }
        }
    // 2. Numbers.
    Numeri(out, cal, [&](int k) { return presente[static_cast<size_t>(k)]; });
    // 3. The amount's box.
    Segno(out, cal.POSX_IMPORTI + c.IndiceImporto * cal.DISX_UNO, cal.POSY_IMPORTI);
    // 4. Kinds of draw.
    Estrazioni(out, cal, o.tipoEstrazione);
    // 5. Game options: "Numero ORO", "Doppio ORO", and two boxes that nothing sets.
    OpzioniGioco(out, cal, {c.TipoGiocata == 2, c.TipoGiocata == 3, false, false});
    // 7.-10. Texts; the price counts a column with numbers once for each kind of draw.
    const int d = static_cast<int>(std::count(o.tipoEstrazione.begin(), o.tipoEstrazione.end(), true));
    const float prezzo = (conNumeri ? 1.0f : 0.0f) * c.CostoColonna * static_cast<float>(d);
    Testi(out, cal, o, c.TitoloFile + " " + parola + " n." + FormatoMigliaia(n, 0, true), prezzo);
}

EsitoSchedine StampaScheda10eLottoNew(const Corpo& c, const SlipCalibration& cal, const OpzioniSchedine& o,
                                      IntervalloSchedine r, OperazioniStampa& out,
                                      AvanzamentoSchedine& avanzamento, Ui& ui) {
    Preparazione(out);
    const std::string parola = ui.Lang("0030");
    const int32_t ultima = std::min(r.a, c.pronostico.NumColonne);
    for (int32_t n = r.da; n <= ultima; ++n) {
        if (avanzamento.fermata()) {
            out.fine();
            return EsitoSchedine::Interrotta;
        }
        avanzamento.scheda(n, parola + " n." + FormatoCifre(n, 5));
        StampaScheda(c, cal, o, n, parola, out);
        out.nuovaPagina();
    }
    out.fine();
    return EsitoSchedine::Completata;
}

void StampaTestTaratura(const Corpo& c, const SlipCalibration& cal, const OpzioniSchedine& o,
                        OperazioniStampa& out) {
    Preparazione(out);
    Numeri(out, cal, [](int) { return true; });
    for (int i = 0; i < 10; ++i)
        Segno(out, cal.POSX_IMPORTI + static_cast<float>(i) * cal.DISX_UNO, cal.POSY_IMPORTI);
    Estrazioni(out, cal, {true, true, true});
    OpzioniGioco(out, cal, {true, true, true, true});
    Testi(out, cal, o, "Test.dvs Scheda n. " + FormatoMigliaia(0, 0, true), c.CostoColonna);
    out.fine();
}

} // namespace dv
