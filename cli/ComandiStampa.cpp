// The subcommands of the stampa area.
#include "cli/Aree.h"
#include "cli/UiTesto.h"

namespace dv::cli {

void RegistraComandiStampa(CLI::App&, ComandiCli&) {}

} // namespace dv::cli
