#include "prize/SpoglioEstrazioni.h"

#include "archive/Archivio.h"
#include "core/Helpers.h"
#include "prize/Premi.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <memory>
#include <unordered_set>

namespace dv {

namespace {

std::string Testo(const std::array<char, 10>& data) {
    std::string s(data.data(), data.size());
    while (!s.empty() && (s.back() == ' ' || s.back() == '\0'))
        s.pop_back();
    return s;
}

std::string Rifila(std::string s) {
    while (!s.empty() && s.back() == ' ')
        s.pop_back();
    return s;
}

bool Estratto(const Estrazione& e, uint8_t n) {
    return std::find(e.Numeri.begin() + 1, e.Numeri.end(), n) != e.Numeri.end();
}

// yyyymmdd of a text dd/mm/yyyy, or -1.
int32_t Giorno(const std::string& s) {
    unsigned d = 0, m = 0, y = 0;
    if (std::sscanf(s.c_str(), "%2u/%2u/%4u", &d, &m, &y) != 3) return -1;
    return static_cast<int32_t>(y * 10000 + m * 100 + d);
}

} // namespace

bool DateSpoglio(const ArrayEstrazioni& a, Ui& ui, std::vector<std::string>& date) {
    date.clear();
    if (ArchivioVuoto(a)) return true;
    std::unordered_set<std::string> viste;
    std::string precedente;
    for (int32_t i = 1; i <= UBound(a); ++i) {
        std::string d = Testo(a[static_cast<size_t>(i)].Data);
        if (i > 1 && d == precedente) continue;
        precedente = d;
        if (!viste.insert(d).second) continue;
        date.push_back(std::move(d));
        if (static_cast<int32_t>(date.size()) > MaxDateSpoglio) {
            ui.messageBox(TestoArchivioTroppoGrande, TitoloArchivioTroppoGrande, BoxIcon::Critical);
            return false;
        }
    }
    return true;
}

Tratto TrovaTratto(const ArrayEstrazioni& a, const std::string& dal, int32_t concDal, const std::string& al,
                   int32_t concAl) {
    const int32_t n = std::max(UBound(a), int32_t{1});
    const std::string d1 = Rifila(dal), d2 = Rifila(al);
    auto data = [&a](int32_t i) { return Testo(a[static_cast<size_t>(i)].Data); };
    // The first record of a date from i on, else the last record.
    auto cercaData = [&](int32_t i, const std::string& d) {
        while (i <= n && data(i) != d)
            ++i;
        return std::min(i, n);
    };
    // Within the date of record i, the first record whose draw number is at least conc; when the
    // date's records end first, its last record.
    auto cercaConcorso = [&](int32_t i, const std::string& d, int32_t conc) {
        if (data(i) != d) return i;
        while (i <= n && data(i) == d && a[static_cast<size_t>(i)].Concorso < conc)
            ++i;
        if (i > n) return n;
        return data(i) == d ? i : i - 1;
    };
    Tratto t;
    t.primo = cercaConcorso(cercaData(1, d1), d1, concDal);
    t.ultimo = cercaConcorso(cercaData(t.primo, d2), d2, concAl);
    return t;
}

bool DataPrecedente(const std::string& al, const std::string& dal) {
    const int32_t a = Giorno(al), d = Giorno(dal);
    return a >= 0 && d >= 0 && a < d;
}

std::string TestoOroMancante(Ui& ui, const Estrazione& e, bool doppio) {
    std::string s = ui.Lang("0026");
    s += doppio ? " Doppio ORO [" : " Numero ORO [";
    s += std::to_string(doppio ? e.DoppioOro : e.NumeroOro);
    s += "] del ";
    s += Testo(e.Data);
    return s;
}

GiocataSpoglio GiocataSpoglio::da(const Corpo& c) {
    GiocataSpoglio g;
    g.len = c.LenColonna;
    g.tipo = c.TipoGiocata;
    g.importo = c.Importo;
    g.costoColonna = c.CostoColonna;
    g.numColonne = c.pronostico.NumColonne;
    g.quanti = c.pronostico.Quanti;
    g.numeri = c.pronostico.Numeri;
    return g;
}

RisultatoEstrazioni SpoglioArchivio(Corpo& c, Ui& ui, Tratto tratto, AvanzamentoSpoglio& avanzamento,
                                    ModoSpoglio modo) {
    PianiColonne piani;
    piani.daSistema(c.Colonne, c.pronostico.NumColonne, c.LenColonna, c.pronostico.Numeri.data(),
                    c.pronostico.Quanti);
    RisultatoEstrazioni r =
        SpoglioArchivio(GiocataSpoglio::da(c), c.mArrEstrazioni, piani, tratto, ui, avanzamento, modo);
    if (tratto.ultimo >= tratto.primo && tratto.ultimo <= UBound(c.mArrEstrazioni)) {
        c.OroSpoglio = c.mArrEstrazioni[static_cast<size_t>(tratto.ultimo)].NumeroOro;
        c.DoppioOroSpoglio = c.mArrEstrazioni[static_cast<size_t>(tratto.ultimo)].DoppioOro;
    }
    return r;
}

RisultatoEstrazioni SpoglioArchivio(const GiocataSpoglio& g, const ArrayEstrazioni& a,
                                    const PianiColonne& piani, Tratto tratto, Ui& ui,
                                    AvanzamentoSpoglio& avanzamento, ModoSpoglio modo) {
    RisultatoEstrazioni r;
    const int len = g.len;

    // 1. The draws of the stretch; those skipped for their Oro number get their box now, in order.
    std::vector<RigaSpoglio>& righe = r.righe;
    std::vector<EstrazionePiani> estrazioni;
    for (int32_t i = tratto.primo; i <= tratto.ultimo; ++i) {
        const Estrazione& e = a[static_cast<size_t>(i)];
        RigaSpoglio riga;
        riga.indice = i;
        if (g.tipo >= 2 && e.NumeroOro != 0 && !Estratto(e, e.NumeroOro)) {
            ui.messageBox(TestoOroMancante(ui, e, false), "", BoxIcon::Exclamation);
            riga.saltata = true;
        } else if (g.tipo == 3 && e.DoppioOro != 0 && !Estratto(e, e.DoppioOro)) {
            ui.messageBox(TestoOroMancante(ui, e, true), "", BoxIcon::Exclamation);
            riga.saltata = true;
        } else {
            for (int q = 0; q < g.quanti; ++q)
                riga.Base += Estratto(e, g.numeri[static_cast<size_t>(q)]) ? 1 : 0;
            estrazioni.emplace_back().imposta(piani, e.Numeri.data() + 1, 20, e.NumeroOro, e.DoppioOro);
        }
        righe.push_back(riga);
    }

    // 2. The cell and the prize of each category. When every prize is a whole number the order of
    // the columns does not matter and counting the categories is enough; otherwise each draw's
    // running sum is rounded column after column, in column order.
    std::array<int32_t, 44> cella{};
    std::array<double, 44> valore{};
    bool ordinato = false;
    for (int h = 0; h <= len; ++h)
        for (int k = 0; k < 4; ++k) {
            const size_t i = static_cast<size_t>(h * 4 + k);
            cella[i] = Premio(ScegliTabella(g.tipo, k & 1, k & 2), len, h);
            valore[i] = static_cast<double>(cella[i]) * static_cast<double>(g.importo);
            if (cella[i] != 0 && valore[i] != std::nearbyint(valore[i])) ordinato = true;
        }

    // 3. Every column against every draw: the draws stay in cache while the blocks of columns go
    // by once. Each thread takes half of the draws.
    const size_t nd = estrazioni.size();
    std::vector<std::array<int32_t, 44>> conteggi(nd);
    std::vector<int32_t> vinto(nd, 0);
    std::vector<SommeClassi> somme(ordinato ? 0 : nd);
    const int32_t blocchi = piani.blocchi();
    const int32_t passo = 157; // blocks in about 10,000 columns
    const bool vettori = modo != ModoSpoglio::Semplice && ConAvx2();
    const bool dueThread =
        nd >= 2 && (modo == ModoSpoglio::DueThread ||
                    (modo == ModoSpoglio::Automatico && int64_t{blocchi} * static_cast<int64_t>(nd) >= 4096));
    DueParti(dueThread, [&](int t, int n) {
        const size_t d0 = nd * static_cast<size_t>(t) / static_cast<size_t>(n);
        const size_t d1 = nd * static_cast<size_t>(t + 1) / static_cast<size_t>(n);
        ClassiBlocco classi;
        BlocchiTrasposti trasposti;
        std::array<uint8_t, 64> categoria{};
        for (int32_t b0 = 0; b0 < blocchi; b0 += passo) {
            if (avanzamento.stop.load(std::memory_order_relaxed)) return;
            const int32_t b1 = std::min(blocchi, b0 + passo);
            // Whole prizes: each draw counts a run of blocks small enough to stay in cache.
            for (int32_t c0 = b0; !ordinato && c0 < b1; c0 += BlocchiTrasposti::MaxBlocchi) {
                const int32_t c1 = std::min(b1, c0 + BlocchiTrasposti::MaxBlocchi);
                if (vettori) trasposti.carica(piani, c0, c1);
                for (size_t d = d0; d < d1; ++d)
                    if (vettori)
                        ContaTrasposti(piani, trasposti, estrazioni[d], somme[d]);
                    else
                        ContaBlocchi(piani, c0, c1, estrazioni[d], somme[d]);
            }
            for (int32_t b = b0; ordinato && b < b1; ++b)
                for (size_t d = d0; d < d1; ++d) {
                    Classifica(piani, b, ~uint64_t{0}, estrazioni[d], classi);
                    auto& conta = conteggi[d];
                    uint64_t vincenti = 0;
                    for (int h = 0; h <= classi.hMax; ++h)
                        for (int k = 0; k < 4; ++k) {
                            const uint64_t m = classi.m[static_cast<size_t>(h)][static_cast<size_t>(k)];
                            conta[static_cast<size_t>(h * 4 + k)] += std::popcount(m);
                            if (ordinato && m != 0 && cella[static_cast<size_t>(h * 4 + k)] != 0) {
                                vincenti |= m;
                                for (uint64_t x = m; x != 0; x &= x - 1)
                                    categoria[static_cast<size_t>(std::countr_zero(x))] =
                                        static_cast<uint8_t>(h * 4 + k);
                            }
                        }
                    int32_t& v = vinto[d];
                    for (; vincenti != 0; vincenti &= vincenti - 1)
                        v = ArrotondaEuro(static_cast<double>(v) +
                                          valore[categoria[static_cast<size_t>(std::countr_zero(vincenti))]]);
                }
            if (t == 0)
                avanzamento.progress(static_cast<double>(b1) * 64.0, static_cast<double>(blocchi) * 64.0);
        }
    });
    if (avanzamento.stop.load()) {
        r.fermato = true;
        return r;
    }

    for (size_t d = 0; d < somme.size(); ++d)
        for (size_t h = 0; h <= static_cast<size_t>(len); ++h) {
            const SommeClassi& x = somme[d];
            conteggi[d][h * 4 + 3] = x.entrambi[h];
            conteggi[d][h * 4 + 1] = x.oro1[h] - x.entrambi[h];
            conteggi[d][h * 4 + 2] = x.oro2[h] - x.entrambi[h];
            conteggi[d][h * 4] = x.tutte[h] - x.oro1[h] - x.oro2[h] + x.entrambi[h];
        }

    // 4. Each draw's row and the totals, in the order of the stretch.
    r.Totali[14] = 10;
    const double costo = static_cast<double>(g.numColonne) * static_cast<double>(g.costoColonna);
    size_t d = 0;
    for (RigaSpoglio& riga : righe) {
        r.TotGiocato = ArrotondaEuro(costo + r.TotGiocato);
        ++r.NumEstrazioni;
        if (riga.saltata) continue;
        const auto& conta = conteggi[d];
        int32_t euro = vinto[d];
        ++d;
        for (int h = 0; h <= len; ++h)
            for (int k = 0; k < 4; ++k) {
                const size_t i = static_cast<size_t>(h * 4 + k);
                if (conta[i] == 0) continue;
                riga.Max = std::max(riga.Max, static_cast<uint8_t>(h));
                riga.Min = std::min(riga.Min, static_cast<uint8_t>(h));
                if (k & 1) riga.oro1 = true;
                if (k & 2) riga.oro2 = true;
                if (cella[i] == 0) continue;
                riga.Vincite[static_cast<size_t>(h)] += conta[i];
                if (!ordinato) euro = Somma32(euro, int64_t{conta[i]} * static_cast<int64_t>(valore[i]));
            }
        riga.euro = euro;
        for (size_t h = 0; h <= 10; ++h)
            r.Totali[h] += riga.Vincite[h];
        r.Totali[13] = std::max<int32_t>(r.Totali[13], riga.Base);
        r.Totali[15] = std::max<int32_t>(r.Totali[15], riga.Max);
        r.Totali[14] = std::min<int32_t>(r.Totali[14], riga.Min);
        if (riga.oro1) ++r.Totali[12];
        if (riga.oro2) ++r.Totali[11];
        r.TotVinto = Somma32(r.TotVinto, euro);
    }
    return r;
}

std::vector<std::string> IntestazioneSpoglio() {
    std::vector<std::string> h{"Date ", "Estr. ", "Col ", "Base", "Max", "Min", "Oro1", "Oro2"};
    for (int p = 10; p >= 0; --p)
        h.push_back("Pt." + std::to_string(p));
    h.push_back("Euro");
    return h;
}

std::vector<std::string> TotaliSpoglio(const RisultatoEstrazioni& r, char sep) {
    const auto& t = r.Totali;
    std::vector<std::string> v{"TOTALE", "", ""};
    for (int i : {13, 15, 14, 12, 11})
        v.push_back(std::to_string(t[static_cast<size_t>(i)]));
    for (int p = 10; p >= 0; --p)
        v.push_back(std::to_string(t[static_cast<size_t>(p)]));
    v.push_back(FormatIntero(r.TotVinto, sep));
    return v;
}

std::vector<std::string> CelleSpoglio(const Estrazione& e, const RigaSpoglio& riga) {
    if (riga.saltata) return std::vector<std::string>(ColonneGrigliaSpoglio);
    std::vector<std::string> v;
    v.reserve(ColonneGrigliaSpoglio);
    v.push_back(Testo(e.Data));
    v.push_back(e.Concorso == 0 ? std::string() : std::to_string(e.Concorso));
    std::string numeri = NumeriToString(e.Numeri.data() + 1, 20, 1);
    std::replace(numeri.begin(), numeri.end(), ' ', '.');
    v.push_back(std::move(numeri));
    v.push_back(std::to_string(riga.Base));
    v.push_back(std::to_string(riga.Max));
    v.push_back(std::to_string(riga.Min));
    v.push_back(riga.oro1 ? "Oro1" : "-");
    v.push_back(riga.oro2 ? "Oro2" : "-");
    for (int p = 10; p >= 0; --p)
        v.push_back(std::to_string(riga.Vincite[static_cast<size_t>(p)]));
    v.push_back(std::to_string(riga.euro));
    return v;
}

int32_t ColoreCellaSpoglio(int colonna) {
    switch (colonna) {
    case 3:
        return 0xc0ffff;
    case 4:
        return 0x80ff80;
    case 5:
        return 0xc0ffc0;
    case 6:
        return 0x80ffff;
    case 7:
        return 0x00ffff;
    default:
        return -1;
    }
}

GrigliaTesti GrigliaSpoglio(const ArrayEstrazioni& a, const RisultatoEstrazioni& r, char sep) {
    GrigliaTesti g;
    g.righe = static_cast<int>(r.righe.size()) + 2;
    g.colonne = ColonneGrigliaSpoglio;
    // The cells of the row last asked for, since the writer asks cell after cell.
    auto ultima = std::make_shared<std::pair<int, std::vector<std::string>>>(-1, std::vector<std::string>{});
    g.testo = [&a, &r, sep, ultima](int riga, int colonna) {
        if (ultima->first != riga) {
            ultima->first = riga;
            if (riga == 0)
                ultima->second = IntestazioneSpoglio();
            else if (riga == 1)
                ultima->second = TotaliSpoglio(r, sep);
            else {
                const RigaSpoglio& d = r.righe[static_cast<size_t>(riga - 2)];
                ultima->second = CelleSpoglio(a[static_cast<size_t>(d.indice)], d);
            }
        }
        return ultima->second[static_cast<size_t>(colonna)];
    };
    return g;
}

std::string NomeCsv(const std::string& titoloFile) {
    std::string s = titoloFile;
    for (const char* da : {".dvs", ".txt"})
        for (size_t p = s.find(da); p != std::string::npos; p = s.find(da, p + 4))
            s.replace(p, 4, ".csv");
    return s;
}

} // namespace dv
