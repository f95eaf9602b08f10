// The three checks on the integral system of the numbers 1..23 at length 10: the literal loops
// and the program's in one run, their times, the ratio, and a signature of each result. Exits
// with 1 when a signature differs.
#include "bench/Cronometro.h"
#include "prize/Spoglio.h"
#include "prize/SpoglioEstrazioni.h"
#include "prize/VerificaSistemi.h"
#include "system_files/ColonneTesto.h"
#include "tests/reference/ColonneTestoLetterale.h"
#include "tests/reference/SpoglioLetterale.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

using namespace dv;
using dv::bench::Secondi;

namespace {

class UiMuta : public Ui {
public:
    std::string Lang(std::string_view) override { return {}; }
    void LockGUI() override {}
    void UnlockGUI() override {}
    void UnlockMenuConditions() override {}
    void ViewStatusBar() override {}
    void Sblocca_x_Ricalcolo() override {}
    void gridChanged() override {}
    void lenColonnaChanged() override {}
    void conditionMarksChanged() override {}
    void setBusy(bool) override {}
    void messageBox(const std::string&, const std::string&, BoxIcon) override {}
    bool questionBox(const std::string&, const std::string&, BoxIcon) override { return true; }
    std::string chooseOpenFile(const std::string&, const std::string&) override { return {}; }
    std::string chooseSaveFile(const std::string&, const std::string&, const std::string&,
                               const std::string&) override {
        return {};
    }
};

// FNV-1a over the values given.
struct Firma {
    uint64_t h = 1469598103934665603ull;
    void add(int64_t v) {
        for (int i = 0; i < 8; ++i)
            h = (h ^ static_cast<uint8_t>(v >> (8 * i))) * 1099511628211ull;
    }
};

uint64_t FirmaDi(const RisultatoSpoglio& r) {
    Firma f;
    for (const auto& l : r.colonne)
        for (int32_t c : l)
            f.add(c);
    for (int32_t v : r.Vincite)
        f.add(v);
    f.add(r.TotaleVinto), f.add(r.MaxPunti), f.add(r.MinPunti);
    return f.h;
}

uint64_t FirmaDi(const RisultatoEstrazioni& r) {
    Firma f;
    for (const RigaSpoglio& g : r.righe) {
        f.add(g.indice), f.add(g.saltata), f.add(g.Base), f.add(g.Max), f.add(g.Min), f.add(g.oro1),
            f.add(g.oro2);
        for (int32_t v : g.Vincite)
            f.add(v);
        f.add(g.euro);
    }
    for (int32_t v : r.Totali)
        f.add(v);
    f.add(r.TotGiocato), f.add(r.TotVinto), f.add(r.NumEstrazioni);
    return f.h;
}

uint64_t FirmaDi(const RisultatoVerifica& v) {
    Firma f;
    for (const auto& r : v.conteggi)
        for (int32_t x : r)
            f.add(x);
    for (int32_t x : v.totali)
        f.add(x);
    return f.h;
}

bool Riporta(const char* nome, double letterale, double nostro, uint64_t f1, uint64_t f2, double obiettivo) {
    std::printf(
        "%-44s literal %8.3f s   ours %8.4f s   ratio %7.1fx (target %.0fx)   signatures %016llx %016llx%s\n",
        nome, letterale, nostro, letterale / nostro, obiettivo, static_cast<unsigned long long>(f1),
        static_cast<unsigned long long>(f2), f1 == f2 ? "" : "   DIFFER");
    return f1 == f2;
}

} // namespace

