#include "bench/Save.h"

#include "core/Engine.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include <unistd.h>

namespace dv::bench {

namespace {

uint64_t Fnv(const uint8_t* p, size_t n) {
    uint64_t h = 1469598103934665603ull;
    for (size_t i = 0; i < n; ++i)
        h = (h ^ p[i]) * 1099511628211ull;
    return h;
}

double Since(std::chrono::steady_clock::time_point t0) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
}

} // namespace

bool MeasureSave(Corpo& c) {
    Corpo state;
    state.LenColonna = 12;
    test::SetForecast(state, test::Range(1, 40));
    state.Colonne = std::move(c.Colonne);
    RunControl ctl;
    EngineObserver quiet;
    SviluppaIntegrale(state, state.pronostico.Quanti, state.pronostico.Numeri.data(), ctl, quiet, "");
    const int32_t count = state.pronostico.NumColonne;
    const int len = state.LenColonna;
    const size_t bytes = static_cast<size_t>(count) * static_cast<size_t>(len);

    // The columns one after the other, one cell at a time.
    double plain = 1e9;
    std::vector<uint8_t> expected;
    for (int round = 0; round < 3; ++round) {
        const auto t0 = std::chrono::steady_clock::now();
        expected.clear();
        expected.reserve(bytes);
        for (int32_t j = 1; j <= count; ++j)
            for (int p = 1; p <= len; ++p)
                expected.push_back(state.Colonne.get(j, p));
        plain = std::min(plain, Since(t0));
    }

    const char* tmp = std::getenv("TMPDIR");
    const std::filesystem::path path = std::filesystem::path(tmp && *tmp ? tmp : "/tmp") /
                                       ("dorvanta-bench-save-" + std::to_string(::getpid()) + ".dvs");
    double best = 1e9;
    bool saved = true;
    for (int round = 0; round < 5 && saved; ++round) {
        test::FakeUi ui;
        const auto t0 = std::chrono::steady_clock::now();
        saved = SalvaFile(state, ui, path.string());
        best = std::min(best, Since(t0));
    }
    std::ifstream in(path, std::ios::binary);
    const std::vector<uint8_t> file{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    std::error_code ec;
    std::filesystem::remove(path, ec);
    c.Colonne = std::move(state.Colonne);

    // No condition is in force, so the columns are the end of the file.
    const bool same = saved && file.size() >= bytes &&
                      Fnv(file.data() + file.size() - bytes, bytes) == Fnv(expected.data(), bytes);
    std::printf("\nsave of %d columns of %d (%zu bytes): plain loop into memory %.4f s, SalvaFile %.4f s "
                "(target under 0.1 s: %s); checksum %016" PRIx64 " / %016" PRIx64 "\n",
                count, len, file.size(), plain, best, best < 0.1 ? "met" : "NOT MET",
                Fnv(expected.data(), bytes),
                file.size() >= bytes ? Fnv(file.data() + file.size() - bytes, bytes) : 0);
    if (!same) std::printf("!!! the saved columns differ from the store\n");
    return same;
}

} // namespace dv::bench
