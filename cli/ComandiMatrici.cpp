// The subcommands of the matrici area: `matrix seal|verify|list|show|adapt|import-txt|cover`.
#include "cli/Aree.h"
#include "cli/BarraProgresso.h"
#include "cli/UiTesto.h"
#include "core/Corpo.h"
#include "core/Sistema.h"
#include "matrix/Adatta.h"
#include "matrix/Catalogo.h"
#include "matrix/Copertura.h"
#include "matrix/Garanzia.h"
#include "matrix/ImportaTesto.h"
#include "settings/Ansi.h"
#include "settings/ScritturaSicura.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FileSistema.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace dv::cli {

namespace {

namespace fs = std::filesystem;

constexpr size_t BuchiMostrati = 10;

// The data folder the desktop program uses when none is given.
std::string CartellaDatiPredefinita() {
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return (fs::path(xdg) / "Dorvanta").string();
    if (const char* home = std::getenv("HOME"); home && *home)
        return (fs::path(home) / ".local" / "share" / "Dorvanta").string();
    return "Dorvanta";
}

std::string Json(const std::string& ansi) {
    std::string out = "\"";
    for (char ch : AnsiToUtf8(TrimCampo(ansi))) {
        const auto c = static_cast<unsigned char>(ch);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += ch;
        } else if (c < 0x20) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\u%04x", c);
            out += buf;
        } else {
            out += ch;
        }
    }
    return out + "\"";
}

const char* Booleano(int16_t v) {
    return v ? "true" : "false";
}

bool FileSistema(const std::string& path) {
    std::string ext = fs::path(path).extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ext == ".dvs";
}

// "N,N,..." as numbers 1..90; false on anything else.
bool ListaNumeri(const std::string& text, std::vector<int>& out, std::string& errore) {
    out.clear();
    size_t pos = 0;
    while (pos <= text.size()) {
        size_t virgola = text.find(',', pos);
        if (virgola == std::string::npos) virgola = text.size();
        const std::string item = text.substr(pos, virgola - pos);
        if (item.empty() || item.size() > 2 || !std::all_of(item.begin(), item.end(), ::isdigit)) {
            errore = "not a number: \"" + item + "\"";
            return false;
        }
        const int n = std::stoi(item);
        if (n < 1 || n > 90) {
            errore = "out of 1..90: " + item;
            return false;
        }
        out.push_back(n);
        pos = virgola + 1;
    }
    return true;
}

// ---- seal ------------------------------------------------------------------------------------

struct OpzioniSeal {
    std::string testo, out;
    int t = 0, m = 0, f = 0;
    std::string autore, descrizione, copertura;
    std::string dal, al;
};

int ComandoSeal(const OpzioniSeal& o, UiTesto& ui) {
    const double oggi = OggiSeriale();
    double dal = oggi;
    double al =
        SerialeDaData(std::stoi(DataYYYYMMDD(oggi).substr(0, 4)) + 10,
                      std::stoi(DataYYYYMMDD(oggi).substr(4, 2)), std::stoi(DataYYYYMMDD(oggi).substr(6, 2)));
    if ((!o.dal.empty() && !SerialeDaYYYYMMDD(o.dal, dal)) ||
        (!o.al.empty() && !SerialeDaYYYYMMDD(o.al, al))) {
        std::fprintf(stderr, "Dates are YYYYMMDD.\n");
        return EsitoUso;
    }
    MATRIX_STRUCTURE m = ImportMatrixText(o.testo, ui, oggi);
    if (m.MATRIX_READY != Vero) return EsitoFileRifiutato;
    if (m.COLUMNS_OF_MATRIX_C == 0) {
        std::fprintf(stderr, "%s holds no column.\n", o.testo.c_str());
        return EsitoFileRifiutato;
    }
    m.GARANTY_T = static_cast<uint8_t>(o.t);
    m.PICK_UP_NUMBERS_M = static_cast<uint8_t>(o.m);
    m.FIXED_NUMBERS_OF_MATRIX_F = static_cast<uint8_t>(o.f);
    m.PERCENTAGE_COVER = Utf8ToAnsi(o.copertura);
    m.AUTHOR = Utf8ToAnsi(o.autore);
    m.DESCRIPTION = Utf8ToAnsi(o.descrizione);
    m.VALID_FROM = dal;
    m.VALID_TO = al;
    m.MATRIX_SIGNATURE = FirmaMatrice;
    try {
        ScriviMatrice(o.out, m);
    } catch (const ErroreEsecuzione& e) {
        std::fprintf(stderr, "%s: %s\n", o.out.c_str(), e.descrizione().c_str());
        return EsitoFileRifiutato;
    }
    std::printf("%s: V=%d K=%d C=%d T=%d M=%d F=%d\n", o.out.c_str(), m.NUMBERS_OF_MATRIX_V,
                m.LENGTH_OF_COLUMN_K, m.COLUMNS_OF_MATRIX_C, o.t, o.m, o.f);
    return EsitoOk;
}

