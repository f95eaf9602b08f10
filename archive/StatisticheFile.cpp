// The statistics' CSV file: its name in the temp folder, the clean-up of earlier ones, the write.
#include "archive/Statistiche.h"

#include "archive/Archivio.h"

#include "core/Ui.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FlussoBinario.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace dv {

namespace {

constexpr const char* PrefissoCsv = "dorvantaqvn_";
constexpr const char* EstensioneCsv = ".csv";

} // namespace

std::string PercorsoCsvStatistiche(const std::string& tempFolder, std::time_t ora) {
    std::tm t{};
    localtime_r(&ora, &t);
    char nome[64];
    std::snprintf(nome, sizeof nome, "%s%04d%02d%02d_%02d%02d%02d%s", PrefissoCsv, t.tm_year + 1900,
                  t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec, EstensioneCsv);
    return tempFolder + nome;
}

void PulisciCsvStatistiche(const std::string& tempFolder) {
    namespace fs = std::filesystem;
    std::error_code ec;
    // A file of the pattern is made first, so that the removal always has something to find.
    { std::ofstream segnaposto(fs::path(tempFolder) / "dorvantaqvn_XX.csv", std::ios::binary); }
    for (const auto& voce : fs::directory_iterator(tempFolder, ec)) {
        const std::string nome = voce.path().filename().string();
        const size_t lp = std::char_traits<char>::length(PrefissoCsv),
                     le = std::char_traits<char>::length(EstensioneCsv);
        if (nome.size() >= lp + le && nome.compare(0, lp, PrefissoCsv) == 0 &&
            nome.compare(nome.size() - le, le, EstensioneCsv) == 0 && voce.is_regular_file(ec))
            fs::remove(voce.path(), ec);
    }
}

void ScriviTestoSicuro(const std::string& path, const std::string& text) {
    ScrittoreSicuro file(path, std::ios::binary);
    file.stream().write(text.data(), static_cast<std::streamsize>(text.size()));
    file.conferma();
}

EsitoStatistiche Statistiche(const ArrayEstrazioni& a, int32_t tipoArchivio, const IntervalloStatistiche& r,
                             const std::string& tempFolder, const std::string& csvPath, Ui& ui,
                             TabelleStatistiche& t) {
    if (ArchivioVuoto(a)) {
        t = TabelleStatistiche{};
        return EsitoStatistiche::Vuoto;
    }
    PulisciCsvStatistiche(tempFolder);
    // The lines go straight into the file as they are made; it takes its name once complete.
    struct UscitaFile : UscitaCsv {
        std::ostream& out;
        explicit UscitaFile(std::ostream& o) : out(o) {}
        void scrivi(const char* p, size_t n) override { out.write(p, static_cast<std::streamsize>(n)); }
    };
    try {
        ScrittoreSicuro file(csvPath, std::ios::binary);
        UscitaFile uscita(file.stream());
        const EsitoStatistiche esito = CalcolaStatistiche(a, tipoArchivio, r, ui, t, &uscita);
        file.conferma();
        return esito;
    } catch (const ErroreEsecuzione& e) {
        MostraErrore(ui, e, ") in procedure Statistiche of Form frmStatistiche");
        return EsitoStatistiche::Errore;
    }
}

} // namespace dv
