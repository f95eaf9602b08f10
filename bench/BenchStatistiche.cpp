// The draw statistics over 500,000 five-minute draws: the literal computation and the program's
// in one run, each writing its CSV file, their times, the ratio, and a signature of each result
// (the six tables and the CSV text). Exits with 1 when a signature differs.
#include "archive/Statistiche.h"
#include "tests/reference/StatisticheLetterale.h"
#include "tests/support/FakeUi.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

using namespace dv;

namespace {

constexpr int Estrazioni = 500'000;

// About 1,736 days of 288 draws, twenty sorted numbers each.
ArrayEstrazioni Archivio() {
    ArrayEstrazioni a(1);
    a.reserve(Estrazioni + 1);
    std::mt19937 g(20261122);
    std::array<uint8_t, 90> tutti{};
    for (int i = 0; i < 90; ++i)
        tutti[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    for (int k = 0; k < Estrazioni; ++k) {
        Estrazione e;
        const int giorno = k / 288;
        char data[32];
        std::snprintf(data, sizeof data, "%02d/%02d/%04d", 1 + giorno % 28, 1 + giorno / 28 % 12,
                      2000 + giorno / 336);
        std::memcpy(e.Data.data(), data, e.Data.size());
        e.Concorso = static_cast<int16_t>(k % 288 + 1);
        for (int i = 0; i < 20; ++i)
            std::swap(tutti[static_cast<size_t>(i)], tutti[static_cast<size_t>(i + g() % (90 - i))]);
        std::copy(tutti.begin(), tutti.begin() + 20, e.Numeri.begin() + 1);
        std::sort(e.Numeri.begin() + 1, e.Numeri.end());
        a.push_back(e);
    }
    return a;
}

uint64_t Firma(const TabelleStatistiche& t, const std::string& csv) {
    uint64_t h = 1469598103934665603ull;
    auto add = [&h](int64_t v) {
        for (int i = 0; i < 8; ++i)
            h = (h ^ static_cast<uint8_t>(v >> (8 * i))) * 1099511628211ull;
    };
    for (const auto* tab : {&t.consecutivi, &t.ripetuti, &t.pari, &t.dispari, &t.somma})
        for (int32_t v : *tab)
            add(v);
    for (const auto& f : t.frequenza)
        add(f[0]), add(f[1]);
    for (char c : csv)
        add(c);
    return h;
}

std::string Leggi(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

template <typename F> double Secondi(F f) {
    const auto t0 = std::chrono::steady_clock::now();
    f();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

} // namespace

int main() {
    namespace fs = std::filesystem;
    const ArrayEstrazioni a = Archivio();
    const fs::path dir = fs::temp_directory_path() / "dorvanta-bench-statistiche";
    fs::create_directories(dir);
    const std::string temp = dir.string() + "/";
    test::FakeUi ui;
    ui.texts = {{"0031", "Data"},           {"0032", "Ripetuti"},    {"0033", "Numeri pari"},
                {"0034", "Numeri dispari"}, {"0035", "Consecutivi"}, {"0036", "Somma"}};
    IntervalloStatistiche r{a[1].dataTesto(), a[static_cast<size_t>(UBound(a))].dataTesto(), 1, 288};

    TabelleStatistiche letterale, nostra;
    std::string csvLetterale;
    const double tLetterale = Secondi([&] {
        test::StatisticheLetterali(a, Archivio5Minuti, r, ui, letterale, csvLetterale);
        std::ofstream(dir / "letterale.csv", std::ios::binary) << csvLetterale;
    });
    const std::string path = PercorsoCsvStatistiche(temp, std::time(nullptr));
    const double tNostra = Secondi([&] { Statistiche(a, Archivio5Minuti, r, temp, path, ui, nostra); });
    const double tConteggi = Secondi([&] { CalcolaStatistiche(a, Archivio5Minuti, r, ui, nostra, nullptr); });

    std::vector<std::string> date;
    const double tDate = Secondi([&] { ElencoDateEstrazioni(a, date, ui); });
    std::printf("date lists: %zu dates in %.3f s\n", date.size(), tDate);
    const uint64_t f1 = Firma(letterale, csvLetterale), f2 = Firma(nostra, Leggi(path));
    std::printf("statistics of %d draws, CSV of %.1f MB\n", Estrazioni,
                static_cast<double>(csvLetterale.size()) / 1e6);
    std::printf("%-36s literal %7.3f s   ours %7.3f s (target < 0.5 s; counts alone %.3f s)   ratio %6.1fx   "
                "signatures %016llx %016llx%s\n",
                "counts and CSV file", tLetterale, tNostra, tConteggi, tLetterale / tNostra,
                static_cast<unsigned long long>(f1), static_cast<unsigned long long>(f2),
                f1 == f2 ? "" : "   DIFFER");
    fs::remove_all(dir);
    return f1 == f2 && ui.boxes.empty() ? 0 : 1;
}
