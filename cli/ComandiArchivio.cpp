// The subcommands of the archivio area.
#include "cli/Aree.h"
#include "cli/UiTesto.h"

namespace dv::cli {

void RegistraComandiArchivio(CLI::App&, ComandiCli&) {}

} // namespace dv::cli
