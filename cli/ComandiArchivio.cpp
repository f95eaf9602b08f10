// The subcommands of the archivio area: dorvanta-cli archive convert|show|update|import-manual.
#include "archive/Aggiornamento.h"
#include "archive/Archivio.h"
#include "cli/Aree.h"
#include "cli/ReteArchivio.h"
#include "cli/UiTesto.h"
#include "core/Cartelle.h"
#include "core/Corpo.h"
#include "settings/Impostazioni.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>

namespace dv::cli {

namespace {

struct OpzioniArchivio {
    std::string in, out, file, tipo, server, dataDir;
    std::optional<int> last;
    std::optional<int> days;
    bool json = false;
};

int Errore(UiTesto& ui, const std::string& text, int rc = EsitoFileRifiutato) {
    ui.messageBox(text, "", BoxIcon::Critical);
    return rc;
}

// The text of a JSON string: quotes, backslashes and control characters escaped, the rest of the
// bytes as they stand.
void AggiungiStringaJson(std::string& out, const std::string& s) {
    out += '"';
    for (unsigned char ch : s) {
        if (ch == '"' || ch == '\\') {
            out += '\\';
            out += static_cast<char>(ch);
        } else if (ch < 0x20) {
            char b[8];
            std::snprintf(b, sizeof b, "\\u%04x", ch);
            out += b;
        } else {
            out += static_cast<char>(ch);
        }
    }
    out += '"';
}

void AggiungiJson(std::string& out, const Estrazione& e) {
    out += "{\"data\": ";
    AggiungiStringaJson(out, e.dataTesto());
    out += ", \"concorso\": " + std::to_string(e.Concorso) + ", \"numeri\": [";
    for (int i = 1; i <= 20; ++i) {
        if (i > 1) out += ", ";
        out += std::to_string(e.Numeri[static_cast<size_t>(i)]);
    }
    out +=
        "], \"oro\": " + std::to_string(e.NumeroOro) + ", \"doppio\": " + std::to_string(e.DoppioOro) + "}";
}

int Converti(const OpzioniArchivio& o, UiTesto& ui) {
    const EsitoConversione esito = ConvertArchivioTmpToDat(o.in, o.out);
    if (!esito.completata()) return Errore(ui, MessaggioConversione(esito, o.in, ui));
    std::printf("%lld draws written to %s\n", static_cast<long long>(esito.estrazioni), o.out.c_str());
    return EsitoOk;
}

int Mostra(const OpzioniArchivio& o, UiTesto& ui) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(o.file, ec)) return Errore(ui, ui.Lang("0105") + " " + o.file);
    const ArrayEstrazioni a = LoadArchivioDAT(o.file, "", ui);
    const int32_t n = ArchivioVuoto(a) ? 0 : UBound(a);
    const int32_t primo = o.last && *o.last < n ? n - *o.last + 1 : 1;
    std::string out;
    out.reserve(static_cast<size_t>(n - primo + 1) * 150 + 4);
    if (o.json) out += '[';
    for (int32_t i = primo; i <= n; ++i) {
        if (o.json) {
            out += i > primo ? ",\n " : "\n ";
            AggiungiJson(out, a[static_cast<size_t>(i)]);
        } else {
            out += RigaEstrazione(a[static_cast<size_t>(i)]);
            out += '\n';
        }
    }
    if (o.json) out += n >= primo ? "\n]\n" : "]\n";
    std::fwrite(out.data(), 1, out.size(), stdout);
    return EsitoOk;
}

// The state of the data folder: its archive paths and the address of its web server.
struct CartellaDati {
    std::unique_ptr<Corpo> corpo = std::make_unique<Corpo>();
    std::string server;
};

std::optional<CartellaDati> ApriCartella(const OpzioniArchivio& o, UiTesto& ui) {
    const std::string dir = o.dataDir.empty() ? CartellaDatiProgramma() : o.dataDir;
    if (dir.empty()) {
        Errore(ui, "No data folder: give one with --data-dir");
        return std::nullopt;
    }
    CartellaDati d;
    ImpostaAppDir(*d.corpo, dir);
    std::error_code ec;
    if (!std::filesystem::is_directory(std::filesystem::path(d.corpo->PathArchivioSerale).parent_path(),
                                       ec)) {
        Errore(ui, "The data folder could not be made: " + dir);
        return std::nullopt;
    }
    Impostazioni imp;
    Lingua lingua;
    ReadConfiguration(dir, imp, lingua);
    if (!o.server.empty()) imp.Server = o.server;
    d.server = IndirizzoServer(imp);
    return d;
}