// ---- verify ----------------------------------------------------------------------------------

struct OpzioniVerify {
    std::string file;
    int m = 0, t = 0;
    bool json = false;
};

int ComandoVerify(const OpzioniVerify& o, UiTesto& ui) {
    int v = 0;
    std::vector<engine::Mask> colonne;
    // A system's holes are shown as its numbers: index i is the forecast's i-th smallest number.
    std::vector<int> numero(91);
    for (int i = 0; i <= 90; ++i)
        numero[static_cast<size_t>(i)] = i;
    if (FileSistema(o.file)) {
        auto c = std::make_unique<Corpo>();
        if (ApriFile(*c, ui, o.file) != EsitoApriFile::Aperto) return EsitoFileRifiutato;
        v = c->pronostico.Quanti;
        colonne = ColonneSistema(*c);
        std::vector<int> numeri(c->pronostico.Numeri.begin(), c->pronostico.Numeri.begin() + v);
        std::sort(numeri.begin(), numeri.end());
        for (int i = 0; i < v; ++i)
            numero[static_cast<size_t>(i + 1)] = numeri[static_cast<size_t>(i)];
    } else {
        try {
            const MATRIX_STRUCTURE m = ReadMatrix(o.file);
            if (!CheckMatrixCrc(o.file))
                std::fprintf(stderr, "warning: the seal of %s does not match.\n", o.file.c_str());
            v = m.NUMBERS_OF_MATRIX_V;
            colonne = ColonneMatrice(m);
        } catch (const ErroreEsecuzione& e) {
            std::fprintf(stderr, "%s: %s\n", o.file.c_str(), e.descrizione().c_str());
            return EsitoFileRifiutato;
        }
    }
    if (o.m > v) {
        std::fprintf(stderr, "--drawn %d is more than the %d numbers.\n", o.m, v);
        return EsitoUso;
    }
    if (NumeroSottoinsiemi(v, o.m) > MaxSottoinsiemiGaranzia) {
        std::fprintf(stderr, "Too many subsets of %d of %d to check.\n", o.m, v);
        return EsitoFileRifiutato;
    }
    BarraProgresso barra(stderr);
    const double totale = static_cast<double>(NumeroSottoinsiemi(v, o.m));
    barra.started(totale);
    const EsitoGaranzia e = VerificaGaranzia(v, o.m, o.t, colonne, BuchiMostrati, [&](double quota) {
        ProgressInfo info;
        info.bar = static_cast<int>(quota * 100);
        info.counter = quota * totale;
        info.total = totale;
        barra.progress(info);
        return true;
    });
    barra.chiudi();
    if (o.json) {
        std::printf("{\"subsets\": %llu, \"covered\": %llu, \"holes\": %llu, \"first_holes\": [",
                    static_cast<unsigned long long>(e.subsets), static_cast<unsigned long long>(e.covered),
                    static_cast<unsigned long long>(e.subsets - e.covered));
        for (size_t i = 0; i < e.firstHoles.size(); ++i) {
            std::printf(i ? ", [" : "[");
            for (size_t j = 0; j < e.firstHoles[i].size(); ++j)
                std::printf(j ? ", %d" : "%d", numero[e.firstHoles[i][j]]);
            std::printf("]");
        }
        std::printf("]}\n");
        return EsitoOk;
    }
    const double quota =
        e.subsets ? 100.0 * static_cast<double>(e.covered) / static_cast<double>(e.subsets) : 0;
    std::printf(
        "%d numbers, %zu columns: %llu subsets of %d, %llu covered with at least %d (%.4f%%), %llu holes\n",
        v, colonne.size(), static_cast<unsigned long long>(e.subsets), o.m,
        static_cast<unsigned long long>(e.covered), o.t, quota,
        static_cast<unsigned long long>(e.subsets - e.covered));
    for (const auto& buco : e.firstHoles) {
        std::printf("  hole:");
        for (uint8_t i : buco)
            std::printf(" %d", numero[i]);
        std::printf("\n");
    }
    return EsitoOk;
}

