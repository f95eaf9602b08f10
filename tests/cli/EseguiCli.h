// Runs the built dorvanta-cli as a process, as a user would, and returns its exit code and what it
// wrote on standard output and standard error.
#pragma once

#include "archive/Archivio.h"
#include "tests/settings/TempDir.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <numeric>
#include <random>
#include <string>

namespace dv::test {

struct Esecuzione {
    int rc = -1;
    std::string out, err;
};

// A shell command line; its stderr goes through a file of its own.
inline Esecuzione EseguiComando(const std::string& cmd) {
    char errPath[] = "/tmp/dv_cli_err_XXXXXX";
    const int fd = ::mkstemp(errPath);
    if (fd < 0) return {};
    ::close(fd);
    Esecuzione e;
    if (std::FILE* p = ::popen((cmd + " 2>'" + errPath + "'").c_str(), "r")) {
        char buf[4096];
        for (size_t n; (n = std::fread(buf, 1, sizeof buf, p)) > 0;)
            e.out.append(buf, n);
        const int status = ::pclose(p);
        e.rc = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::ifstream in(errPath, std::ios::binary);
    e.err.assign(std::istreambuf_iterator<char>(in), {});
    std::remove(errPath);
    return e;
}

// dorvanta-cli with the arguments as given (paths already quoted), without any display.
inline Esecuzione Cli(const std::string& args) {
    return EseguiComando("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM '" DV_CLI_PATH "' " + args);
}

// The option that gives the program its Italian texts.
inline const std::string Italiano = "--language '" DV_SOURCE_DIR "/languages/italiano.lng' ";

// A test with a folder of its own; q(name) is the quoted path of a file in it.
class CliTest : public ::testing::Test {
protected:
    TempDir dir;
    std::string q(const std::string& name) const { return "'" + dir.file(name) + "'"; }
};

// An archive of five-minute draws, draws 1..perGiorno on each day from 01/05/2025, twenty
// numbers drawn from a fixed seed, in ascending order. Written to path; returned with the unused
// element 0 as the program holds it.
inline ArrayEstrazioni ArchivioCasuale(int giorni, int perGiorno, const std::string& path) {
    std::mt19937 rng(11);
    std::array<uint8_t, 90> numeri;
    std::iota(numeri.begin(), numeri.end(), uint8_t{1});
    ArrayEstrazioni a(1);
    std::ofstream out(path, std::ios::binary);
    for (int g = 1; g <= giorni; ++g)
        for (int c = 1; c <= perGiorno; ++c) {
            Estrazione e;
            const std::string data = (g < 10 ? "0" : "") + std::to_string(g) + "/05/2025";
            std::copy_n(data.begin(), 10, e.Data.begin());
            e.Concorso = static_cast<int16_t>(c);
            std::shuffle(numeri.begin(), numeri.end(), rng);
            std::copy_n(numeri.begin(), 20, e.Numeri.begin() + 1);
            std::sort(e.Numeri.begin() + 1, e.Numeri.end());
            out.write(RecordEstrazione(e).data(), DimensioneRecordEstrazione);
            a.push_back(e);
        }
    return a;
}

} // namespace dv::test