int main() {
    auto c = std::make_unique<Corpo>();
    UiMuta ui;
    // The integral system of 1..23 at length 10, in lexicographic order.
    c->LenColonna = 10;
    std::array<uint8_t, 10> col{};
    for (int i = 0; i < 10; ++i)
        col[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    int32_t n = 0;
    for (;;) {
        c->Colonne.setColumn(++n, col.data(), 10);
        int i = 9;
        while (i >= 0 && col[static_cast<size_t>(i)] == 23 - 9 + i)
            --i;
        if (i < 0) break;
        ++col[static_cast<size_t>(i)];
        for (int j = i + 1; j < 10; ++j)
            col[static_cast<size_t>(j)] = static_cast<uint8_t>(col[static_cast<size_t>(j - 1)] + 1);
    }
    c->pronostico.NumColonne = n;
    c->pronostico.Quanti = 23;
    for (int i = 0; i < 23; ++i)
        c->pronostico.Numeri[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    std::printf("integral system of 1..23 at length 10: %d columns\n", n);

    // 288 draws of one day, each with its Oro numbers among its numbers.
    std::mt19937 g(20240301);
    std::vector<int> tutti(90);
    for (int i = 0; i < 90; ++i)
        tutti[static_cast<size_t>(i)] = i + 1;
    c->mArrEstrazioni.assign(1, Estrazione{});
    for (int k = 1; k <= 288; ++k) {
        std::shuffle(tutti.begin(), tutti.end(), g);
        Estrazione e;
        std::memcpy(e.Data.data(), "01/03/2024", 10);
        e.Concorso = static_cast<int16_t>(k);
        for (int i = 0; i < 20; ++i)
            e.Numeri[static_cast<size_t>(i + 1)] = static_cast<uint8_t>(tutti[static_cast<size_t>(i)]);
        e.NumeroOro = e.Numeri[1];
        e.DoppioOro = e.Numeri[2];
        c->mArrEstrazioni.push_back(e);
    }
    bool uguali = true;

    // 1. The archive check against 288 draws, Doppio ORO.
    {
        c->TipoGiocata = 3;
        c->Importo = 1.0f;
        c->CostoColonna = 3.0f;
        const Tratto t{1, 288};
        RisultatoEstrazioni a, b;
        const double sl = Secondi([&] { a = reference::SpoglioArchivio(*c, ui, t); }, 3);
        AvanzamentoSpoglio avanzamento;
        const double so = Secondi([&] { b = SpoglioArchivio(*c, ui, t, avanzamento); }, 7);
        uguali &= Riporta("archive check, 288 draws, Doppio ORO", sl, so, FirmaDi(a), FirmaDi(b), 40);
    }
    // 2. The single check against one draw.
    {
        c->TipoGiocata = 3;
        const Estrazione& e = c->mArrEstrazioni[1];
        std::copy(e.Numeri.begin(), e.Numeri.end(), c->NumeriSpoglio.begin());
        c->OroSpoglio = e.NumeroOro;
        c->DoppioOroSpoglio = e.DoppioOro;
        RisultatoSpoglio a, b;
        const double sl = Secondi([&] { a = reference::SpoglioColonne(*c, 1, n); }, 20);
        const double so = Secondi([&] { b = SpoglioColonne(*c, 1, n); }, 20);
        uguali &= Riporta("single check, one draw", sl, so, FirmaDi(a), FirmaDi(b), 10);
    }
    // 3. The comparison of the system's text file against one line, the whole process: both files
    // read with LoadTxtToColonneArray, then compared.
    {
        const auto dir = std::filesystem::temp_directory_path() / "dorvanta-bench-spoglio";
        std::filesystem::create_directories(dir);
        const std::string file1 = (dir / "sistema.txt").string(), file2 = (dir / "riga.txt").string();
        SalvaColonneTxt(*c, ui, file1);
        std::ofstream(file2) << " 01 05 09 13 17 21 30 40 50 60 \r\n";
        RisultatoVerifica a, b;
        const double sl = Secondi(
            [&] {
                const auto c1 = reference::LoadTxtToColonneArray(ui, file1);
                const auto c2 = reference::LoadTxtToColonneArray(ui, file2);
                a = reference::VerificaSistema(c1, c2);
            },
            3);
        AvanzamentoSpoglio avanzamento;
        const double so = Secondi(
            [&] {
                const auto c1 = LoadTxtToColonneArray(ui, file1);
                const auto c2 = LoadTxtToColonneArray(ui, file2);
                b = VerificaSistema(c1, c2, avanzamento);
            },
            10);
        uguali &= Riporta("comparison, 1,144,066 lines against one", sl, so, FirmaDi(a), FirmaDi(b), 10);
        // The share of reading the two files in each.
        const double ll = Secondi([&] { reference::LoadTxtToColonneArray(ui, file1); }, 3);
        const double lo = Secondi([&] { LoadTxtToColonneArray(ui, file1); }, 10);
        std::printf("%-44s literal %8.3f s   ours %8.4f s\n", "  of which reading the system's text file", ll,
                    lo);
        std::filesystem::remove_all(dir);
    }
    return uguali ? 0 : 1;
}