// ---- list and show ---------------------------------------------------------------------------

struct OpzioniList {
    std::string dataDir;
    int numeri = 0, lunghezza = 10;
};

int ComandoList(const OpzioniList& o) {
    const std::string dir = o.dataDir.empty() ? CartellaDatiPredefinita() : o.dataDir;
    for (const auto& e :
         BuildMatrixCatalog(dir, static_cast<uint8_t>(o.numeri), o.lunghezza, OggiSeriale())) {
        if (e.FILE_NAME.empty()) continue;
        std::printf("%s  %s%s%s%s\n", AnsiToUtf8(RigaCatalogo(e)).c_str(), e.FILE_NAME.c_str(),
                    e.SIGNATURE_OK ? "" : "  [signature]", e.CRC_OK ? "" : "  [damaged]",
                    e.EXPIRED ? "  [expired]" : "");
    }
    return EsitoOk;
}

int ComandoShow(const std::string& file, bool json) {
    std::error_code ec;
    if (!fs::is_regular_file(file, ec)) {
        std::fprintf(stderr, "%s does not exist.\n", file.c_str());
        return EsitoFileRifiutato;
    }
    const fs::path p = fs::absolute(file, ec);
    const MATRIX_CATALOG_ENTRY e =
        VoceCatalogo(p.parent_path().string(), p.filename().string(), OggiSeriale());
    if (json) {
        std::printf(
            "{\"v\": %d, \"k\": %d, \"t\": %d, \"m\": %d, \"f\": %d, \"c\": %d, \"cover\": %s, \"author\": "
            "%s, "
            "\"description\": %s, \"valid_from\": \"%s\", \"valid_to\": \"%s\", \"signature_ok\": %s, "
            "\"crc_ok\": %s, \"expired\": %s, \"started\": %s}\n",
            e.NUMBERS_OF_MATRIX_V, e.LENGTH_OF_COLUMN_K, e.GARANTY_T, e.PICK_UP_NUMBERS_M,
            e.FIXED_NUMBERS_OF_MATRIX_F, e.COLUMNS_OF_MATRIX_C, Json(e.PERCENTAGE_COVER).c_str(),
            Json(e.AUTHOR).c_str(), Json(e.DESCRIPTION).c_str(), DataGGMMAAAA(e.VALID_FROM).c_str(),
            DataGGMMAAAA(e.VALID_TO).c_str(), Booleano(e.SIGNATURE_OK), Booleano(e.CRC_OK),
            Booleano(e.EXPIRED), Booleano(e.STARTED));
        return EsitoOk;
    }
    std::printf("Numbers (V)      %d\nColumn length (K) %d\nGuarantee (T)    %d\nDrawn (M)        %d\n"
                "Fixed (F)        %d\nColumns (C)      %d\nCover            %s\nAuthor           %s\n"
                "Description      %s\nValid from       %s\nValid to         %s\nSIGNATURE_OK     %s\n"
                "CRC_OK           %s\nEXPIRED          %s\nSTARTED          %s\n",
                e.NUMBERS_OF_MATRIX_V, e.LENGTH_OF_COLUMN_K, e.GARANTY_T, e.PICK_UP_NUMBERS_M,
                e.FIXED_NUMBERS_OF_MATRIX_F, e.COLUMNS_OF_MATRIX_C,
                AnsiToUtf8(TrimCampo(e.PERCENTAGE_COVER)).c_str(), AnsiToUtf8(TrimCampo(e.AUTHOR)).c_str(),
                AnsiToUtf8(TrimCampo(e.DESCRIPTION)).c_str(), DataGGMMAAAA(e.VALID_FROM).c_str(),
                DataGGMMAAAA(e.VALID_TO).c_str(), Booleano(e.SIGNATURE_OK), Booleano(e.CRC_OK),
                Booleano(e.EXPIRED), Booleano(e.STARTED));
    return EsitoOk;
}

// ---- adapt -----------------------------------------------------------------------------------

struct OpzioniAdapt {
    std::string matrice, in, out, ordine, fisse;
};

