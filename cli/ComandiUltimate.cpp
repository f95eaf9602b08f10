// The subcommands of the ultimate area: `ultimate`, the combinations absent from the latest draws
// of the five-minute archive, and `filters import`, a filter table filled from the archive or a file.
#include "archive/Archivio.h"
#include "archive/Ultimate.h"
#include "cli/Aree.h"
#include "cli/BarraProgresso.h"
#include "cli/ListaNumeri.h"
#include "cli/UiTesto.h"
#include "core/Cartelle.h"
#include "core/Helpers.h"
#include "filters/EditorFiltri.h"
#include "filters/ImportFiltri.h"
#include "system_files/FileSistema.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace dv::cli {

namespace {

RunControl* g_ultimate = nullptr;
extern "C" void InterrompiUltimate(int) {
    if (g_ultimate) g_ultimate->StopElaborazione.store(true);
}

int Uso(const std::string& option, const std::string& why) {
    std::fprintf(stderr, "%s: %s\nRun with --help for more information.\n", option.c_str(), why.c_str());
    return EsitoUso;
}

// Reads an archive file that must exist and hold draws; nothing when it cannot be used.
std::optional<ArrayEstrazioni> CaricaArchivio(const std::string& path, UiTesto& ui) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) {
        std::fprintf(stderr, "The archive file %s does not exist.\n", path.c_str());
        return std::nullopt;
    }
    ArrayEstrazioni a = LoadArchivioDAT(path, std::filesystem::absolute(path, ec).parent_path().string(), ui);
    if (ui.erroriMostrati() > 0) return std::nullopt;
    if (ArchivioVuoto(a)) {
        std::fprintf(stderr, "The archive %s holds no draw.\n", path.c_str());
        return std::nullopt;
    }
    return a;
}

struct OpzioniUltimate {
    std::string archivio, dataDir;
    int size = 2, qty = 1;
    bool json = false;
};

int ComandoUltimate(const OpzioniUltimate& o, UiTesto& ui) {
    std::string path = o.archivio;
    if (path.empty()) {
        if (o.dataDir.empty()) return Uso("ARCHIVE", "give the archive file or --data-dir");
        path = PercorsoIn(o.dataDir, {"archivio", "dorvantaqvn5min2.dat"});
    }
    const auto archivio = CaricaArchivio(path, ui);
    if (!archivio) return EsitoFileRifiutato;

    const ParametriUltimate p = UltimateParametri(o.size, o.qty);
    RunControl ctl;
    g_ultimate = &ctl;
    auto precedente = std::signal(SIGINT, InterrompiUltimate);
    BarraProgresso barra(stderr);
    const RisultatoUltimate r = UltimateCerca(*archivio, o.size, p.estrazioni, ctl, barra);
    barra.chiudi();
    std::signal(SIGINT, precedente);
    g_ultimate = nullptr;
    if (r.overflow) {
        std::fprintf(stderr, "%s\n",
                     TestoOverflowUltimate(") in procedure cmdCalcolo_Click of Form frmUltimate").c_str());
        return EsitoFileRifiutato;
    }
    if (r.interrotta) std::fprintf(stderr, "Stopped: the combinations found until then follow.\n");
    if (o.json) {
        std::printf("{\"draws\": %d, \"decay\": %.11f, \"combinations\": [", p.estrazioni, p.decadimento);
        for (int32_t i = 0; i < r.trovate(); ++i) {
            std::printf(i == 0 ? "[" : ", [");
            for (int j = 0; j < r.n; ++j)
                std::printf(j == 0 ? "%d" : ", %d", r.combinazione(i)[j]);
            std::printf("]");
        }
        std::printf("]}\n");
    } else {
        std::printf("draws: %s\ndecay: %.11f\n", FormatIntero(p.estrazioni, ',').c_str(), p.decadimento);
        const std::string testo = TestoUltimate(r);
        std::fwrite(testo.data(), 1, testo.size(), stdout);
    }
    return EsitoOk;
}

