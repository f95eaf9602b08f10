// Printing into PDF files: slips of 10,000 columns and a listing of 100,000 columns (targets:
// under 10 s each). "Direct" is the layout painted as it is emitted; "replayed" paints the same
// job from its recorded operations read back from the text of --ops, which checks that the
// recording tells the whole job. The signature of each is its page count and a checksum of the
// operations; the peak memory after each workload shows that pages are not held.
#include "platform/StampanteQt.h"
#include "print/RegistroStampa.h"
#include "print/Schedine.h"
#include "print/Tabulato.h"
#include "support/FakeUi.h"

#include <QGuiApplication>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <sys/resource.h>

namespace {

using namespace dv;

struct Continua : AvanzamentoSchedine {
    bool fermata() override { return false; }
    void scheda(int32_t, const std::string&) override {}
};

double PiccoMb() {
    rusage r{};
    getrusage(RUSAGE_SELF, &r);
    return static_cast<double>(r.ru_maxrss) / 1024.0;
}

uint64_t Checksum(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    uint64_t h = 1469598103934665603ULL;
    for (char ch; in.get(ch);)
        h = (h ^ static_cast<unsigned char>(ch)) * 1099511628211ULL;
    return h;
}

// A text between quotes, '"' doubled inside.
std::string Citazione(const std::string& line, size_t from) {
    std::string out;
    for (size_t i = from + 1; i < line.size(); ++i) {
        if (line[i] == '"') {
            if (i + 1 < line.size() && line[i + 1] == '"') {
                out += '"';
                ++i;
                continue;
            }
            break;
        }
        out += line[i];
    }
    return out;
}

// Paints the recorded operations of path on out.
void Riproduci(const std::string& path, OperazioniStampa& out) {
    std::ifstream in(path, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        std::istringstream s(line);
        std::string op;
        s >> op;
        double a = 0, b = 0, c = 0, d = 0;
        if (op == "units") {
            std::string u;
            s >> u;
            out.unita(u == "mm" ? UnitaStampa::Millimetri : UnitaStampa::Twips);
        } else if (op == "font") {
            // The name may hold blanks: size and weight are the last two words.
            const size_t w = line.rfind(' ');
            const size_t z = line.rfind(' ', w - 1);
            out.font(line.substr(5, z - 5), std::stod(line.substr(z + 1, w - z - 1)),
                     line.substr(w + 1) == "bold");
        } else if (op == "pos") {
            s >> a >> b;
            out.posizione(a, b);
        } else if (op == "text") {
            out.testo(Citazione(line, 5));
        } else if (op == "inline") {
            out.testoInLinea(Citazione(line, 7));
        } else if (op == "box") {
            s >> a >> b >> c >> d;
            out.riquadro(a, b, c, d);
        } else if (op == "picture") {
            std::string nome;
            s >> nome >> a >> b;
            out.immagine(nome, a, b);
        } else if (op == "page") {
            out.nuovaPagina();
        } else if (op == "end") {
            out.fine();
        }
    }
}

struct Esito {
    double secondi = 0;
    int pagine = 0;
};

template <typename F> Esito Diretto(const std::string& pdf, const std::string& ops, F emetti) {
    const auto t0 = std::chrono::steady_clock::now();
    auto job = LavoroStampa::pdf(pdf);
    std::ofstream file(ops, std::ios::binary);
    RegistroStampa registro(file);
    StampaDoppia doppia(job->operazioni(), registro);
    emetti(doppia);
    std::string errore;
    job->concludi(errore);
    file.close();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count(), job->pagine()};
}

Esito Riprodotto(const std::string& pdf, const std::string& ops) {
    const auto t0 = std::chrono::steady_clock::now();
    auto job = LavoroStampa::pdf(pdf);
    Riproduci(ops, job->operazioni());
    std::string errore;
    job->concludi(errore);
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count(), job->pagine()};
}

bool Riga(const char* nome, const Esito& lett, const Esito& nostro, uint64_t ops, double obiettivo) {
    std::printf("%-34s replayed %7.3f s  direct %7.3f s  ratio %5.2fx  pages %d / %d  ops %016llx  peak %.0f "
                "MB  %s\n",
                nome, lett.secondi, nostro.secondi, lett.secondi / nostro.secondi, lett.pagine, nostro.pagine,
                static_cast<unsigned long long>(ops), PiccoMb(),
                nostro.secondi < obiettivo ? "ok" : "OVER TARGET");
    return lett.pagine == nostro.pagine;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const std::filesystem::path dir = std::filesystem::temp_directory_path() / "dorvanta-bench-stampa";
    std::filesystem::create_directories(dir);
    const auto f = [&](const char* n) { return (dir / n).string(); };

    auto c = std::make_unique<Corpo>();
    c->LenColonna = 10;
    c->TitoloFile = "bench.dvs";
    for (int32_t j = 1; j <= 100'000; ++j)
        for (int p = 1; p <= 10; ++p)
            c->Colonne.set(j, p, static_cast<uint8_t>((j * 7 + p * 9) % 90 + 1));
    test::FakeUi ui;
    bool uguali = true;

    std::printf("Printing into PDF files (A4, 600 dpi)\n");
    for (int32_t schede : {1'000, 10'000}) {
        c->pronostico.NumColonne = schede;
        OpzioniSchedine o;
        o.intestazione = "RICEVITORIA";
        o.sitoWeb = "example.test";
        Continua avanti;
        const Esito d = Diretto(f("schede.pdf"), f("schede.txt"), [&](OperazioniStampa& out) {
            StampaScheda10eLottoNew(*c, SlipCalibration{}, o, {1, schede}, out, avanti, ui);
        });
        const Esito r = Riprodotto(f("schede2.pdf"), f("schede.txt"));
        const std::string nome = "slips of " + std::to_string(schede) + " columns";
        uguali = Riga(nome.c_str(), r, d, Checksum(f("schede.txt")), 10) && uguali;
    }
    for (int32_t colonne : {10'000, 100'000}) {
        c->pronostico.NumColonne = colonne;
        OpzioniTabulato o;
        o.intestazione = "RICEVITORIA";
        const Esito d = Diretto(f("tabulato.pdf"), f("tabulato.txt"),
                                [&](OperazioniStampa& out) { StampaTabulato(*c, o, out, ui); });
        const Esito r = Riprodotto(f("tabulato2.pdf"), f("tabulato.txt"));
        const std::string nome = "listing of " + std::to_string(colonne) + " columns";
        uguali = Riga(nome.c_str(), r, d, Checksum(f("tabulato.txt")), 10) && uguali;
    }
    std::filesystem::remove_all(dir);
    if (!uguali) std::printf("the replayed jobs differ from the direct ones\n");
    return uguali ? 0 : 1;
}
