// The subcommands of the matrici area.
#include "cli/Aree.h"
#include "cli/UiTesto.h"

namespace dv::cli {

void RegistraComandiMatrici(CLI::App&, ComandiCli&) {}

} // namespace dv::cli