struct OpzioniImport {
    std::string in, out, table = "and", presence, archivio, file;
    std::string dal, al;
    std::optional<int32_t> concDal, concAl, lastDraws, lastDays;
    int32_t tipo = ArchivioSerale;
};

// The range of the archive that the options ask for, as the window's four lists would hold it.
std::optional<IntervalloImport> Intervallo(const OpzioniImport& o, const ArrayEstrazioni& a, int& esito) {
    if (o.lastDraws) return UltimeEstrazioni(a, *o.lastDraws);
    if (o.lastDays) return UltimiGiorni(a, *o.lastDays);
    const std::vector<std::string> date = DateArchivio(a);
    for (const std::string* d : {&o.dal, &o.al})
        if (std::find(date.begin(), date.end(), *d) == date.end()) {
            std::fprintf(stderr, "%s is not a date of the archive %s.\n", d->c_str(), o.archivio.c_str());
            esito = EsitoFileRifiutato;
            return std::nullopt;
        }
    // The evening archive has no draw-number range: its lists stand on 1 and 288.
    return IntervalloImport{o.dal, o.al, std::to_string(o.concDal.value_or(1)),
                            std::to_string(o.concAl.value_or(288))};
}

int ComandoImportaFiltri(const OpzioniImport& o, UiTesto& ui) {
    const bool daArchivio = !o.archivio.empty();
    if (daArchivio == !o.file.empty()) return Uso("--archive/--file", "give exactly one of them");
    const int intervalli =
        (!o.dal.empty() || !o.al.empty()) + o.lastDraws.has_value() + o.lastDays.has_value();
    if (daArchivio && intervalli != 1)
        return Uso("--from/--last-draws/--last-days", "give exactly one range");
    if (!daArchivio && intervalli != 0) return Uso("--file", "takes no range of draws");
    if (daArchivio && intervalli == 1 && !o.lastDraws && !o.lastDays && (o.dal.empty() || o.al.empty()))
        return Uso("--from/--to", "give both dates");
    if (o.tipo == ArchivioSerale && (o.concDal || o.concAl))
        return Uso("--conc-from/--conc-to", "the evening archive (--type 0) has no draw-number range");
    const TipoFiltro tipo = o.table == "or"    ? TipoFiltro::OR
                            : o.table == "xor" ? TipoFiltro::XOR
                                               : TipoFiltro::AND;

    auto c = std::make_unique<Corpo>();
    if (ApriFile(*c, ui, o.in) != EsitoApriFile::Aperto) {
        std::fprintf(stderr, "%s: not opened\n", o.in.c_str());
        return EsitoFileRifiutato;
    }
    std::string errore;
    const auto presenze = LeggiLista(o.presence, 0, c->LenColonna, errore);
    if (!presenze) return Uso("--presence", errore + " (counts 0.." + std::to_string(c->LenColonna) + ")");
    std::array<bool, 26> scelte{};
    for (int k : *presenze)
        scelte[static_cast<size_t>(k)] = true;
    const int32_t mask = MascheraPresenze(scelte);

    TabellaFiltri& tabella = TabellaDelTipo(*c, tipo);
    int32_t conta = 0;
    if (daArchivio) {
        const auto archivio = CaricaArchivio(o.archivio, ui);
        if (!archivio) return EsitoFileRifiutato;
        int esito = EsitoOk;
        const auto r = Intervallo(o, *archivio, esito);
        if (!r) return esito;
        conta = loadArchiveToFilters(tabella, *archivio, ui, r->dal, r->al, std::stoi(r->concDal),
                                     std::stoi(r->concAl), mask);
        if (ui.erroriMostrati() > 0) return EsitoFileRifiutato;
    } else {
        const auto letti = loadFileToFilters(tabella, ui, o.file, mask);
        if (!letti) return EsitoFileRifiutato;
        conta = *letti;
    }
    tabella.setCount(conta);
    if (!SalvaFile(*c, ui, o.out)) {
        std::fprintf(stderr, "%s: not written\n", o.out.c_str());
        return EsitoFileRifiutato;
    }
    std::string nome = o.table;
    std::transform(nome.begin(), nome.end(), nome.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::toupper(ch)); });
    std::printf("%s: %s filters in the %s table\n", o.out.c_str(), FormatIntero(conta, ',').c_str(),
                nome.c_str());
    return EsitoOk;
}

} // namespace

