// The subcommands of the ultimate area.
#include "cli/Aree.h"
#include "cli/UiTesto.h"

namespace dv::cli {

void RegistraComandiUltimate(CLI::App&, ComandiCli&) {}

} // namespace dv::cli
