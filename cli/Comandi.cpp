#include "cli/Comandi.h"

#include "cli/BarraProgresso.h"
#include "cli/ListaNumeri.h"
#include "core/Avvio.h"
#include "core/Helpers.h"
#include "core/Sistema.h"
#include "system_files/ColonneTesto.h"
#include "system_files/FileSistema.h"
#include "system_files/FlussoBinario.h"

#include <chrono>
#include <filesystem>
#include <cstdio>
#include <memory>
#include <vector>

namespace dv::cli {

namespace {

int ErroreUso(const std::string& option, const std::string& why) {
    std::fprintf(stderr, "%s: %s\nRun with --help for more information.\n", option.c_str(), why.c_str());
    return EsitoUso;
}

// Opens a system file into c; false when it was refused or could not be read.
bool Apri(Corpo& c, Ui& ui, const std::string& path) {
    if (ApriFile(c, ui, path) == EsitoApriFile::Aperto) return true;
    std::fprintf(stderr, "%s: not opened\n", path.c_str());
    return false;
}

bool Salva(Corpo& c, Ui& ui, const std::string& path) {
    if (SalvaFile(c, ui, path)) return true;
    std::fprintf(stderr, "%s: not written\n", path.c_str());
    return false;
}

std::string Numeri(const std::vector<int>& v) {
    std::string s;
    for (int n : v) {
        char buf[8];
        std::snprintf(buf, sizeof buf, s.empty() ? "%02d" : " %02d", n);
        s += buf;
    }
    return s;
}

// The indices 0..last whose entry in the table is on.
template <typename T, size_t N> std::vector<int> Accesi(const std::array<T, N>& table, size_t first = 0) {
    std::vector<int> v;
    for (size_t i = first; i < N; ++i)
        if (table[i] != 0) v.push_back(static_cast<int>(i));
    return v;
}

// A column as the viewer shows it: two blanks, each number as "0#-", the last as "0#".
std::string RigaColonna(const Corpo& c, int32_t j) {
    std::string s = "  ";
    for (int p = 1; p <= c.LenColonna; ++p) {
        const uint8_t n = c.Colonne.get(j, p);
        if (n == 0) continue;
        char buf[8];
        std::snprintf(buf, sizeof buf, p < c.LenColonna ? "%02u-" : "%02u", static_cast<unsigned>(n));
        s += buf;
    }
    return s;
}

void StampaCondizioni(const Corpo& c) {
    const Condizioni& k = c.condizioni;
    std::vector<std::string> righe;
    if (k.CondSomma)
        righe.push_back("sum: " + std::to_string(k.SommaMinMax[0]) + ".." + std::to_string(k.SommaMinMax[1]));
    if (k.CondPari) righe.push_back("even: " + Numeri(Accesi(k.TabPari)));
    if (k.CondFisse)
        righe.push_back("fixed (" + std::to_string(k.NumFisse) + " in every column): " + Numeri(Accesi(k.TabFisse, 1)));
    if (c.consecutivi.CondConsecutivi)
        righe.push_back("consecutive: " + MaskToString(c.consecutivi.MaskConsecutivi, MaxLenColonna));
    if (k.CondRidotto) righe.push_back("reduced to a guarantee: N-" + std::to_string(k.ValRidotto));
    if (c.distanzaMinima.CondDistanzaMinima)
        righe.push_back("minimum distance: " + std::to_string(c.distanzaMinima.ValDistanzaMinima));
    if (c.FiltriAND.count() || c.FiltriOR.count() || c.FiltriXOR.count())
        righe.push_back("filter columns AND/OR/XOR: " + std::to_string(c.FiltriAND.count()) + " / " +
                        std::to_string(c.FiltriOR.count()) + " / " + std::to_string(c.FiltriXOR.count()));
    if (c.CondizioniDistanza.count())
        righe.push_back("number distance conditions: " + std::to_string(c.CondizioniDistanza.count()));
    std::printf("conditions:%s\n", righe.empty() ? " none" : "");
    for (const auto& r : righe) std::printf("  %s\n", r.c_str());
}

} // namespace

int ComandoNuovo(const OpzioniNuovo& o, Ui& ui) {
    if (o.length < 1 || o.length > MaxLenColonna) return ErroreUso("--length", "must be 1..25");
    std::string why;
    const auto numbers = LeggiLista(o.numbers, 1, 90, why);
    if (!numbers) return ErroreUso("--numbers", why);
    if (static_cast<int>(numbers->size()) < o.length)
        return ErroreUso("--numbers", "a forecast of " + std::to_string(numbers->size()) +
                                          " numbers cannot fill a column of " + std::to_string(o.length));

    auto c = std::make_unique<Corpo>();
    c->LenColonna = static_cast<int16_t>(o.length);
    ResetSistema(*c, ui, false);
    for (int n : *numbers) GrigliaNumeriClick(*c, ui, n - 1);
    Condizioni& k = c->condizioni;
    if (!o.sum.empty()) {
        const auto r = LeggiIntervallo(o.sum, 0, 2250, why);
        if (!r) return ErroreUso("--sum", why);
        k.CondSomma = Vero;
        k.SommaMinMax = {static_cast<int16_t>(r->first), static_cast<int16_t>(r->second)};
    }
    if (!o.even.empty()) {
        const auto e = LeggiLista(o.even, 0, o.length, why);
        if (!e) return ErroreUso("--even", why);
        k.CondPari = Vero;
        for (int i : *e) k.TabPari[static_cast<size_t>(i)] = Vero;
    }
    if (!o.fixed.empty()) {
        const auto f = LeggiLista(o.fixed, 1, 90, why);
        if (!f) return ErroreUso("--fixed", why);
        for (int n : *f) {
            if (!c->Griglia[static_cast<size_t>(n - 1)])
                return ErroreUso("--fixed", std::to_string(n) + " is not in the forecast");
            k.TabFisse[static_cast<size_t>(n)] = 1;
        }
        k.CondFisse = Vero;
        k.NumFisse = static_cast<uint8_t>(f->size());
    }
    if (!o.consecutive.empty()) {
        const auto r = LeggiLista(o.consecutive, 1, o.length, why);
        if (!r) return ErroreUso("--consecutive", why);
        c->consecutivi.CondConsecutivi = Vero;
        for (int i : *r) c->consecutivi.MaskConsecutivi |= Potenze2[static_cast<size_t>(i)];
    }
    if (o.reduce) {
        if (*o.reduce < 0 || *o.reduce > o.length) return ErroreUso("--reduce", "must be 0..length");
        k.CondRidotto = Vero;
        k.ValRidotto = static_cast<uint8_t>(*o.reduce);
    }
    if (o.minDistance) {
        if (*o.minDistance < 0 || *o.minDistance > o.length) return ErroreUso("--min-distance", "must be 0..length");
        c->distanzaMinima = {static_cast<uint8_t>(*o.minDistance), Vero};
    }
    c->FileCorrente = o.out;
    if (!Salva(*c, ui, o.out)) return EsitoFileRifiutato;
    std::printf("%s: forecast of %d numbers, columns of %d, no columns yet\n", o.out.c_str(),
                static_cast<int>(c->pronostico.Quanti), o.length);
    return EsitoOk;
}

int ComandoSviluppa(const std::string& in, const std::string& out, Ui& ui, RunControl& ctl) {
    // A run may be long: an output that cannot be written is refused before it starts.
    if (const std::string why = MotivoNonScrivibile(out); !why.empty()) {
        std::fprintf(stderr, "%s: cannot be written: %s\n", out.c_str(), why.c_str());
        return EsitoFileRifiutato;
    }
    auto c = std::make_unique<Corpo>();
    if (!Apri(*c, ui, in)) return EsitoFileRifiutato;
    if (!OperazioniAbilitate(*c)) {
        std::fprintf(stderr, "%s: the forecast holds %d numbers, fewer than a column of %d\n", in.c_str(),
                     static_cast<int>(c->pronostico.Quanti), static_cast<int>(c->LenColonna));
        return EsitoFileRifiutato;
    }
    const auto start = std::chrono::steady_clock::now();
    BarraProgresso barra(stderr, SeparatoreMigliaia(ui));
    const RunResult r = Elabora(*c, ui, ctl, barra);
    barra.chiudi();
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (!Salva(*c, ui, out)) return EsitoFileRifiutato;
    std::printf("columns:     %s\n", FormatIntero(c->pronostico.NumColonne, SeparatoreMigliaia(ui)).c_str());
    std::printf("candidates:  %s\n", FormatIntero(r.counter, SeparatoreMigliaia(ui)).c_str());
    std::printf("description: %s\n", c->pronostico.Descrizione.c_str());
    std::printf("elapsed:     %s (%.3f s)\n", TestoTempoTrascorso(seconds).c_str(), seconds);
    return EsitoOk;
}

int ComandoMostra(const std::string& in, bool colonne, Ui& ui) {
    auto c = std::make_unique<Corpo>();
    if (!Apri(*c, ui, in)) return EsitoFileRifiutato;
    const auto& p = c->pronostico;
    std::printf("file:        %s\n", c->TitoloFile.c_str());
    std::printf("length:      %d\n", static_cast<int>(c->LenColonna));
    std::printf("forecast:    %s [%d]\n", NumeriToString(p.Numeri.data(), p.Quanti, 1).c_str(), static_cast<int>(p.Quanti));
    std::printf("description: %s\n", p.Descrizione.c_str());
    std::printf("columns:     %s\n", FormatIntero(p.NumColonne, SeparatoreMigliaia(ui)).c_str());
    StampaCondizioni(*c);
    if (colonne)
        for (int32_t j = 1; j <= p.NumColonne; ++j) std::printf("%s\n", RigaColonna(*c, j).c_str());
    return EsitoOk;
}

// True, with a message, when out names the very file in (by another spelling or a link too):
// writing it would replace the input while it is still the source.
static bool UscitaSuIngresso(const std::string& in, const std::string& out) {
    std::error_code ec;
    if (!std::filesystem::equivalent(in, out, ec) || ec) return false;
    std::fprintf(stderr, "%s: the output is the input file itself; choose another output\n", out.c_str());
    return true;
}

int ComandoEsportaTxt(const std::string& in, const std::string& out, Ui& ui) {
    if (UscitaSuIngresso(in, out)) return EsitoFileRifiutato;
    auto c = std::make_unique<Corpo>();
    if (!Apri(*c, ui, in)) return EsitoFileRifiutato;
    if (!SalvaColonneTxt(*c, ui, out)) return EsitoFileRifiutato;
    std::printf("File %s ok: %s columns\n", out.c_str(), FormatIntero(c->pronostico.NumColonne, SeparatoreMigliaia(ui)).c_str());
    return EsitoOk;
}

int ComandoImportaTxt(const std::string& in, const std::string& out, Ui& ui) {
    if (UscitaSuIngresso(in, out)) return EsitoFileRifiutato;
    auto c = std::make_unique<Corpo>();
    if (!ImportaColonneTxt(*c, ui, in)) {
        std::fprintf(stderr, "%s: not imported\n", in.c_str());
        return EsitoFileRifiutato;
    }
    if (!Salva(*c, ui, out)) return EsitoFileRifiutato;
    std::printf("%s: %s columns of %d\n", out.c_str(), FormatIntero(c->pronostico.NumColonne, SeparatoreMigliaia(ui)).c_str(),
                static_cast<int>(c->LenColonna));
    return EsitoOk;
}

int ComandoMescola(const std::string& in, const std::string& out, std::optional<uint32_t> seed, Ui& ui) {
    auto c = std::make_unique<Corpo>();
    if (!Apri(*c, ui, in)) return EsitoFileRifiutato;
    const uint32_t s = seed ? *seed : SecondiDaMezzanotte();
    MescolaColonne(*c, ui, s);
    if (!Salva(*c, ui, out)) return EsitoFileRifiutato;
    std::printf("%s: %s columns shuffled with seed %u\n", out.c_str(), FormatIntero(c->pronostico.NumColonne, SeparatoreMigliaia(ui)).c_str(),
                s);
    return EsitoOk;
}

} // namespace dv::cli
