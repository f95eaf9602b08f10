// Runs a shell command line (dorvanta-cli with its arguments, as the tests build it) and returns
// its exit code and what it wrote on standard output.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace dv::test {

struct Esecuzione {
    int rc = -1;
    std::string out;
};

inline Esecuzione EseguiComando(const std::string& cmd) {
    Esecuzione e;
    std::FILE* p = ::popen(cmd.c_str(), "r");
    if (!p) return e;
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, p)) > 0)
        e.out.append(buf, n);
    const int status = ::pclose(p);
    e.rc = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return e;
}

} // namespace dv::test
