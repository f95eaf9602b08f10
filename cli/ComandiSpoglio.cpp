// The subcommands of the spoglio area.
#include "cli/Aree.h"
#include "cli/UiTesto.h"

namespace dv::cli {

void RegistraComandiSpoglio(CLI::App&, ComandiCli&) {}

} // namespace dv::cli