int ComandoAdapt(const OpzioniAdapt& o, UiTesto& ui) {
    auto c = std::make_unique<Corpo>();
    if (ApriFile(*c, ui, o.in) != EsitoApriFile::Aperto) return EsitoFileRifiutato;
    Pronostico& p = c->pronostico;
    std::error_code ec;
    const fs::path mp = fs::absolute(o.matrice, ec);
    if (!fs::is_regular_file(mp, ec)) {
        std::fprintf(stderr, "%s does not exist.\n", o.matrice.c_str());
        return EsitoFileRifiutato;
    }
    // The window lists only matrices of the forecast's size and column length, and adapts only
    // sound, current ones.
    const MATRIX_CATALOG_ENTRY e =
        VoceCatalogo(mp.parent_path().string(), mp.filename().string(), OggiSeriale());
    if (e.NUMBERS_OF_MATRIX_V != p.Quanti || e.LENGTH_OF_COLUMN_K != c->LenColonna) {
        std::fprintf(stderr,
                     "The matrix develops %d numbers in columns of %d; the forecast has %d numbers in "
                     "columns of %d.\n",
                     e.NUMBERS_OF_MATRIX_V, e.LENGTH_OF_COLUMN_K, p.Quanti, c->LenColonna);
        return EsitoFileRifiutato;
    }
    if (!e.SIGNATURE_OK || !e.CRC_OK || e.EXPIRED || !e.STARTED) {
        std::fprintf(stderr, "The matrix is %s.\n",
                     !e.SIGNATURE_OK ? "of an unknown version"
                     : !e.CRC_OK     ? "damaged (its seal does not match)"
                     : e.EXPIRED     ? "expired"
                                     : "not valid yet");
        return EsitoFileRifiutato;
    }
    std::string errore;
    if (!o.ordine.empty()) {
        std::vector<int> ordine;
        std::vector<int> a(p.Numeri.begin(), p.Numeri.begin() + p.Quanti);
        if (!ListaNumeri(o.ordine, ordine, errore)) {
            std::fprintf(stderr, "--order: %s\n", errore.c_str());
            return EsitoUso;
        }
        std::vector<int> b = ordine;
        std::sort(a.begin(), a.end());
        std::sort(b.begin(), b.end());
        if (a != b) {
            std::fprintf(stderr, "--order must name each number of the forecast once.\n");
            return EsitoUso;
        }
        for (size_t i = 0; i < ordine.size(); ++i)
            p.Numeri[i] = static_cast<uint8_t>(ordine[i]);
    }
    std::vector<int> fisse;
    if (!o.fisse.empty() && !ListaNumeri(o.fisse, fisse, errore)) {
        std::fprintf(stderr, "--fixed: %s\n", errore.c_str());
        return EsitoUso;
    }
    for (int n : fisse)
        if (std::find(p.Numeri.begin(), p.Numeri.begin() + p.Quanti, n) == p.Numeri.begin() + p.Quanti) {
            std::fprintf(stderr, "--fixed: %d is not a number of the forecast.\n", n);
            return EsitoUso;
        }
    if (!fisse.empty() && static_cast<int>(fisse.size()) != e.FIXED_NUMBERS_OF_MATRIX_F) {
        std::fprintf(stderr, "--fixed: the matrix takes %d fixed numbers.\n", e.FIXED_NUMBERS_OF_MATRIX_F);
        return EsitoUso;
    }
    // Each prompt takes the next fixed number given, or what the window proposes.
    size_t prossimo = 0;
    const ChiediNumero chiedi = [&](const std::string&,
                                    const std::string& proposta) -> std::optional<std::string> {
        if (prossimo < fisse.size()) return std::to_string(fisse[prossimo++]);
        return proposta;
    };
    FisseMatrice f(c->LenColonna);
    try {
        AdattaMatriceCatalogo(*c, ui, mp.string(), f, chiedi);
    } catch (const ErroreEsecuzione& err) {
        std::fprintf(stderr, "Error %d (%s)\n", err.numero(), err.descrizione().c_str());
        return EsitoFileRifiutato;
    }
    if (!SalvaFile(*c, ui, o.out)) return EsitoFileRifiutato;
    std::printf("%s: %d columns, %s\n", o.out.c_str(), p.NumColonne, p.Descrizione.c_str());
    return EsitoOk;
}

