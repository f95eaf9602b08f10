// The draw archives at 500,000 draws: the conversion of the server's text and the load of the
// archive file, each literal and ours in one run, and the whole `dorvanta-cli archive show --last 1`
// process. Prints the times, the ratio and a signature of each result; exits with 1 when a
// signature differs.
#include "archive/Archivio.h"
#include "archive/Conversione.h"
#include "reference/ArchivioLetterale.h"
#include "tests/archive/LeggiFile.h"
#include "tests/support/FakeUi.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

using namespace dv;

namespace {

constexpr int Estrazioni = 500'000;

template <typename F> double Secondi(F f) {
    const auto t0 = std::chrono::steady_clock::now();
    f();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

// The best of three runs.
template <typename F> double Migliore(F f) {
    double t = Secondi(f);
    for (int i = 0; i < 2; ++i)
        t = std::min(t, Secondi(f));
    return t;
}

uint64_t Firma(const char* data, size_t size) {
    uint64_t h = 1469598103934665603ull;
    for (size_t i = 0; i < size; ++i)
        h = (h ^ static_cast<uint8_t>(data[i])) * 1099511628211ull;
    return h;
}

uint64_t Firma(const ArrayEstrazioni& a) {
    std::string tutto;
    for (size_t i = 1; i < a.size(); ++i)
        tutto.append(RecordEstrazione(a[i]).data(), DimensioneRecordEstrazione);
    return Firma(tutto.data(), tutto.size());
}

// The server's text: a heading, then 500,000 five-minute draws, tab-separated, CR LF.
std::string Testo() {
    std::string t = "Data\tConcorso\tEstratti (20)\tOro\tDoppio Oro\r\n";
    t.reserve(static_cast<size_t>(Estrazioni) * 80);
    std::mt19937 g(20261122);
    std::array<uint8_t, 90> tutti{};
    for (int i = 0; i < 90; ++i)
        tutti[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    char riga[160];
    for (int k = 0; k < Estrazioni; ++k) {
        const int giorno = k / 288;
        int n = std::snprintf(riga, sizeof riga, "%02d/%02d/%04d\t%d", 1 + giorno % 28, 1 + giorno / 28 % 12,
                              2000 + giorno / 336, k % 288 + 1);
        for (int i = 0; i < 20; ++i)
            std::swap(tutti[static_cast<size_t>(i)], tutti[static_cast<size_t>(i + g() % (90 - i))]);
        std::array<uint8_t, 20> numeri{};
        std::copy(tutti.begin(), tutti.begin() + 20, numeri.begin());
        std::sort(numeri.begin(), numeri.end());
        for (uint8_t v : numeri)
            n += std::snprintf(riga + n, sizeof riga - static_cast<size_t>(n), "\t%d", v);
        std::snprintf(riga + n, sizeof riga - static_cast<size_t>(n), "\t%d\t%d\r\n", tutti[0], tutti[1]);
        t += riga;
    }
    return t;
}

struct Risultato {
    const char* nome;
    double letterale, nostro, obiettivo;
    uint64_t firmaLetterale, firmaNostra;
};

void Stampa(const Risultato& r) {
    std::printf("%-34s literal %8.3f s  ours %7.3f s  ratio %6.1fx  target < %.1f s %s\n", r.nome,
                r.letterale, r.nostro, r.nostro > 0 ? r.letterale / r.nostro : 0.0, r.obiettivo,
                r.nostro < r.obiettivo ? "met" : "MISSED");
    std::printf("%-34s signatures literal %016llx ours %016llx %s\n", "",
                static_cast<unsigned long long>(r.firmaLetterale),
                static_cast<unsigned long long>(r.firmaNostra),
                r.firmaLetterale == r.firmaNostra ? "same" : "DIFFERENT");
}

} // namespace

int main() {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / "dorvanta-bench-archivio";
    fs::create_directories(dir);
    const std::string txt = (dir / "archivio.txt").string();
    const std::string dat = (dir / "archivio.dat").string();
    std::ofstream(txt, std::ios::binary) << Testo();
    std::printf("dorvanta-bench-archivio: %d draws, text of %.1f MB\n", Estrazioni,
                static_cast<double>(fs::file_size(txt)) / 1e6);
    bool uguali = true;

    // 1. The conversion of the text into the archive file.
    reference::ConversioneLetterale letterale;
    Risultato conv{"convert 500,000 lines", 0, 0, 1.0, 0, 0};
    conv.letterale = Secondi([&] {
        letterale = reference::ConvertiLetterale(dv::test::LeggiFile(txt));
        std::ofstream(dir / "letterale.dat", std::ios::binary) << letterale.records;
    });
    conv.firmaLetterale = Firma(letterale.records.data(), letterale.records.size());
    conv.nostro = Migliore([&] { ConvertArchivioTmpToDat(txt, dat); });
    const std::string scritto = dv::test::LeggiFile(dat);
    conv.firmaNostra = Firma(scritto.data(), scritto.size());
    Stampa(conv);
    uguali = uguali && conv.firmaLetterale == conv.firmaNostra;

    // 2. The load of the archive file into memory.
    test::FakeUi ui;
    ArrayEstrazioni a, b;
    Risultato load{"load 500,000 draws", 0, 0, 0.3, 0, 0};
    load.letterale = Secondi([&] { b = reference::CaricaLetterale(dat); });
    load.nostro = Migliore([&] { a = LoadArchivioDAT(dat, "", ui); });
    load.firmaLetterale = Firma(b);
    load.firmaNostra = Firma(a);
    Stampa(load);
    uguali = uguali && load.firmaLetterale == load.firmaNostra;

    // 3. The whole command-line process that shows the newest draw; its line must be the window's.
    std::string uscita;
    const std::string cmd = std::string("'") + DV_CLI_PATH + "' archive show '" + dat + "' --last 1";
    const double processo = Migliore([&] {
        uscita.clear();
        std::FILE* p = ::popen(cmd.c_str(), "r");
        char buf[512];
        for (size_t n; p && (n = std::fread(buf, 1, sizeof buf, p)) > 0;)
            uscita.append(buf, n);
        if (p) ::pclose(p);
    });
    const std::string atteso = RigaEstrazione(a.back()) + "\n";
    std::printf("%-34s ours %7.3f s  target < 0.3 s %s; output %s\n", "archive show --last 1 (process)",
                processo, processo < 0.3 ? "met" : "MISSED",
                uscita == atteso ? "as the newest row" : "DIFFERENT");
    uguali = uguali && uscita == atteso;

    std::error_code ec;
    fs::remove_all(dir, ec);
    return uguali ? 0 : 1;
}
