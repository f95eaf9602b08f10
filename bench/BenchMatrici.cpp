// The matrix workloads: the literal loops and the program's in one run, their times, the ratio and
// a signature of each result. Exits with 1 when a signature differs.
//  - the catalogue of 100 matrices of 100,000 columns of 10 (every tenth damaged by one byte):
//    literally, each seal checked while the file is read byte by byte; ours, whole buffers;
//  - the guarantee of 1,000 random columns of 10 of 30 numbers, M = 6, T = 5 (593,775 subsets);
//  - the adaptation of a matrix of 4,000,000 columns of 10 of 20 indices to a forecast of 20
//    numbers: literally, index by index and each column sorted by swaps; ours, AdaptMatrix into the
//    system's store. The reading of that matrix from its file is timed beside it.
#include "core/Corpo.h"
#include "matrix/Adatta.h"
#include "matrix/Catalogo.h"
#include "matrix/Garanzia.h"
#include "reference/MatriciLetterale.h"
#include "support/FakeUi.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

using namespace dv;

namespace {

struct Firma {
    uint64_t h = 1469598103934665603ull;
    void add(int64_t v) {
        for (int i = 0; i < 8; ++i)
            h = (h ^ static_cast<uint8_t>(v >> (8 * i))) * 1099511628211ull;
    }
    void add(const std::string& s) {
        for (char c : s)
            add(c);
    }
};

template <typename F> double Tempo(F&& f) {
    const auto t0 = std::chrono::steady_clock::now();
    f();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

bool Riga(const char* nome, double letterale, double nostro, uint64_t fl, uint64_t fn, double obiettivo) {
    std::printf(
        "%-44s literal %8.3f s   ours %8.4f s   ratio %7.1fx   (target ours < %.0f s)   signatures %016llx "
        "%016llx%s\n",
        nome, letterale, nostro, letterale / nostro, obiettivo, static_cast<unsigned long long>(fl),
        static_cast<unsigned long long>(fn), fl == fn ? "" : "   DIFFERENT");
    return fl == fn;
}

uint64_t FirmaCatalogo(const std::vector<MATRIX_CATALOG_ENTRY>& cat) {
    Firma f;
    for (const auto& e : cat) {
        f.add(e.FILE_NAME);
        f.add(e.CRC_OK);
        f.add(e.SIGNATURE_OK);
        f.add(e.COLUMNS_OF_MATRIX_C);
    }
    return f.h;
}

bool Catalogo() {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("dv-bench-matrici-" + std::to_string(::getpid()));
    fs::create_directories(dir / "matrici");
    std::mt19937 rng(3);
    for (int n = 0; n < 100; ++n) {
        MATRIX_STRUCTURE m;
        m.NUMBERS_OF_MATRIX_V = static_cast<uint8_t>(10 + rng() % 21);
        m.dimensiona(10, 100'000);
        for (auto& b : m.COLUMS)
            b = static_cast<uint8_t>(1 + rng() % m.NUMBERS_OF_MATRIX_V);
        m.MATRIX_SIGNATURE = FirmaMatrice;
        m.VALID_FROM = 40000;
        m.VALID_TO = 80000;
        std::vector<uint8_t> bytes = SerializzaMatrice(m);
        if (n % 10 == 0) bytes[1000] ^= 1;
        std::ofstream((dir / "matrici" / ("M" + std::to_string(n) + ".mqvn")).string(), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    const double oggi = 46000;
    std::vector<MATRIX_CATALOG_ENTRY> letterale, nostro;
    const cCRC32 crc;
    const double tl = Tempo([&] {
        const std::string cartella = (dir / "matrici").string();
        for (const std::string& name : ListMatrixFiles(cartella, "*.mqvn")) {
            MATRIX_CATALOG_ENTRY e;
            static_cast<MatrixHeader&>(e) = ReadMatrixHeader((dir / "matrici" / name).string());
            e.FILE_NAME = name;
            e.SIGNATURE_OK = e.MATRIX_SIGNATURE == FirmaMatrice ? Vero : Falso;
            e.CRC_OK = test::CheckMatrixCrcLetterale((dir / "matrici" / name).string(), crc) ? Vero : Falso;
            letterale.push_back(e);
        }
        SortMatrixCatalog(letterale);
    });
    const double tn = Tempo([&] { nostro = BuildMatrixCatalog(dir.string(), 0, 10, oggi); });
    fs::remove_all(dir);
    return Riga("catalogue of 100 matrices of 100,000 columns", tl, tn, FirmaCatalogo(letterale),
                FirmaCatalogo(nostro), 1);
}

bool Garanzia() {
    std::mt19937 rng(5);
    std::vector<std::vector<uint8_t>> colonne(1000);
    std::vector<engine::Mask> maschere;
    for (auto& col : colonne) {
        std::vector<uint8_t> tutti(30);
        for (int i = 0; i < 30; ++i)
            tutti[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
        std::shuffle(tutti.begin(), tutti.end(), rng);
        col.assign(tutti.begin(), tutti.begin() + 10);
        engine::Mask m;
        for (uint8_t i : col)
            m |= engine::Mask::bit(i);
        maschere.push_back(m);
    }
    test::GaranziaLetterale l;
    EsitoGaranzia n;
    const double tl = Tempo([&] { l = test::VerificaGaranziaLetterale(30, 6, 5, colonne); });
    const double tn = Tempo([&] { n = VerificaGaranzia(30, 6, 5, maschere, SIZE_MAX); });
    Firma fl, fn;
    fl.add(static_cast<int64_t>(l.subsets)), fl.add(static_cast<int64_t>(l.covered));
    for (const auto& h : l.holes)
        for (uint8_t x : h)
            fl.add(x);
    fn.add(static_cast<int64_t>(n.subsets)), fn.add(static_cast<int64_t>(n.covered));
    for (const auto& h : n.firstHoles)
        for (uint8_t x : h)
            fn.add(x);
    std::printf("  %llu subsets, %llu covered, %llu holes\n", static_cast<unsigned long long>(n.subsets),
                static_cast<unsigned long long>(n.covered),
                static_cast<unsigned long long>(n.subsets - n.covered));
    return Riga("guarantee V=30 M=6 T=5, 1,000 columns of 10", tl, tn, fl.h, fn.h, 2);
}

bool Adattamento() {
    constexpr int k = 10, v = 20;
    constexpr int32_t colonne = MaxColonne;
    std::mt19937 rng(7);
    MATRIX_STRUCTURE m;
    m.NUMBERS_OF_MATRIX_V = v;
    m.dimensiona(k, colonne);
    for (auto& b : m.COLUMS)
        b = static_cast<uint8_t>(1 + rng() % v);
    m.MATRIX_SIGNATURE = FirmaMatrice;
    Corpo c;
    c.LenColonna = k;
    c.pronostico.Quanti = v;
    for (int i = 0; i < v; ++i)
        c.pronostico.Numeri[static_cast<size_t>(i)] = static_cast<uint8_t>(90 - 4 * i);

    namespace fs = std::filesystem;
    const fs::path file =
        fs::temp_directory_path() / ("dv-bench-adatta-" + std::to_string(::getpid()) + ".mqvn");
    const std::vector<uint8_t> bytes = SerializzaMatrice(m);
    std::ofstream(file.string(), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    MATRIX_STRUCTURE letta;
    const double tr = Tempo([&] { letta = ReadMatrix(file.string()); });
    fs::remove(file);
    std::printf("  ReadMatrix of %d columns of %d (%zu bytes): %.4f s\n", colonne, k, bytes.size(), tr);

    std::vector<uint8_t> letterale(static_cast<size_t>(colonne) * k);
    const double tl = Tempo([&] {
        for (int32_t j = 1; j <= colonne; ++j) {
            uint8_t* col = &letterale[static_cast<size_t>(j - 1) * k];
            for (int p = 1; p <= k; ++p)
                col[p - 1] = c.pronostico.Numeri[static_cast<size_t>(letta.colum(p, j) - 1)];
            for (int i = 0; i < k; ++i)
                for (int h = i + 1; h < k; ++h)
                    if (col[i] > col[h]) std::swap(col[i], col[h]);
        }
    });
    test::FakeUi ui;
    FisseMatrice fisse(k);
    const double tn = Tempo([&] { AdaptMatrix(c, ui, letta, fisse, {}); });
    Firma fl, fn;
    for (uint8_t x : letterale)
        fl.add(x);
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j)
        for (int p = 1; p <= k; ++p)
            fn.add(c.Colonne.get(j, p));
    return Riga("adaptation of 4,000,000 columns of 10", tl, tn, fl.h, fn.h, 1);
}

} // namespace

int main() {
    bool ok = Catalogo();
    ok = Garanzia() && ok;
    ok = Adattamento() && ok;
    return ok ? 0 : 1;
}
