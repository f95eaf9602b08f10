#include "filters/ImportFiltri.h"

#include "archive/Archivio.h"
#include "core/cCombinazioni.h"
#include "settings/Ansi.h"
#include "settings/LettoreTesto.h"
#include "system_files/ColonneTesto.h"
#include "system_files/ErroreEsecuzione.h"


namespace dv {

namespace {

// "dd/mm/yyyy" as yyyymmdd, for comparing two dates; 0 when the text is no date.
int32_t ChiaveData(const std::string& data) {
    if (!IsDate(data)) return 0;
    return std::stoi(data.substr(6, 4)) * 10000 + std::stoi(data.substr(3, 2)) * 100 +
           std::stoi(data.substr(0, 2));
}

bool DataUguale(const Estrazione& e, const std::string& data) {
    return e.dataTesto() == data;
}

// From index i, which holds data: onward while the date stays and the draw number is below conc;
// when the date or the archive ends first, back to the last draw of that date.
int32_t AvanzaFinoAConcorso(const ArrayEstrazioni& a, int32_t i, const std::string& data, int32_t conc) {
    const int32_t ub = UBound(a);
    while (i <= ub && DataUguale(a[static_cast<size_t>(i)], data) &&
           a[static_cast<size_t>(i)].Concorso < conc)
        ++i;
    if (i > ub || !DataUguale(a[static_cast<size_t>(i)], data)) --i;
    return i;
}

constexpr const char* ChiusuraArchivio = ") in procedure loadArchiveToFilters of Modulo corpo";
constexpr const char* ChiusuraFile = ") in procedure loadFileToFilters of Modulo corpo";
// A line of a filter column holds at most 90 numbers; anything far longer is damage.
constexpr size_t MaxRigaFiltro = 4096;

void AvvisoLimite(Ui& ui) {
    ui.messageBox(TestoLimiteFiltri(), "Warning", BoxIcon::Exclamation);
}

} // namespace

ColonnaFiltro ColonnaFiltroDaNumeri(const uint8_t* numeri, int count, int32_t mask) {
    ColonnaFiltro f;
    for (int i = 0; i < count; ++i)
        if (numeri[i] >= 1 && numeri[i] <= 90) f.Numeri[numeri[i]] = 1;
    f.Presenze = mask;
    f.Stato = Vero;
    return f;
}

int32_t MascheraPresenze(const std::array<bool, 26>& presenze) {
    int32_t mask = 0;
    for (size_t k = 0; k < presenze.size(); ++k)
        if (presenze[k]) mask += Potenze2[k];
    return mask;
}

std::vector<std::string> DateArchivio(const ArrayEstrazioni& archivio) {
    std::vector<std::string> date;
    if (ArchivioVuoto(archivio)) return date;
    for (int32_t i = 1; i <= UBound(archivio); ++i)
        if (i == 1 || archivio[static_cast<size_t>(i)].Data != archivio[static_cast<size_t>(i - 1)].Data)
            date.push_back(archivio[static_cast<size_t>(i)].dataTesto());
    return date;
}

IntervalloImport UltimeEstrazioni(const ArrayEstrazioni& archivio, int32_t n) {
    const int32_t ub = UBound(archivio);
    const Estrazione& inizio = archivio[static_cast<size_t>(std::max(1, ub - n + 1))];
    const Estrazione& fine = archivio[static_cast<size_t>(ub)];
    return {inizio.dataTesto(), fine.dataTesto(), std::to_string(inizio.Concorso),
            std::to_string(fine.Concorso)};
}

IntervalloImport UltimiGiorni(const ArrayEstrazioni& archivio, int n) {
    // Back from the last draw, counting the changes of date; the draw after the n-th change starts.
    int32_t i = UBound(archivio);
    int cambi = 0;
    while (i > 1) {
        if (archivio[static_cast<size_t>(i - 1)].Data != archivio[static_cast<size_t>(i)].Data &&
            ++cambi == n)
            break;
        --i;
    }
    return {archivio[static_cast<size_t>(i)].dataTesto(), archivio.back().dataTesto(), "1", "288"};
}

std::string TestoLimiteFiltri() {
    return "Raggiunto il limite di " + std::to_string(MaxFiltri) + " colonne filtro";
}

int32_t loadArchiveToFilters(TabellaFiltri& table, const ArrayEstrazioni& archivio, Ui& ui,
                             const std::string& dateDal, const std::string& dateAl, int32_t concDal,
                             int32_t concAl, int32_t mask) {
    // 1. No range without both dates: the table stays.
    if (dateDal.empty() || dateAl.empty()) return 0;
    ui.setBusy(true);
    try {
        // 2. The range must run forward.
        if (ChiaveData(dateDal) > ChiaveData(dateAl))
            throw ErroreProgramma(ErroreLogica, "Data DAL > Data AL");
        // 3. The first draw: of dateDal, the first whose number is not below concDal.
        const int32_t ub = UBound(archivio);
        int32_t primo = 1;
        while (primo <= ub && !DataUguale(archivio[static_cast<size_t>(primo)], dateDal))
            ++primo;
        if (primo > ub) throw ErroreEsecuzione(9, "Subscript out of range");
        primo = AvanzaFinoAConcorso(archivio, primo, dateDal, concDal);
        // 4. The last draw: of dateAl by the same rule, or the archive's last one.
        int32_t ultimo = primo;
        while (ultimo <= ub && !DataUguale(archivio[static_cast<size_t>(ultimo)], dateAl))
            ++ultimo;
        ultimo = ultimo > ub ? ub : AvanzaFinoAConcorso(archivio, ultimo, dateAl, concAl);
        // 5. and 6. The table anew, one filter a draw, up to archive index 150,000.
        table.clear();
        int32_t conta = 0;
        for (int32_t i = primo; i <= ultimo; ++i) {
            ++conta;
            table[conta] = ColonnaFiltroDaNumeri(&archivio[static_cast<size_t>(i)].Numeri[1], 20, mask);
            if (i == MaxFiltri) {
                AvvisoLimite(ui);
                break;
            }
        }
        ui.setBusy(false);
        return conta;
    } catch (const ErroreProgramma& e) {
        ui.setBusy(false);
        ui.messageBox("Error " + std::to_string(e.numero()) + " (" + e.what() + ChiusuraArchivio, "",
                      BoxIcon::None);
    } catch (const ErroreEsecuzione& e) {
        ui.setBusy(false);
        MostraErrore(ui, e, ChiusuraArchivio);
    }
    return 0;
}

RigaFiltro RigaToColonnaFiltro(std::string_view line, int32_t mask) {
    RigaFiltro r;
    r.colonna.Presenze = mask;
    r.colonna.Stato = Vero;
    std::string testo(line);
    for (char& ch : testo)
        if (ch == '\t' || ch == '-' || ch == ',' || ch == ';' || ch == '.') ch = ' ';
    // Split at every blank: two separators in a row leave an empty field between them.
    size_t inizio = 0;
    for (size_t i = 0; i <= testo.size(); ++i) {
        if (i < testo.size() && testo[i] != ' ') continue;
        const std::string campo = testo.substr(inizio, i - inizio);
        inizio = i + 1;
        if (campo.empty() || campo.find_first_not_of("0123456789") != std::string::npos) {
            r.esito = RigaFiltro::Esito::NonNumero;
            r.campo = campo;
            return r;
        }
        const size_t cifre = campo.find_first_not_of('0');
        const unsigned valore = cifre == std::string::npos ? 0u
                                : campo.size() - cifre > 2 ? 91u
                                                           : static_cast<unsigned>(std::stoi(campo));
        if (valore > 90) {
            r.esito = RigaFiltro::Esito::FuoriIntervallo;
            r.campo = campo;
            return r;
        }
        if (valore >= 1) r.colonna.Numeri[valore] = 1;
    }
    return r;
}

std::optional<int32_t> loadFileToFilters(TabellaFiltri& table, Ui& ui, const std::string& path,
                                         int32_t mask) {
    LettoreTesto in(path, MaxRigaFiltro);
    if (!in.aperto()) {
        MostraErrore(ui, errori::Apertura(path), std::string(" --> ") + path + ChiusuraFile);
        return std::nullopt;
    }
    ui.setBusy(true);
    // The filters are read aside first, so that a failure leaves the table as it was.
    std::vector<ColonnaFiltro> letti;
    std::string scartate;
    int32_t numScartate = 0;
    std::string riga;
    LettoreTesto::Esito esito = LettoreTesto::Esito::Riga;
    while (static_cast<int32_t>(letti.size()) < MaxFiltri &&
           (esito = in.leggi(riga)) == LettoreTesto::Esito::Riga) {
        const int64_t numeroRiga = in.numeroRiga();
        NormalizzaRiga(riga);
        if (riga.empty()) continue;
        RigaFiltro r = RigaToColonnaFiltro(riga, mask);
        if (r.esito == RigaFiltro::Esito::NonNumero) {
            ui.setBusy(false);
            ui.messageBox(ui.Lang("0161") + " " + std::to_string(numeroRiga) + ": \"" +
                              AnsiToUtf8(Spezzone(riga)) + "\" (\"" + AnsiToUtf8(Spezzone(r.campo)) + "\")\n" +
                              ui.Lang("0162"),
                          ui.Lang("0055"), BoxIcon::Critical);
            return std::nullopt;
        }
        if (r.esito == RigaFiltro::Esito::FuoriIntervallo) {
            // Named in the box at the end, the first ten of them.
            if (++numScartate <= 10)
                scartate += "\n" + std::to_string(numeroRiga) + ": \"" + AnsiToUtf8(Spezzone(riga)) + "\" (" +
                            Spezzone(r.campo) + ")";
            continue;
        }
        letti.push_back(r.colonna);
    }
    if (esito == LettoreTesto::Esito::ErroreLettura) {
        ui.setBusy(false);
        MostraErrore(ui, ErroreEsecuzione(75, "Path/File access error", cause::ErroreDisco),
                     std::string(" --> ") + path + ChiusuraFile);
        return std::nullopt;
    }
    if (esito == LettoreTesto::Esito::TroppoLunga) {
        ui.setBusy(false);
        MostraErrore(ui, ErroreEsecuzione(6, "Overflow: " + TestoRigaTroppoLunga(ui, in)),
                     std::string(" --> ") + path + ChiusuraFile);
        return std::nullopt;
    }
    table.clear();
    const auto conta = static_cast<int32_t>(letti.size());
    for (int32_t i = 1; i <= conta; ++i)
        table[i] = letti[static_cast<size_t>(i - 1)];
    ui.setBusy(false);
    if (numScartate > 0) {
        if (numScartate > 10) scartate += "\n... (" + std::to_string(numScartate) + ")";
        ui.messageBox(ui.Lang("0160") + scartate, ui.Lang("0055"), BoxIcon::Exclamation);
    }
    if (conta == MaxFiltri) AvvisoLimite(ui);
    return conta;
}

} // namespace dv
