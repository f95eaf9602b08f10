// The subcommands of the statistiche area: `stats`, the draw statistics over an archive file.
#include "archive/Archivio.h"
#include "archive/Statistiche.h"
#include "cli/Aree.h"
#include "cli/UiTesto.h"
#include "system_files/ErroreEsecuzione.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace dv::cli {

namespace {

struct OpzioniStats {
    std::string archivio;
    std::string dal, al;
    int32_t concDal = 1, concAl = 288;
    int32_t tipo = ArchivioSerale;
    std::string csv;
    bool json = false;
};

void StampaJsonConteggi(const char* nome, const std::array<int32_t, 21>& t, size_t da, size_t a) {
    std::printf("\"%s\": [", nome);
    for (size_t i = da; i <= a; ++i)
        std::printf(i == da ? "%d" : ", %d", t[i]);
    std::printf("]");
}

void StampaJson(const TabelleStatistiche& t) {
    std::printf("{");
    StampaJsonConteggi("consecutive", t.consecutivi, 1, 20);
    std::printf(", ");
    StampaJsonConteggi("repeats", t.ripetuti, 0, 20);
    std::printf(", ");
    StampaJsonConteggi("even", t.pari, 0, 20);
    std::printf(", ");
    StampaJsonConteggi("odd", t.dispari, 0, 20);
    std::printf(", ");
    StampaJsonConteggi("sum", t.somma, 1, 20);
    std::printf(", \"frequency\": [");
    for (size_t i = 1; i <= 90; ++i)
        std::printf(i == 1 ? "[%d, %d]" : ", [%d, %d]", t.frequenza[i][1], t.frequenza[i][0]);
    std::printf("]}\n");
}

// The six tables as the window's charts label them, each under its title.
void StampaTesto(const ArrayEstrazioni& a, const TabelleStatistiche& t, Ui& ui) {
    const Estrazione& primo = a[static_cast<size_t>(t.primo)];
    const Estrazione& ultimo = a[static_cast<size_t>(t.ultimo)];
    std::printf("%d draws, from %s n. %d to %s n. %d\n", t.ultimo - t.primo + 1, primo.dataTesto().c_str(),
                primo.Concorso, ultimo.dataTesto().c_str(), ultimo.Concorso);
    for (int g = 0; g < NumeroGrafici; ++g) {
        std::string titolo = ui.Lang(ChiaveTitoloGrafico(g));
        if (titolo.empty()) titolo = ChiaveTitoloGrafico(g);
        std::printf("\n%s\n", titolo.c_str());
        for (const RigaGrafico& r : RigheGrafico(t, g))
            std::printf("  %s\n", r.etichetta.c_str());
    }
}

int ComandoStats(const OpzioniStats& o, UiTesto& ui) {
    namespace fs = std::filesystem;
    std::error_code ec;
    // The loader would make a missing file; a file that is not there is refused instead.
    if (!fs::is_regular_file(o.archivio, ec)) {
        std::fprintf(stderr, "The archive file %s does not exist.\n", o.archivio.c_str());
        return EsitoFileRifiutato;
    }
    fs::path cartella = fs::absolute(o.archivio, ec).parent_path();
    const ArrayEstrazioni a = LoadArchivioDAT(o.archivio, cartella.string(), ui);
    if (ui.erroriMostrati() > 0) return EsitoFileRifiutato;
    if (ArchivioVuoto(a)) {
        std::fprintf(stderr, "The archive %s holds no draw.\n", o.archivio.c_str());
        return EsitoFileRifiutato;
    }
    IntervalloStatistiche r{o.dal, o.al, o.concDal, o.concAl};
    if (r.dal.empty() || r.al.empty()) {
        // Without dates the whole archive, as the window's lists stand at first.
        std::vector<std::string> date;
        if (!ElencoDateEstrazioni(a, date, ui) || date.empty()) return EsitoFileRifiutato;
        if (r.dal.empty()) r.dal = date.front();
        if (r.al.empty()) r.al = date.back();
    }
    for (const std::string* d : {&r.dal, &r.al}) {
        bool trovata = false;
        for (int32_t i = 1; i <= UBound(a) && !trovata; ++i)
            trovata = a[static_cast<size_t>(i)].dataTesto() == *d;
        if (!trovata) {
            std::fprintf(stderr, "No draw of %s in the archive.\n", d->c_str());
            return EsitoFileRifiutato;
        }
    }
    TabelleStatistiche t;
    TestoCsv testo;
    if (CalcolaStatistiche(a, o.tipo, r, ui, t, o.csv.empty() ? nullptr : &testo) !=
        EsitoStatistiche::Calcolate)
        return EsitoFileRifiutato;
    if (!o.csv.empty()) {
        try {
            ScriviTestoSicuro(o.csv, testo.testo);
        } catch (const ErroreEsecuzione& e) {
            std::fprintf(stderr, "%s: %s\n", o.csv.c_str(), e.descrizione().c_str());
            return EsitoFileRifiutato;
        }
    }
    if (o.json)
        StampaJson(t);
    else
        StampaTesto(a, t, ui);
    return EsitoOk;
}

} // namespace

void RegistraComandiStatistiche(CLI::App& app, ComandiCli& comandi) {
    auto o = std::make_shared<OpzioniStats>();
    auto* sub =
        app.add_subcommand("stats", "Draw statistics over a range of an archive file, as \"Statistiche\" "
                                    "computes them");
    sub->footer(
        "Without dates the whole archive. The range starts at the first draw of --from whose number "
        "reaches --conc-from (else the last of that date) and ends at the first draw of --to whose number "
        "reaches --conc-to.\n"
        "--json prints {\"consecutive\": [20 counts, longest run 1..20], \"repeats\": [21 counts, 0..20 "
        "numbers of the draw before], \"even\": [21], \"odd\": [21], \"sum\": [20 bands, 210-280, "
        "281-350 ... 1541-1610], \"frequency\": [[number, count], ... 90 pairs, most frequent first]}.\n"
        "--csv writes the file the window writes: a heading, then one line a draw, newest first "
        "(date;[n.;]numbers;repeats;even;odd;run;sum).");
    sub->add_option("archive", o->archivio, "Archive file of 34-byte records (.dat)")->required();
    const auto data = CLI::Validator(
        [](std::string& d) { return IsDate(d) ? std::string() : "not a date dd/mm/yyyy: " + d; }, "DATE");
    sub->add_option("--from", o->dal, "First date of the range, dd/mm/yyyy")->check(data);
    sub->add_option("--to", o->al, "Last date of the range, dd/mm/yyyy")->check(data);
    sub->add_option("--conc-from", o->concDal, "First draw number within the first date")
        ->check(CLI::Range(1, 288))
        ->capture_default_str();
    sub->add_option("--conc-to", o->concAl, "Last draw number within the last date")
        ->check(CLI::Range(1, 288))
        ->capture_default_str();
    sub->add_option("--type", o->tipo,
                    "Archive kind: 0 evening, 1 five-minute (adds the column n.), 2 manual")
        ->check(CLI::Range(0, 2))
        ->capture_default_str();
    sub->add_option("--csv", o->csv, "Write the statistics CSV file there");
    sub->add_flag("--json", o->json, "Print the counts as JSON");
    comandi.aggiungi(sub, [o](UiTesto& ui) { return ComandoStats(*o, ui); });
}

} // namespace dv::cli