// ---- import-txt and cover --------------------------------------------------------------------

int ComandoImportTxt(const std::string& file, UiTesto& ui) {
    const MATRIX_STRUCTURE m = ImportMatrixText(file, ui, OggiSeriale());
    if (m.MATRIX_READY != Vero) return EsitoFileRifiutato;
    std::printf("V=%d K=%d C=%d\n", m.NUMBERS_OF_MATRIX_V, m.LENGTH_OF_COLUMN_K, m.COLUMNS_OF_MATRIX_C);
    return EsitoOk;
}

struct OpzioniCover {
    int v = 0, k = 0, t = 0, m = 0;
    uint32_t seed = 1;
    int candidati = 24;
    std::string out;
};

int ComandoCover(const OpzioniCover& o) {
    const auto colonne = CoperturaGreedy(o.v, o.k, o.t, o.m, o.seed, o.candidati);
    if (colonne.empty()) {
        std::fprintf(
            stderr,
            "No covering for V=%d K=%d T=%d M=%d (need T <= K <= V, T <= M <= V, few enough subsets).\n", o.v,
            o.k, o.t, o.m);
        return EsitoFileRifiutato;
    }
    std::string testo;
    for (const auto& col : colonne) {
        for (size_t i = 0; i < col.size(); ++i)
            testo += (i ? " " : "") + std::to_string(col[i]);
        testo += "\n";
    }
    if (const int e = ScriviFileSicuro(o.out, testo); e != 0) {
        std::fprintf(stderr, "%s could not be written: %s.\n", o.out.c_str(), CausaErrore(e).inglese);
        return EsitoFileRifiutato;
    }
    std::printf("%s: %zu columns\n", o.out.c_str(), colonne.size());
    return EsitoOk;
}

} // namespace

