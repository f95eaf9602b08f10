// The subcommands of the statistiche area.
#include "cli/Aree.h"
#include "cli/UiTesto.h"

namespace dv::cli {

void RegistraComandiStatistiche(CLI::App&, ComandiCli&) {}

} // namespace dv::cli