void RegistraComandiUltimate(CLI::App& app, ComandiCli& comandi) {
    auto u = std::make_shared<OpzioniUltimate>();
    auto* ultimate = app.add_subcommand(
        "ultimate",
        "The ambi, terni or quaterne that none of the latest E draws of the five-minute archive holds, E "
        "being the draws after which only --qty of them are expected to stay absent");
    ultimate->add_option("archive", u->archivio, "Five-minute archive file (.dat)");
    ultimate->add_option("--data-dir", u->dataDir,
                         "Data folder whose archivio/dorvantaqvn5min2.dat is read when no file is given");
    ultimate->add_option("--size", u->size, "2 ambo, 3 terno, 4 quaterna")
        ->required()
        ->check(CLI::Range(2, 4));
    ultimate->add_option("--qty", u->qty, "Forecasts wanted, 1..10")->required()->check(CLI::Range(1, 10));
    ultimate->add_flag(
        "--json", u->json,
        "Print {\"draws\": E, \"decay\": d, \"combinations\": [[n1, n2, ...], ...]} in the result's order");
    ultimate->footer("Without --json: the lines \"draws: E\" and \"decay: d\", then the result text, one "
                     "combination a line, each number followed by a blank, lines ending in CRLF. "
                     "Ctrl-C stops the search and prints what was found.");
    comandi.aggiungi(ultimate, [u](UiTesto& ui) { return ComandoUltimate(*u, ui); });

    auto f = std::make_shared<OpzioniImport>();
    auto* filters = app.add_subcommand("filters", "Filter tables of a system file");
    filters->require_subcommand(1);
    auto* import = filters->add_subcommand(
        "import",
        "Fill one filter table of a system with a filter for each draw of a range of an archive, or "
        "each line of a text file; the other tables are untouched");
    import->add_option("input", f->in, "System file (.dvs)")->required();
    import->add_option("-o,--output", f->out, "System file to write")->required();
    import->add_option("--table", f->table, "and, or, xor")
        ->required()
        ->check(CLI::IsMember({"and", "or", "xor"}));
    import
        ->add_option("--presence", f->presence,
                     "Counts a column may hold of each filter's numbers, e.g. 0-2,5")
        ->required();
    import->add_option("--archive", f->archivio, "Archive file (.dat) whose draws become filters");
    import->add_option("--from", f->dal, "First date, dd/mm/yyyy, a date of the archive");
    import->add_option("--to", f->al, "Last date, dd/mm/yyyy, a date of the archive");
    import->add_option("--conc-from", f->concDal, "First draw number within the first date, 1..288")
        ->check(CLI::Range(1, 288));
    import->add_option("--conc-to", f->concAl, "Last draw number within the last date, 1..288")
        ->check(CLI::Range(1, 288));
    import->add_option("--type", f->tipo, "The archive: 0 evening (no draw numbers), 1 five-minute, 2 manual")
        ->check(CLI::Range(0, 2));
    import
        ->add_option("--last-draws", f->lastDraws,
                     "The latest N draws (157, 1152, 7200 are the ready-made ones)")
        ->check(CLI::PositiveNumber);
    import
        ->add_option("--last-days", f->lastDays,
                     "The draws of the latest N dates (5 and 10 are the ready-made ones)")
        ->check(CLI::PositiveNumber);
    import->add_option("--file", f->file,
                       "Text file of filters: one a line, numbers 1..90 separated by blanks, "
                       "TAB, \"-\", \",\", \";\" or \".\"");
    comandi.aggiungi(import, [f](UiTesto& ui) { return ComandoImportaFiltri(*f, ui); });
}

} // namespace dv::cli
