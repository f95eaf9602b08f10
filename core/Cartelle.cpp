#include "core/Cartelle.h"

#include "core/Sistema.h"

#include <filesystem>
#include <system_error>

namespace dv {

std::string PercorsoIn(const std::string& base, std::initializer_list<const char*> parts) {
    std::filesystem::path p(base);
    for (const char* part : parts) p /= part;
    return p.string();
}

void ImpostaAppDir(Corpo& c, const std::string& appDir) {
    c.AppDir = appDir;
    for (const char* sub : SottoCartelle) {
        std::error_code ec; // a failure stops silently, as the folder then simply is not there
        std::filesystem::create_directories(std::filesystem::path(appDir) / sub, ec);
    }
    c.PathArchivioDownload = PercorsoIn(appDir, {"temp", "dorvantaqvn_download2.dat"});
    c.PathArchivioSerale = PercorsoIn(appDir, {"archivio", "dorvantaqvn2.dat"});
    c.PathArchivio5Min = PercorsoIn(appDir, {"archivio", "dorvantaqvn5min2.dat"});
    c.PathArchivioManuale = PercorsoIn(appDir, {"archivio", "dorvantaqvnmanuale2.dat"});
    c.FileCorrente = PercorsoIn(appDir, {"sistemi", "nuovo.dvs"});
    c.TitoloFile = TitoloDaPath(c.FileCorrente);
}

} // namespace dv
