#include "system_files/GrigliaCsv.h"

#include "core/Ui.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/ScrittoreSicuro.h"

#include <filesystem>

namespace dv {

bool MSHFlexGridTocsv(const GrigliaTesti& grid, const std::string& path, Ui& ui) {
    ui.setBusy(true);
    try {
        std::error_code ec;
        const std::filesystem::path cartella = std::filesystem::absolute(path, ec).parent_path();
        if (!std::filesystem::is_directory(cartella, ec)) throw ErroreEsecuzione{76, "Path not found"};
        ScrittoreSicuro file(path, std::ios::binary);
        std::string riga;
        for (int r = 0; r < grid.righe; ++r) {
            riga.clear();
            for (int c = 0; c < grid.colonne; ++c) {
                riga += grid.testo(r, c);
                riga += ';';
            }
            riga += "\r\n";
            file.stream().write(riga.data(), static_cast<std::streamsize>(riga.size()));
        }
        file.conferma();
    } catch (const ErroreEsecuzione& e) {
        ui.setBusy(false);
        MostraErrore(ui, e, ") in procedure MSHFlexGridTocsv of Module Corpo");
        return false;
    }
    ui.setBusy(false);
    return true;
}

} // namespace dv
