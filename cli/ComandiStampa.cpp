// The subcommands of the stampa area: `print listing`, `print slips` and `print test`, to a PDF
// file, a printer, and/or the recorded operations (--ops, which needs no Qt at all).
#include "cli/Aree.h"
#include "cli/BarraProgresso.h"
#include "cli/UiTesto.h"
#include "core/Finestra.h"
#include "platform/StampanteQt.h"
#include "print/RegistroStampa.h"
#include "print/Schedine.h"
#include "print/Tabulato.h"
#include "print/TaraturaScheda.h"
#include "settings/Impostazioni.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FileSistema.h"
#include "system_files/ScrittoreSicuro.h"

#include <QGuiApplication>

#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace dv::cli {

namespace {

enum class Lavoro { Tabulato, Schede, Test };

struct OpzioniStampa {
    std::string in;
    std::string dataDir;
    std::string pdf;
    std::optional<std::string> stampante; // --printer, with or without a name
    std::string ops;
    // listing
    int copie = 1;
    bool senzaColonne = false, senzaPronostico = false, bianconero = false;
    // slips and test
    std::optional<int32_t> da, a;
    std::string estrazioni = "5min";
    std::string taratura;
    // play
    std::optional<int> gioco;
    std::string puntata;
};

std::atomic<bool> g_fermata{false};
extern "C" void FermaStampa(int) {
    g_fermata.store(true);
}

// The data folder of the desktop program on this machine.
std::string CartellaDatiPredefinita() {
#ifdef _WIN32
    const char* base = std::getenv("ProgramData");
    return base ? (std::filesystem::path(base) / "Dorvanta").string() : std::string();
#else
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return (std::filesystem::path(xdg) / "Dorvanta").string();
    const char* home = std::getenv("HOME");
    return home ? (std::filesystem::path(home) / ".local" / "share" / "Dorvanta").string() : std::string();
#endif
}

int Errore(const std::string& text, int rc = EsitoFileRifiutato) {
    std::fprintf(stderr, "%s\n", text.c_str());
    return rc;
}

// The stake's index in the table of the main window's stakes, from "1.5" or "1,5".
std::optional<int> IndicePuntata(std::string s) {
    for (char& ch : s)
        if (ch == ',') ch = '.';
    char* fine = nullptr;
    const double v = std::strtod(s.c_str(), &fine);
    if (s.empty() || *fine != '\0') return std::nullopt;
    for (size_t i = 0; i < ImportiGiocata.size(); ++i)
        if (std::lround(v * 10) == ImportiGiocata[i].decimi && std::fabs(v * 10 - std::round(v * 10)) < 1e-6)
            return static_cast<int>(i);
    return std::nullopt;
}

// "5min,lotto,immediata" as the three boxes of the kinds of draw; none for an unknown word.
std::optional<std::array<bool, 3>> TipiEstrazione(const std::string& s) {
    std::array<bool, 3> t{};
    size_t inizio = 0;
    while (inizio <= s.size()) {
        const size_t fine = std::min(s.find(',', inizio), s.size());
        const std::string w = s.substr(inizio, fine - inizio);
        if (w == "5min")
            t[0] = true;
        else if (w == "lotto")
            t[1] = true;
        else if (w == "immediata")
            t[2] = true;
        else if (!w.empty() && w != "none")
            return std::nullopt;
        inizio = fine + 1;
    }
    return t;
}

// Qt's painting needs an application object; the command line never shows a window, so it
// runs on the offscreen platform and needs no display.
std::unique_ptr<QGuiApplication> AvviaQt() {
    if (QGuiApplication::instance()) return nullptr;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char nome[] = "dorvanta-cli";
    static char* argv[] = {nome, nullptr};
    return std::make_unique<QGuiApplication>(argc, argv);
}

class AvanzamentoCli : public AvanzamentoSchedine {
public:
    AvanzamentoCli(int32_t da, int32_t a) : m_barra(stderr, '.'), m_da(da), m_a(a) {
        m_barra.started(a - da + 1);
    }
    bool fermata() override { return g_fermata.load(); }
    void scheda(int32_t n, const std::string&) override {
        ProgressInfo info;
        info.total = m_a - m_da + 1;
        info.counter = n - m_da + 1;
        info.bar = static_cast<int>(info.counter * 100 / std::max(1.0, info.total));
        m_barra.progress(info);
    }

private:
    BarraProgresso m_barra;
    int32_t m_da, m_a;
};

int Esegui(Lavoro lavoro, const OpzioniStampa& o, UiTesto& ui) {
    if (!o.pdf.empty() && o.stampante) return Errore("--pdf and --printer: choose one", EsitoUso);
    if (o.pdf.empty() && !o.stampante && o.ops.empty())
        return Errore("nothing to print to: give --pdf, --printer or --ops", EsitoUso);
    if (o.stampante && *o.stampante == NomeStampantePdf)
        return Errore("--printer PDF: give --pdf OUT.pdf to print into a PDF file", EsitoUso);

    const std::string dataDir = o.dataDir.empty() ? CartellaDatiPredefinita() : o.dataDir;
    Impostazioni imp;
    Lingua lingua;
    ReadConfiguration(dataDir, imp, lingua);

    auto c = std::make_unique<Corpo>();
    c->AppDir = dataDir;
    if (lavoro != Lavoro::Test && ApriFile(*c, ui, o.in) != EsitoApriFile::Aperto)
        return Errore(o.in + ": not opened");
    if (o.gioco) ImpostaTipoGiocata(*c, ui, *o.gioco);
    if (!o.puntata.empty()) {
        const auto i = IndicePuntata(o.puntata);
        if (!i)
            return Errore("--stake " + o.puntata + ": not one of 1, 1.5, 2, 2.5, 3, 5, 10, ...", EsitoUso);
        ImpostaImporto(*c, ui, *i);
    }

    OpzioniTabulato tab;
    tab.colonne = !o.senzaColonne;
    tab.pronostico = !o.senzaPronostico;
    tab.colori = !o.bianconero;
    tab.copie = o.copie;
    tab.intestazione = imp.Intestazione;
    tab.sitoWeb = HostWeb(IndirizzoPaginaWeb());
    OpzioniSchedine sch;
    sch.intestazione = imp.Intestazione;
    sch.sitoWeb = tab.sitoWeb;
    IntervalloSchedine intervallo;
    if (lavoro == Lavoro::Tabulato && !ControllaTabulato(tab, ui)) return EsitoFileRifiutato;
    if (lavoro == Lavoro::Schede) {
        const auto tipi = TipiEstrazione(o.estrazioni);
        if (!tipi) return Errore("--draws " + o.estrazioni + ": use 5min, lotto, immediata", EsitoUso);
        sch.tipoEstrazione = *tipi;
        const auto r = ControllaIntervallo(*c, std::to_string(o.da.value_or(1)),
                                           std::to_string(o.a.value_or(c->pronostico.NumColonne)), ui);
        if (!r) return EsitoFileRifiutato;
        intervallo = *r;
    }

    // The printer: named, else the settings' (listing) or the calibration's (slips).
    std::string nomeStampante = o.stampante.value_or("");
    SlipCalibration cal;
    if (lavoro != Lavoro::Tabulato) {
        const std::string nomeTaratura = !o.pdf.empty() ? std::string(NomeStampantePdf) : nomeStampante;
        cal = LoadCalibration(!o.taratura.empty() ? o.taratura : PercorsoTaratura(dataDir, nomeTaratura));
        if (nomeStampante.empty()) nomeStampante = cal.STAMPANTE;
    } else if (nomeStampante.empty()) {
        nomeStampante = imp.StampanteTabulato;
    }

    std::unique_ptr<QGuiApplication> app; // outlives the job
    std::unique_ptr<LavoroStampa> job;
    if (!o.pdf.empty() || o.stampante) {
        app = AvviaQt();
        job = o.pdf.empty() ? LavoroStampa::stampante(nomeStampante, cal.qualitaNormale())
                            : LavoroStampa::pdf(o.pdf);
        if (!job) return Errore("no printer is installed on this machine");
    }
    std::optional<ScrittoreSicuro> opsFile;
    std::optional<RegistroStampa> registro;
    if (!o.ops.empty()) {
        try {
            opsFile.emplace(o.ops, std::ios::binary);
        } catch (const ErroreEsecuzione& e) {
            return Errore("cannot write " + o.ops + " (" + e.descrizione() + ")");
        }
        registro.emplace(opsFile->stream());
    }
    std::optional<StampaDoppia> doppia;
    OperazioniStampa* out = nullptr;
    if (job && registro)
        out = &doppia.emplace(job->operazioni(), *registro);
    else if (job)
        out = &job->operazioni();
    else
        out = &*registro;

    bool interrotta = false;
    switch (lavoro) {
    case Lavoro::Tabulato:
        StampaTabulato(*c, tab, *out, ui);
        break;
    case Lavoro::Schede: {
        AvanzamentoCli avanzamento(intervallo.da, std::min(intervallo.a, c->pronostico.NumColonne));
        g_fermata = false;
        auto precedente = std::signal(SIGINT, FermaStampa);
        interrotta = StampaScheda10eLottoNew(*c, cal, sch, intervallo, *out, avanzamento, ui) ==
                     EsitoSchedine::Interrotta;
        std::signal(SIGINT, precedente);
        break;
    }
    case Lavoro::Test:
        StampaTestTaratura(*c, cal, sch, *out);
        break;
    }

    int rc = EsitoOk;
    if (registro) {
        try {
            opsFile->conferma();
        } catch (const ErroreEsecuzione& e) {
            rc = Errore("cannot write " + o.ops + " (" + e.descrizione() + ")");
        }
    }
    if (job) {
        std::string errore;
        if (!job->concludi(errore)) return Errore(errore);
        if (!o.pdf.empty())
            std::printf("%d pages written to %s\n", job->pagine(), o.pdf.c_str());
        else
            std::printf("%d pages sent to %s\n", job->pagine(), nomeStampante.c_str());
    }
    if (interrotta) std::fprintf(stderr, "stopped: the slips printed so far are kept\n");
    return rc;
}

void Destinazioni(CLI::App* sub, OpzioniStampa& o) {
    sub->add_option("--data-dir", o.dataDir, "Data folder whose settings give the header and the printer");
    sub->add_option("--pdf", o.pdf, "Print into this PDF file");
    sub->add_option("--printer", o.stampante,
                    "Print on this printer (device name); without a name, the printer of the settings")
        ->expected(0, 1)
        ->default_str("");
    sub->add_option("--ops", o.ops,
                    "Write the print operations, one a line: units, font NAME SIZE bold|regular, pos X Y, "
                    "text \"...\", inline \"...\", box X1 Y1 X2 Y2, picture NAME X Y, page, end");
}

void Gioco(CLI::App* sub, OpzioniStampa& o) {
    sub->add_option("--play", o.gioco, "Kind of play: 1 Classico, 2 Numero ORO, 3 Doppio ORO")
        ->check(CLI::Range(1, 3));
    sub->add_option("--stake", o.puntata, "Stake of a column in euro: 1, 1.5, 2, 2.5, 3, 5, 10, ...");
}

} // namespace