// The outcome of an update, with the count of draws the archive holds afterwards.
int Esito(EsitoAggiornamento esito, const std::string& path, const char* nome, UiTesto& ui) {
    if (esito != EsitoAggiornamento::Aggiornato) return EsitoFileRifiutato;
    const ArrayEstrazioni a = LoadArchivioDAT(path, "", ui);
    std::printf("%s archive: %d draws in %s\n", nome, ArchivioVuoto(a) ? 0 : UBound(a), path.c_str());
    return EsitoOk;
}

int Aggiorna(const OpzioniArchivio& o, UiTesto& ui) {
    if (o.tipo == "serale" && o.days)
        return Errore(ui, "--days applies to the five-minute archive only", EsitoUso);
    std::optional<CartellaDati> d = ApriCartella(o, ui);
    if (!d) return EsitoFileRifiutato;
    const SessioneRete rete;
    const ServerArchivi server{d->server, rete.scaricatore()};
    const Corpo& c = *d->corpo;
    if (o.tipo == "serale")
        return Esito(AggiornaArchivioSerale(c, ui, server), c.PathArchivioSerale, "evening", ui);
    const auto giorni = static_cast<int16_t>(-o.days.value_or(120));
    return Esito(AggiornaArchivio5Minuti(giorni, c, ui, server), c.PathArchivio5Min, "five-minute", ui);
}

int Importa(const OpzioniArchivio& o, UiTesto& ui) {
    std::optional<CartellaDati> d = ApriCartella(o, ui);
    if (!d) return EsitoFileRifiutato;
    return Esito(ImportaArchivioManualeDa(*d->corpo, ui, o.file), d->corpo->PathArchivioManuale, "manual",
                 ui);
}

} // namespace

void RegistraComandiArchivio(CLI::App& app, ComandiCli& comandi) {
    auto o = std::make_shared<OpzioniArchivio>();
    auto* archive = app.add_subcommand("archive", "The draw archives: convert, show, update, import");
    archive->require_subcommand(1);

    auto* convert = archive->add_subcommand(
        "convert",
        "Build an archive file (34-byte records) from a text file of draws, 24 fields a line. "
        "A field that cannot be converted stops it: exit 1, the line and field named, OUT untouched");
    convert->add_option("input", o->in, "Text file of draws")->required();
    convert->add_option("-o,--output", o->out, "Archive file to write")->required();
    comandi.aggiungi(convert, [o](UiTesto& ui) { return Converti(*o, ui); });

    auto* show = archive->add_subcommand(
        "show",
        "Print the draws of an archive file, oldest first, one a line as the archive window shows them. "
        "--json prints an array of {\"data\": text, \"concorso\": N, \"numeri\": [20 numbers], "
        "\"oro\": N, \"doppio\": N}; an empty archive prints nothing, or [] with --json");
    show->add_option("file", o->file, "Archive file (.dat)")->required();
    show->add_option("--last", o->last, "Only the last N draws")->check(CLI::NonNegativeNumber);
    show->add_flag("--json", o->json, "JSON output");
    comandi.aggiungi(show, [o](UiTesto& ui) { return Mostra(*o, ui); });

    auto* update = archive->add_subcommand(
        "update",
        "Download the evening (serale) or five-minute (5min) archive from the web server and rebuild "
        "its file in the data folder's \"archivio\". A failed download exits 1 and changes nothing");
    update->add_option("kind", o->tipo, "serale or 5min")
        ->required()
        ->check(CLI::IsMember({"serale", "5min"}));
    update->add_option("--days", o->days, "Five-minute archive: how many days back to ask for (120)")
        ->check(CLI::Range(0, 32767));
    update->add_option("--server", o->server,
                       "Web server address (default: the settings' SERVER, else the build's)");
    update->add_option("--data-dir", o->dataDir, "Data folder (default: the program's)");
    comandi.aggiungi(update, [o](UiTesto& ui) { return Aggiorna(*o, ui); });

    auto* import = archive->add_subcommand(
        "import-manual",
        "Rebuild the manual archive from a text file of draws (any extension); the file stays");
    import->add_option("file", o->file, "Text file of draws")->required();
    import->add_option("--data-dir", o->dataDir, "Data folder (default: the program's)");
    comandi.aggiungi(import, [o](UiTesto& ui) { return Importa(*o, ui); });
}

} // namespace dv::cli
