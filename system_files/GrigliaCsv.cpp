#include "system_files/GrigliaCsv.h"

#include "core/Ui.h"
#include "system_files/ErroreEsecuzione.h"

#include <cstdio>
#include <filesystem>

namespace dv {

bool MSHFlexGridTocsv(const GrigliaTesti& grid, const std::string& path, Ui& ui) {
    ui.setBusy(true);
    const std::string nuovo = path + ".new";
    std::FILE* f = std::fopen(nuovo.c_str(), "wb");
    bool ok = f != nullptr;
    if (ok) {
        std::string riga;
        for (int r = 0; r < grid.righe && ok; ++r) {
            riga.clear();
            for (int c = 0; c < grid.colonne; ++c) {
                riga += grid.testo(r, c);
                riga += ';';
            }
            riga += "\r\n";
            ok = std::fwrite(riga.data(), 1, riga.size(), f) == riga.size();
        }
        ok = std::fclose(f) == 0 && ok;
    }
    std::error_code ec;
    if (ok) std::filesystem::rename(nuovo, path, ec);
    ui.setBusy(false);
    if (!ok || ec) {
        std::filesystem::remove(nuovo, ec);
        const bool cartella = std::filesystem::is_directory(std::filesystem::path(path).parent_path(), ec);
        const ErroreEsecuzione e = f == nullptr && !cartella ? ErroreEsecuzione{76, "Path not found"}
                                   : f == nullptr || ok      ? errori::AccessoNegato()
                                                             : errori::DiscoPieno();
        MostraErrore(ui, e, ") in procedure MSHFlexGridTocsv of Module Corpo");
        return false;
    }
    return true;
}

} // namespace dv