void RegistraComandiStampa(CLI::App& app, ComandiCli& comandi) {
    auto o = std::make_shared<OpzioniStampa>();
    auto* print = app.add_subcommand("print", "Print a listing, play slips or the calibration test page");
    print->require_subcommand(1);

    auto* listing = print->add_subcommand("listing", "The listing of a system: heading, forecast, columns");
    listing->add_option("input", o->in, "System file (.dvs)")->required();
    listing->add_option("--copies", o->copie, "Copies, 1 to 20")->check(CLI::Range(1, 20));
    listing->add_flag("--no-columns", o->senzaColonne, "Leave out the columns");
    listing->add_flag("--no-forecast", o->senzaPronostico, "Leave out the forecast and the conditions");
    listing->add_flag("--bw", o->bianconero, "Black-and-white pictures");
    Gioco(listing, *o);
    Destinazioni(listing, *o);

    auto* slips = print->add_subcommand("slips", "Marks on 10eLotto play slips, one slip a column");
    slips->add_option("input", o->in, "System file (.dvs)")->required();
    slips->add_option("--from", o->da, "First column (default 1)");
    slips->add_option("--to", o->a, "Last column (default the last)");
    slips->add_option("--draws", o->estrazioni, "Kinds of draw, e.g. 5min,lotto,immediata")
        ->capture_default_str();
    slips->add_option("--calibration", o->taratura,
                      "Calibration file (.prn); default the printer's in the data folder's printer/");
    Gioco(slips, *o);
    Destinazioni(slips, *o);

    auto* test = print->add_subcommand("test", "The calibration test page: every box of the slip marked");
    test->add_option("--calibration", o->taratura, "Calibration file (.prn)");
    Destinazioni(test, *o);

    comandi.aggiungi(listing, [o](UiTesto& ui) { return Esegui(Lavoro::Tabulato, *o, ui); });
    comandi.aggiungi(slips, [o](UiTesto& ui) { return Esegui(Lavoro::Schede, *o, ui); });
    comandi.aggiungi(test, [o](UiTesto& ui) { return Esegui(Lavoro::Test, *o, ui); });
}

} // namespace dv::cli
