// The subcommands of dorvanta-cli that each area of the program adds (archive, checks,
// statistics, Ultimate and filter import, matrices, printing). An area adds its subcommands to
// the application and, for each, the function that runs it once the command line is parsed.
#pragma once

#include "cli/Comandi.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace dv::cli {

class UiTesto;

struct ComandiCli {
    // The language file of --language, known once the command line is parsed.
    const std::string* language = nullptr;
    std::vector<std::pair<CLI::App*, std::function<int(UiTesto&)>>> voci;

    void aggiungi(CLI::App* sub, std::function<int(UiTesto&)> esegui) { voci.emplace_back(sub, std::move(esegui)); }
};

void RegistraComandiArchivio(CLI::App& app, ComandiCli& comandi);
void RegistraComandiSpoglio(CLI::App& app, ComandiCli& comandi);
void RegistraComandiStatistiche(CLI::App& app, ComandiCli& comandi);
void RegistraComandiUltimate(CLI::App& app, ComandiCli& comandi);
void RegistraComandiMatrici(CLI::App& app, ComandiCli& comandi);
void RegistraComandiStampa(CLI::App& app, ComandiCli& comandi);

inline void RegistraComandiAree(CLI::App& app, ComandiCli& comandi) {
    RegistraComandiArchivio(app, comandi);
    RegistraComandiSpoglio(app, comandi);
    RegistraComandiStatistiche(app, comandi);
    RegistraComandiUltimate(app, comandi);
    RegistraComandiMatrici(app, comandi);
    RegistraComandiStampa(app, comandi);
}

} // namespace dv::cli
