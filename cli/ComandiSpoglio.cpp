// The subcommands of the spoglio area: dorvanta-cli check, check-archive and compare.
#include "archive/Archivio.h"
#include "cli/Aree.h"
#include "cli/BarraProgresso.h"
#include "cli/UiTesto.h"
#include "core/Finestra.h"
#include "prize/Premi.h"
#include "prize/Spoglio.h"
#include "prize/SpoglioEstrazioni.h"
#include "prize/VerificaSistemi.h"
#include "system_files/FileSistema.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>

namespace dv::cli {

namespace {

struct OpzioniSpoglio {
    std::string sistema, archivio, file1, file2, csv;
    std::string draw, from, to;
    std::optional<std::string> oro, doppio, da, a;
    int concDa = 1, concA = 288;
    int play = 1;
    std::string stake = "1";
    bool json = false;
};

int ErroreUso(const std::string& option, const std::string& why) {
    std::fprintf(stderr, "%s: %s\nRun with --help for more information.\n", option.c_str(), why.c_str());
    return EsitoUso;
}

int Rifiuto(UiTesto& ui, const std::string& text) {
    ui.messageBox(text, "", BoxIcon::Critical);
    return EsitoFileRifiutato;
}

// The stake of one of the ten options ("1,5" or "1.5"), or -1.
int IndiceImporto(std::string s) {
    for (char& ch : s)
        if (ch == '.') ch = ',';
    for (size_t i = 0; i < ImportiGiocata.size(); ++i)
        if (s == ImportiGiocata[i].caption) return static_cast<int>(i);
    return -1;
}

// Opens the system and sets the kind of play and the stake; an exit code when that fails.
std::optional<int> Prepara(Corpo& c, UiTesto& ui, const OpzioniSpoglio& o) {
    const int importo = IndiceImporto(o.stake);
    if (importo < 0) return ErroreUso("--stake", "one of 1, 1,5, 2, 2,5, 3, 5, 10, 20, 50, 200");
    if (ApriFile(c, ui, o.sistema) != EsitoApriFile::Aperto) return Rifiuto(ui, o.sistema + ": not opened");
    ImpostaTipoGiocata(c, ui, o.play);
    ImpostaImporto(c, ui, importo);
    return std::nullopt;
}

std::string Json(const RisultatoSpoglio& r) {
    std::string s = "{\"categories\": [";
    for (size_t h = 0; h <= 10; ++h) {
        s += h ? ", " : "";
        s += "{\"points\": " + std::to_string(h) + ", \"count\": " + std::to_string(r.Vincite[h]) +
             ", \"columns\": [";
        for (size_t i = 0; i < r.colonne[h].size(); ++i)
            s += (i ? ", " : "") + std::to_string(r.colonne[h][i]);
        s += "]}";
    }
    s += "], \"max\": " + std::to_string(r.MaxPunti) + ", \"min\": " + std::to_string(r.MinPunti) +
         ", \"total\": " + std::to_string(r.TotaleVinto) + "}\n";
    return s;
}

int ComandoCheck(const OpzioniSpoglio& o, UiTesto& ui) {
    auto c = std::make_unique<Corpo>();
    if (auto rc = Prepara(*c, ui, o)) return *rc;
    // The boxes as the window holds them: twenty numbers, blanks after those given.
    CaselleSpoglio caselle;
    size_t i = 0;
    for (size_t p = 0; p <= o.draw.size();) {
        const size_t q = std::min(o.draw.find(',', p), o.draw.size());
        if (i == 20) return ErroreUso("--draw", "at most 20 numbers");
        caselle.numeri[i++] = o.draw.substr(p, q - p);
        p = q + 1;
    }
    for (; i < 20; ++i)
        caselle.numeri[i] = "__";
    for (const auto& n : caselle.numeri)
        if (n.size() > 2) return ErroreUso("--draw", "a number has at most two digits: " + n);
    caselle.oro = o.oro.value_or("__");
    caselle.doppio = o.doppio.value_or("__");
    caselle.da = o.da.value_or("1");
    caselle.a = o.a.value_or(std::to_string(c->pronostico.NumColonne));
    const EsitoValidazione e = ValidaSpoglio(*c, ui, caselle);
    if (!e.ok) return EsitoFileRifiutato;
    const RisultatoSpoglio r = SpoglioColonne(*c, e.dal, e.al);
    if (o.json) {
        std::fputs(Json(r).c_str(), stdout);
        return EsitoOk;
    }
    // As the window shows it: the categories of the kind of play, their columns, points, total.
    const int len = c->LenColonna;
    for (int h = 0; h <= 10; ++h) {
        const bool esiste = c->TipoGiocata == 1 ? Premio(PremiClassico, len, h) != 0 : h <= len;
        if (!esiste) continue;
        std::printf("%s %d: %d\n", ui.Lang("0064").c_str(), h, r.Vincite[static_cast<size_t>(h)]);
        for (int32_t col : r.colonne[static_cast<size_t>(h)])
            std::printf("  C. %d\n", col);
    }
    std::printf("Max:  %d\nMin:  %d\nTot:  %s\n", r.MaxPunti, r.MinPunti,
                TestoTotale(r.TotaleVinto, '.', ',').c_str());
    return EsitoOk;
}

// The progress of a check as the terminal's bar.
class BarraSpoglio : public AvanzamentoSpoglio {
public:
    void progress(double done, double total) override {
        ProgressInfo info;
        info.bar = total > 0 ? static_cast<int>(done * 100 / total) : 100;
        info.counter = done;
        info.total = total;
        m_barra.progress(info);
    }
    BarraSpoglio() { m_barra.started(0); }
    void chiudi() { m_barra.chiudi(); }

private:
    BarraProgresso m_barra{stderr};
};

// While it lives, Ctrl-C sets the stop flag of the check under way, the flag that the window's
// stop sets; the handler does nothing else, so it is safe at any moment.
std::atomic<AvanzamentoSpoglio*> g_spoglio{nullptr};
extern "C" void InterrompiSpoglio(int) {
    if (AvanzamentoSpoglio* a = g_spoglio.load()) a->stop.store(true);
}

class CtrlC {
public:
    explicit CtrlC(AvanzamentoSpoglio& a) {
        g_spoglio.store(&a);
        m_precedente = std::signal(SIGINT, InterrompiSpoglio);
    }
    ~CtrlC() {
        std::signal(SIGINT, m_precedente);
        g_spoglio.store(nullptr);
    }
    CtrlC(const CtrlC&) = delete;
    CtrlC& operator=(const CtrlC&) = delete;

private:
    void (*m_precedente)(int) = SIG_DFL;
};

// A stopped run: its message, and no file written.
int Fermato(BarraSpoglio& barra) {
    barra.chiudi();
    std::fprintf(stderr, "Stopped by the user: the check is not complete, no CSV file written.\n");
    return EsitoFileRifiutato;
}

// The grid's rows on stdout; false when the user stopped before the last one.
bool StampaGriglia(const GrigliaTesti& g, const AvanzamentoSpoglio& a) {
    for (int r = 0; r < g.righe; ++r) {
        if (a.stop.load()) return false;
        std::string riga;
        for (int col = 0; col < g.colonne; ++col)
            (riga += col ? "\t" : "") += g.testo(r, col);
        std::printf("%s\n", riga.c_str());
    }
    return true;
}

int ScriviCsv(const GrigliaTesti& g, const std::string& path, UiTesto& ui) {
    if (path.empty()) return EsitoOk;
    return MSHFlexGridTocsv(g, path, ui) ? EsitoOk : EsitoFileRifiutato;
}

int ComandoCheckArchive(const OpzioniSpoglio& o, UiTesto& ui) {
    BarraSpoglio barra;
    CtrlC ctrlC(barra);
    auto c = std::make_unique<Corpo>();
    if (auto rc = Prepara(*c, ui, o)) return *rc;
    if (!InitPremi(c->LenColonna)) {
        ui.messageBox(TestoNonDisponibile, TitoloNonDisponibile, BoxIcon::Critical);
        return EsitoFileRifiutato;
    }
    std::error_code ec;
    if (!std::filesystem::is_regular_file(o.archivio, ec))
        return Rifiuto(ui, o.archivio + ": no such archive file");
    const std::string cartella = std::filesystem::absolute(o.archivio, ec).parent_path().string();
    c->mArrEstrazioni = LoadArchivioDAT(o.archivio, cartella, ui);
    std::vector<std::string> date;
    if (!DateSpoglio(c->mArrEstrazioni, ui, date)) return EsitoFileRifiutato;
    for (const std::string* d : {&o.from, &o.to})
        if (std::find(date.begin(), date.end(), *d) == date.end())
            return Rifiuto(ui, *d + ": no draw of that date in " + o.archivio);
    if (DataPrecedente(o.to, o.from))
        return Rifiuto(ui, "Error -2147211504 (" + ui.Lang("0022") +
                               ") in procedure SpoglioArchivioEstrazioni of Form frmSpoglioEstrazioni");
    const Tratto t = TrovaTratto(c->mArrEstrazioni, o.from, o.concDa, o.to, o.concA);
    const RisultatoEstrazioni r = SpoglioArchivio(*c, ui, t, barra);
    if (r.fermato) return Fermato(barra);
    barra.chiudi();
    const GrigliaTesti g = GrigliaSpoglio(c->mArrEstrazioni, r, '.');
    if (!StampaGriglia(g, barra)) return Fermato(barra);
    return ScriviCsv(g, o.csv, ui);
}

int ComandoCompare(const OpzioniSpoglio& o, UiTesto& ui) {
    BarraSpoglio barra;
    CtrlC ctrlC(barra);
    std::error_code ec;
    for (const std::string* f : {&o.file1, &o.file2})
        if (!std::filesystem::is_regular_file(*f, ec)) return Rifiuto(ui, *f + ": no such file");
    const std::vector<RecordNumeri> c1 = LoadTxtToColonneArray(ui, o.file1);
    const std::vector<RecordNumeri> c2 = LoadTxtToColonneArray(ui, o.file2);
    const RisultatoVerifica v = VerificaSistema(c1, c2, barra);
    if (v.fermato) return Fermato(barra);
    barra.chiudi();
    const GrigliaTesti g = GrigliaVerifica(c2, v);
    if (!StampaGriglia(g, barra)) return Fermato(barra);
    return ScriviCsv(g, o.csv, ui);
}

void OpzioniGiocata(CLI::App* sub, OpzioniSpoglio& o) {
    sub->add_option("--play", o.play, "Kind of play: 1 Classico, 2 Numero ORO, 3 Doppio ORO")
        ->check(CLI::Range(1, 3))
        ->capture_default_str();
    sub->add_option("--stake", o.stake, "Stake of a column: 1, 1,5, 2, 2,5, 3, 5, 10, 20, 50 or 200")
        ->capture_default_str();
}

} // namespace

void RegistraComandiSpoglio(CLI::App& app, ComandiCli& comandi) {
    auto o = std::make_shared<OpzioniSpoglio>();

    auto* check =
        app.add_subcommand("check", "Check the system's columns against one draw, as \"Spoglio Sistema\"");
    check->add_option("input", o->sistema, "System file (.dvs)")->required();
    check->add_option("--draw", o->draw, "The twenty numbers of the draw, N1,...,N20")->required();
    check->add_option("--oro", o->oro, "Numero Oro");
    check->add_option("--doppio", o->doppio, "Doppio Oro");
    check->add_option("--from", o->da, "First column of the range (default 1)");
    check->add_option("--to", o->a, "Last column of the range (default the last)");
    OpzioniGiocata(check, *o);
    check->add_flag(
        "--json", o->json,
        "Print {\"categories\": [{\"points\": h, \"count\": n, \"columns\": [c, ...]} for h = 0..10], "
        "\"max\": X, \"min\": Y, \"total\": T}, total in whole euro");
    check->footer("Refusals (a number twice, a number outside 1..90, a wrong range, an Oro number not drawn) "
                  "go to stderr and end with exit code 1.");
    comandi.aggiungi(check, [o](UiTesto& ui) { return ComandoCheck(*o, ui); });

    auto* archivio = app.add_subcommand(
        "check-archive", "Check the system against a stretch of an archive, as \"Spoglio Estrazioni\"");
    archivio->add_option("input", o->sistema, "System file (.dvs)")->required();
    archivio->add_option("archive", o->archivio, "Archive file (.dat)")->required();
    archivio->add_option("--from", o->from, "First date, dd/mm/yyyy")->required();
    archivio->add_option("--to", o->to, "Last date, dd/mm/yyyy")->required();
    archivio->add_option("--conc-from", o->concDa, "First draw number within the first date")
        ->capture_default_str();
    archivio->add_option("--conc-to", o->concA, "Last draw number within the last date")
        ->capture_default_str();
    OpzioniGiocata(archivio, *o);
    archivio->add_option(
        "--csv", o->csv,
        "Also write the grid as CSV: header, totals, a row per draw, every cell followed by \";\"");
    archivio->footer(
        "Prints the grid's rows, cells separated by tabs. Draws skipped for their Oro number are "
        "reported on stderr. Ctrl-C stops the check: exit code 1, no CSV file written.");
    comandi.aggiungi(archivio, [o](UiTesto& ui) { return ComandoCheckArchive(*o, ui); });

    auto* compare =
        app.add_subcommand("compare", "Compare two text files of columns, as \"Verifica Sistemi\"");
    compare->add_option("file1", o->file1, "Text file whose lines are counted")->required();
    compare->add_option("file2", o->file2, "Text file with a row per line")->required();
    compare->add_option("--csv", o->csv, "Also write the grid as CSV: header, a row per line, totals");
    compare->footer("Prints the grid's rows, cells separated by tabs. Ctrl-C stops the comparison: exit "
                    "code 1, no CSV file written.");
    comandi.aggiungi(compare, [o](UiTesto& ui) { return ComandoCompare(*o, ui); });
}

} // namespace dv::cli