void RegistraComandiMatrici(CLI::App& app, ComandiCli& comandi) {
    auto* matrix =
        app.add_subcommand("matrix", "Reduction matrices: seal, verify, list, show, adapt, import");
    matrix->require_subcommand(1);

    auto so = std::make_shared<OpzioniSeal>();
    auto* seal = matrix->add_subcommand("seal", "Seal a text matrix into a matrix file (.mqvn)");
    seal->footer(
        "The text has one column a line, indices 1..V separated by blanks. The file gets the signature "
        "\"matriceqvnv0001\", the body by position and the CRC-32 seal. --from and --to default to today "
        "and ten years on.");
    seal->add_option("text", so->testo, "Text matrix")->required();
    seal->add_option("-o,--out", so->out, "Matrix file to write")->required();
    seal->add_option("--t", so->t, "Guarantee T")->required()->check(CLI::Range(0, 90));
    seal->add_option("--m", so->m, "Numbers drawn M for the guarantee")->required()->check(CLI::Range(0, 90));
    seal->add_option("--f", so->f, "Fixed numbers F")->check(CLI::Range(0, 90))->capture_default_str();
    seal->add_option("--author", so->autore, "Author (30 characters)");
    seal->add_option("--desc", so->descrizione, "Description (60 characters)");
    seal->add_option("--from", so->dal, "First day of validity, YYYYMMDD");
    seal->add_option("--to", so->al, "Last day of validity, YYYYMMDD");
    seal->add_option("--cover", so->copertura, "Percentage cover as shown (10 characters)");
    comandi.aggiungi(seal, [so](UiTesto& ui) { return ComandoSeal(*so, ui); });

    auto vo = std::make_shared<OpzioniVerify>();
    auto* verify = matrix->add_subcommand("verify", "Check the guarantee of a matrix or of a system exactly");
    verify->footer(
        "For every M-subset of the V indices (of the forecast's numbers for a .dvs system): whether "
        "some column holds at least T of it. --json prints {\"subsets\": N, \"covered\": n, \"holes\": "
        "N - n, \"first_holes\": [[i, ...], ...]} with at most ten holes, in lexicographic order, as the "
        "forecast's numbers for a system.");
    verify->add_option("file", vo->file, "Matrix file (.mqvn) or system file (.dvs)")->required();
    verify->add_option("--drawn", vo->m, "M, the numbers drawn among the V")
        ->required()
        ->check(CLI::Range(0, 90));
    verify->add_option("--hits", vo->t, "T, the numbers a column must hold")
        ->required()
        ->check(CLI::Range(0, 90));
    verify->add_flag("--json", vo->json, "Print the result as JSON");
    comandi.aggiungi(verify, [vo](UiTesto& ui) { return ComandoVerify(*vo, ui); });

    auto lo = std::make_shared<OpzioniList>();
    auto* list =
        matrix->add_subcommand("list", "The catalogue of the data folder's matrices, as the window lists it");
    list->footer("One row a matrix: V | K | T | M | F | C | cover, then the file name and its faults. With "
                 "--numbers only the matrices of that many numbers and of --length, after the custom row.");
    list->add_option("--data-dir", lo->dataDir, "Data folder (default: the program's)");
    list->add_option("--numbers", lo->numeri, "The forecast's count")->check(CLI::Range(0, 90));
    list->add_option("--length", lo->lunghezza, "Column length with --numbers")
        ->check(CLI::Range(1, 25))
        ->capture_default_str();
    comandi.aggiungi(list, [lo](UiTesto&) { return ComandoList(*lo); });

    auto show = std::make_shared<std::pair<std::string, bool>>();
    auto* showCmd = matrix->add_subcommand("show", "The header of a matrix file and its checks");
    showCmd->footer(
        "--json prints {\"v\", \"k\", \"t\", \"m\", \"f\", \"c\", \"cover\", \"author\", \"description\", "
        "\"valid_from\", \"valid_to\" (dd/mm/yyyy), \"signature_ok\", \"crc_ok\", \"expired\", "
        "\"started\"}.");
    showCmd->add_option("file", show->first, "Matrix file (.mqvn)")->required();
    showCmd->add_flag("--json", show->second, "Print the header as JSON");
    comandi.aggiungi(showCmd, [show](UiTesto&) { return ComandoShow(show->first, show->second); });

    auto ao = std::make_shared<OpzioniAdapt>();
    auto* adapt = matrix->add_subcommand("adapt", "Adapt a matrix to the forecast of a system file");
    adapt->footer(
        "Index i of the matrix becomes the i-th number of the forecast in the order of --order (the "
        "file's order without it). --fixed gives the fixed numbers the matrix asks for (without it, the "
        "first of the order). The system gets the description, fixed numbers and reduction of the "
        "matrix. A matrix of another size or column length, damaged, expired or not yet valid is "
        "refused with exit 1 and nothing written.");
    adapt->add_option("matrix", ao->matrice, "Matrix file (.mqvn)")->required();
    adapt->add_option("in", ao->in, "System file with the forecast (.dvs)")->required();
    adapt->add_option("-o,--out", ao->out, "System file to write")->required();
    adapt->add_option("--order", ao->ordine, "The forecast's numbers in the order to use, N,N,...");
    adapt->add_option("--fixed", ao->fisse, "The fixed numbers, N,N,...");
    comandi.aggiungi(adapt, [ao](UiTesto& ui) { return ComandoAdapt(*ao, ui); });

    auto imp = std::make_shared<std::string>();
    auto* importTxt = matrix->add_subcommand("import-txt", "Read a text matrix and print V, K and C");
    importTxt->add_option("text", *imp, "Text matrix")->required();
    comandi.aggiungi(importTxt, [imp](UiTesto& ui) { return ComandoImportTxt(*imp, ui); });

    auto co = std::make_shared<OpzioniCover>();
    auto* cover = matrix->add_subcommand("cover", "Compute a covering text matrix greedily");
    cover->footer(
        "Columns of K indices of 1..V are added until every M-subset of 1..V has a column holding at "
        "least T of it. The same seed gives the same matrix.");
    cover->add_option("--v", co->v, "V")->required()->check(CLI::Range(1, 90));
    cover->add_option("--k", co->k, "K")->required()->check(CLI::Range(1, 31));
    cover->add_option("--t", co->t, "T")->required()->check(CLI::Range(1, 31));
    cover->add_option("--m", co->m, "M")->required()->check(CLI::Range(1, 31));
    cover->add_option("--seed", co->seed, "Random seed")->capture_default_str();
    cover->add_option("--candidates", co->candidati, "Candidates tried per column")
        ->check(CLI::Range(1, 10000))
        ->capture_default_str();
    cover->add_option("-o,--out", co->out, "Text matrix to write")->required();
    comandi.aggiungi(cover, [co](UiTesto&) { return ComandoCover(*co); });
}

} // namespace dv::cli
