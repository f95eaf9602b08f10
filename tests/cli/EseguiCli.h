// Runs the built dorvanta-cli as a process, as a user would, and returns its exit code and what it
// wrote on standard output and standard error.
#pragma once

#include "tests/settings/TempDir.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
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

} // namespace dv::test
