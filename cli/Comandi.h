// The subcommands of dorvanta-cli, each a function of its options that returns the exit code.
#pragma once

#include "core/Engine.h"
#include "core/Ui.h"

#include <cstdint>
#include <optional>
#include <string>

namespace dv::cli {

constexpr int EsitoOk = 0;
constexpr int EsitoFileRifiutato = 1; // a file could not be read, developed or written
constexpr int EsitoUso = 2;           // the command line itself is wrong

struct OpzioniNuovo {
    std::string out;
    std::string numbers;
    int length = 10;
    std::string sum, even, fixed, consecutive;
    std::optional<int> reduce, minDistance;
};

int ComandoNuovo(const OpzioniNuovo& o, Ui& ui);
// ctl lets an interrupt stop the run; the columns kept so far are saved.
int ComandoSviluppa(const std::string& in, const std::string& out, Ui& ui, RunControl& ctl);
int ComandoMostra(const std::string& in, bool colonne, Ui& ui);
int ComandoEsportaTxt(const std::string& in, const std::string& out, Ui& ui);
int ComandoImportaTxt(const std::string& in, const std::string& out, Ui& ui);
int ComandoMescola(const std::string& in, const std::string& out, std::optional<uint32_t> seed, Ui& ui);

} // namespace dv::cli
