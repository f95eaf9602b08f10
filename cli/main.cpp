// dorvanta-cli: the program's operations on system files, without windows.
#include "cli/Aree.h"
#include "cli/Comandi.h"
#include "cli/UiTesto.h"
#include "core/Cartelle.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

namespace {

// An interrupt asks a running development to stop; what was kept is then saved.
dv::RunControl* g_controllo = nullptr;
extern "C" void Interrompi(int) {
    if (g_controllo) g_controllo->StopElaborazione.store(true);
}

// The Italian language file beside the program (where the build copies it) or where an
// installation puts it (../share/dorvanta/languages), else in the sources.
std::string LinguaPredefinita(const char* argv0) {
    std::error_code ec;
    // The program's own folder, also when it was started through PATH.
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    const auto dir = ec ? std::filesystem::path(argv0).parent_path() : exe.parent_path();
    for (const auto& file : {dir / "languages" / "italiano.lng",
                             dir / ".." / "share" / "dorvanta" / "languages" / "italiano.lng"})
        if (std::filesystem::exists(file, ec)) return file.lexically_normal().string();
    return DV_DEFAULT_LANGUAGE_FILE;
}

// The first word of the command line that is neither an option nor the value of --language.
const char* PrimaParola(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--language") {
            ++i;
            continue;
        }
        if (!a.empty() && a[0] != '-') return argv[i];
    }
    return nullptr;
}

} // namespace

int main(int argc, char** argv) {
    using namespace dv::cli;
    // What a save killed in an earlier run left behind goes first, wherever it was writing.
    dv::PulisciSalvataggiInterrotti();
    CLI::App app{"Dorvanta without windows: systems, archives, checks, statistics, matrices and printing.", "dorvanta-cli"};
    app.require_subcommand(1);
    app.fallthrough();
    std::string language = LinguaPredefinita(argv[0]);
    app.add_option("--language", language, "Language file (.lng) for the numbered messages")
        ->capture_default_str()
        ->check(CLI::ExistingFile);

    OpzioniNuovo nuovo;
    auto* cmdNew = app.add_subcommand("new", "Write a system with a forecast and conditions, and no columns");
    cmdNew->add_option("-o,--output", nuovo.out, "System file to write")->required();
    cmdNew->add_option("--numbers", nuovo.numbers, "The forecast, e.g. 1-30,45")->required();
    cmdNew->add_option("--length", nuovo.length, "Numbers in a column, 1..25")->required();
    cmdNew->add_option("--sum", nuovo.sum, "Sum of a column within MIN:MAX");
    cmdNew->add_option("--even", nuovo.even, "Accepted counts of even numbers, e.g. 2,3,4");
    cmdNew->add_option("--fixed", nuovo.fixed, "Numbers of the forecast that every column holds");
    cmdNew->add_option("--consecutive", nuovo.consecutive, "Accepted lengths of the longest run, e.g. 1,2");
    auto* reduce = cmdNew->add_option("--reduce", nuovo.reduce, "Reduce to a guarantee of N");
    auto* minDistance = cmdNew->add_option("--min-distance", nuovo.minDistance, "Reduce to a minimum distance D");
    reduce->excludes(minDistance);

    std::string in, out;
    auto* cmdDevelop = app.add_subcommand("develop", "Develop a system as \"Elabora Sistema\" does, then save it");
    cmdDevelop->add_option("input", in, "System file to develop")->required();
    cmdDevelop->add_option("-o,--output", out, "System file to write")->required();
    int threads = 1;
    cmdDevelop
        ->add_option("--threads", threads,
                     "Threads that walk a development with no reduction and 2,000,000 candidates or more "
                     "(0: as many as the processor has, at most 4); the columns are the same")
        ->check(CLI::Range(0, 64))
        ->capture_default_str();

    bool columns = false;
    auto* cmdShow = app.add_subcommand("show", "Print the forecast, the conditions and the count of columns");
    cmdShow->add_option("input", in, "System file")->required();
    cmdShow->add_flag("--columns", columns, "Print every column too");

    auto* cmdExport = app.add_subcommand("export-txt", "Write the columns as a text file");
    cmdExport->add_option("input", in, "System file")->required();
    cmdExport->add_option("-o,--output", out, "Text file to write")->required();

    auto* cmdImport = app.add_subcommand("import-txt", "Make a system of the columns of a text file");
    cmdImport->add_option("input", in, "Text file of columns")->required();
    cmdImport->add_option("-o,--output", out, "System file to write")->required();

    std::optional<uint32_t> seed;
    auto* cmdShuffle = app.add_subcommand("shuffle", "Put the columns in a random order");
    cmdShuffle->add_option("input", in, "System file")->required();
    cmdShuffle->add_option("-o,--output", out, "System file to write")->required();
    cmdShuffle->add_option("--seed", seed, "Seed of the order (default: seconds since midnight)");

    ComandiCli aree;
    aree.language = &language;
    RegistraComandiAree(app, aree);

    // A first word that names no subcommand (of this file or of an area) is reported as such,
    // not as a missing subcommand.
    if (const char* word = PrimaParola(argc, argv);
        word && app.get_subcommands([word](CLI::App* s) { return s->check_name(word); }).empty()) {
        std::fprintf(stderr, "%s: unknown subcommand\nRun with --help to see the subcommands.\n", word);
        return EsitoUso;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? EsitoOk : EsitoUso;
    }

    UiTesto ui(language, stderr);
    if (*cmdNew) return ComandoNuovo(nuovo, ui);
    if (*cmdDevelop) {
        dv::RunControl ctl;
        ctl.threads = threads;
        g_controllo = &ctl;
        std::signal(SIGINT, Interrompi);
        const int rc = ComandoSviluppa(in, out, ui, ctl);
        g_controllo = nullptr;
        return rc;
    }
    if (*cmdShow) return ComandoMostra(in, columns, ui);
    if (*cmdExport) return ComandoEsportaTxt(in, out, ui);
    if (*cmdImport) return ComandoImportaTxt(in, out, ui);
    if (*cmdShuffle) return ComandoMescola(in, out, seed, ui);
    for (auto& [sub, esegui] : aree.voci)
        if (*sub) return esegui(ui);
    return EsitoUso;
}
