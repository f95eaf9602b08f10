#include "system_files/FileSistema.h"

#include "core/Helpers.h"
#include "core/Sistema.h"
#include "settings/Ansi.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FlussoBinario.h"
#include "system_files/RecordSistema.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace dv {

namespace {

constexpr const char* ChiusuraApri = ") in procedure ApriFile of Modulo corpo";
constexpr const char* ChiusuraSalva = ") in procedure SalvaFile of Modulo corpo";

// Byte-by-byte comparison of two signatures, as unsigned bytes.
int ConfrontaFirma(const uint8_t* firma, const char* altra) {
    return std::memcmp(firma, altra, LunghezzaFirma);
}

// A file that cannot be a system: the reason, the message key and its values, is shown in the
// user's language under the text of "0058".
struct Rifiuto {
    const char* chiave = nullptr;
    std::string valore1 = {};
    std::string valore2 = {};
};

bool BloccoCondizioniDovuto(const Corpo& c) {
    return c.FiltriAND.count() >= 1 || c.FiltriOR.count() >= 1 || c.FiltriXOR.count() >= 1 ||
           c.CondizioniDistanza.count() != 0 || c.consecutivi.CondConsecutivi != 0 ||
           c.distanzaMinima.CondDistanzaMinima != 0;
}

void ScriviFiltri(ScrittoreBinario& out, ScriviCampi& w, const TabellaFiltri& tabella, int32_t tag) {
    for (int i = 1; i <= tabella.count(); ++i) {
        if (tabella[i].Stato == 0) continue;
        ColonnaFiltro r = tabella[i];
        out.i32(tag);
        CampiColonnaFiltro(w, r);
    }
}

// The columns one after the other, in blocks: the store keeps each position contiguous, the file
// each column, so a block of columns is laid out in memory and written at once.
void ScriviColonne(ScrittoreBinario& out, const Corpo& c) {
    constexpr int32_t Blocco = 1 << 15;
    const int len = c.LenColonna;
    std::vector<uint8_t> buffer(static_cast<size_t>(Blocco) * static_cast<size_t>(len));
    for (int32_t j = 1; j <= c.pronostico.NumColonne; j += Blocco) {
        const int32_t quante = std::min(Blocco, c.pronostico.NumColonne - j + 1);
        c.Colonne.getColumns(j, quante, len, buffer.data());
        out.bytes(buffer.data(), static_cast<size_t>(quante) * static_cast<size_t>(len));
    }
}

void ScriviBloccoCondizioni(ScrittoreBinario& out, Corpo& c) {
    ScriviCampi w(out);
    out.i32(MarcaCondizioni);
    if (c.distanzaMinima.CondDistanzaMinima != 0) {
        out.i32(TagDistanzaMinima);
        CampiDistanzaMinima(w, c.distanzaMinima);
    }
    ScriviFiltri(out, w, c.FiltriAND, TagFiltroAND);
    ScriviFiltri(out, w, c.FiltriOR, TagFiltroOR);
    ScriviFiltri(out, w, c.FiltriXOR, TagFiltroXOR);
    if (c.consecutivi.CondConsecutivi != 0) {
        out.i32(TagConsecutivi);
        CampiConsecutivi(w, c.consecutivi);
    }
    for (int i = 1; i <= c.CondizioniDistanza.count(); ++i) {
        if (c.CondizioniDistanza[i].Stato == 0) continue;
        out.i32(TagCondizioneDistanza);
        CampiCondizioneDistanza(w, c.CondizioniDistanza[i]);
    }
    out.i32(FineCondizioni1);
    out.i32(FineCondizioni2);
}

// The header's values that the rest of the program indexes with: refused when out of range.
void ControllaIntestazione(const IntestazioneSistema& h) {
    if (h.LenColonna < 1 || h.LenColonna > MaxLenColonna) throw Rifiuto{"0225", std::to_string(h.LenColonna)};
    if (h.NumColonne < 0 || h.NumColonne > MaxColonne) throw Rifiuto{"0226", std::to_string(h.NumColonne)};
    if (h.Quanti > 90) throw Rifiuto{"0227", std::to_string(h.Quanti)};
    for (size_t i = 0; i < h.Quanti; ++i)
        if (h.Numeri[i] < 1 || h.Numeri[i] > 90) throw Rifiuto{"0228", std::to_string(h.Numeri[i])};
}

// Reads the columns: stops at the end of the file or at NumColonne. Returns how many were read
// whole, and whether the last of them holds a 0.
int32_t LeggiColonne(LettoreBinario& in, Corpo& c, bool& ultimaConZero) {
    const int len = c.LenColonna;
    uint8_t colonna[MaxLenColonna];
    int32_t lette = 0;
    ultimaConZero = false;
    while (!in.fine() && lette < c.pronostico.NumColonne) {
        if (in.bytes(colonna, static_cast<size_t>(len)) < static_cast<size_t>(len)) break;
        ++lette;
        c.Colonne.setColumn(lette, colonna, len);
        ultimaConZero = std::find(colonna, colonna + len, uint8_t{0}) != colonna + len;
    }
    return lette;
}

void AggiungiFiltro(TabellaFiltri& tabella, const ColonnaFiltro& r) {
    if (!tabella.append(r)) throw Rifiuto{"0230"};
}

// The conditions block, after its mark: tags up to the end of the file or a closing value.
// Returns false when the block was cut short: the file ends inside a record or before a
// closing value. What was read stays, as a reader past the end yields zeros.
bool LeggiBloccoCondizioni(LettoreBinario& in, Corpo& c, Ui& ui) {
    LeggiCampi r(in);
    ColonnaFiltro filtro;
    // A damaged file may hold millions of unknown tags: the first gets its box, the rest one
    // message with their count when the block ends.
    int64_t ignoti = 0;
    auto fine = [&](bool esito) {
        if (ignoti > 1)
            ui.messageBox(TestoCon(ui.Lang("0240"), FormatIntero(ignoti - 1, SeparatoreMigliaia(ui))), "E R R O R E",
                          BoxIcon::Critical);
        return esito;
    };
    while (!in.fine()) {
        int32_t tag = 0;
        in.i32(tag);
        if (tag == FineCondizioni1 || tag == FineCondizioni2) return fine(in.posizione() <= in.dimensione());
        switch (tag) {
        case TagDistanzaMinima:
            CampiDistanzaMinima(r, c.distanzaMinima);
            break;
        case TagFiltroAND:
            CampiColonnaFiltro(r, filtro);
            AggiungiFiltro(c.FiltriAND, filtro);
            break;
        case TagFiltroOR:
            CampiColonnaFiltro(r, filtro);
            AggiungiFiltro(c.FiltriOR, filtro);
            break;
        case TagFiltroXOR:
            CampiColonnaFiltro(r, filtro);
            AggiungiFiltro(c.FiltriXOR, filtro);
            break;
        case TagConsecutivi:
            CampiConsecutivi(r, c.consecutivi);
            break;
        case TagCondizioneDistanza:
            CampiCondizioneDistanza(r, c.CondizioneDistanzaLetta);
            if (!c.CondizioniDistanza.append(c.CondizioneDistanzaLetta))
                throw Rifiuto{"0231"};
            break;
        default:
            // Nothing is skipped: the next 4 bytes are read as a tag.
            if (ignoti++ == 0)
                ui.messageBox("Condizione non riconosciuta\nID : " + std::to_string(tag), "E R R O R E",
                              BoxIcon::Critical);
            break;
        }
    }
    return fine(false);
}

// The detail of a refusal in the user's language; empty when the language has no text for it.
std::string Dettaglio(Ui& ui, const Rifiuto& r) {
    if (!r.chiave) return {};
    const char sep = SeparatoreMigliaia(ui);
    const std::string_view k = r.chiave;
    // Each key spelled out, so that every message of the refusals is plain to see.
    if (k == "0225") return TestoCon(ui.Lang("0225"), r.valore1);
    if (k == "0226") return TestoCon(ui.Lang("0226"), r.valore1, FormatIntero(MaxColonne, sep));
    if (k == "0227") return TestoCon(ui.Lang("0227"), r.valore1);
    if (k == "0228") return TestoCon(ui.Lang("0228"), r.valore1);
    if (k == "0229") return ui.Lang("0229");
    if (k == "0230") return TestoCon(ui.Lang("0230"), FormatIntero(MaxFiltri, sep));
    return TestoCon(ui.Lang("0231"), std::to_string(MaxCondizioniDistanza));
}

void Rifiuta(Corpo& c, Ui& ui, const Rifiuto& rifiuto, int32_t nFiltriOR, int32_t nFiltriXOR) {
    std::string testo = ui.Lang("0058");
    if (const std::string dettaglio = Dettaglio(ui, rifiuto); !dettaglio.empty()) testo += "\n" + dettaglio;
    ui.messageBox(testo, ui.Lang("0055"), BoxIcon::Critical);
    ResetSistema(c, ui, false);
    // The tables that survive a reset lose only what this file added to them.
    c.FiltriOR.setCount(nFiltriOR);
    c.FiltriXOR.setCount(nFiltriXOR);
}

std::string SenzaVirgolette(const std::string& path) {
    std::string s = path;
    s.erase(std::remove(s.begin(), s.end(), '"'), s.end());
    return s;
}

} // namespace

bool SalvaFile(Corpo& c, Ui& ui, const std::string& path) {
    if (path.empty()) return false;
    AggiornaPronostico(c);
    bool occupato = false;
    try {
        ScrittoreSicuro file(path, std::ios::binary);
        ui.setBusy(true);
        occupato = true;
        ScrittoreBinario out(file.stream());
        ScriviCampi w(out);
        out.bytes(reinterpret_cast<const uint8_t*>(FirmaSistema), LunghezzaFirma);
        // Text in memory is UTF-8; the file holds it in the ANSI code page.
        IntestazioneSistema h{c.LenColonna, c.pronostico.Quanti, c.pronostico.NumColonne,
                              Utf8ToAnsi(c.pronostico.Descrizione), c.pronostico.Numeri, c.condizioni};
        CampiIntestazione(w, h, FormatoIntestazione{});
        ScriviColonne(out, c);
        if (BloccoCondizioniDovuto(c)) ScriviBloccoCondizioni(out, c);
        file.conferma();
    } catch (const ErroreEsecuzione& e) {
        if (occupato) ui.setBusy(false);
        MostraErrore(ui, e, ChiusuraSalva);
        return false;
    } catch (const std::bad_alloc&) {
        if (occupato) ui.setBusy(false);
        MostraErrore(ui, errori::MemoriaEsaurita(), ChiusuraSalva);
        return false;
    }
    c.TitoloFile = TitoloDaPath(path);
    ui.ViewStatusBar();
    ui.setBusy(false);
    return true;
}

EsitoApriFile ApriFile(Corpo& c, Ui& ui, const std::string& path) {
    const std::string pulito = SenzaVirgolette(path);
    if (pulito.empty()) {
        if (c.ModalitaRicalcolo) Sblocca_x_Ricalcolo(c, ui);
        return EsitoApriFile::NessunFile;
    }
    const int32_t nFiltriOR = c.FiltriOR.count();
    const int32_t nFiltriXOR = c.FiltriXOR.count();
    bool occupato = false;
    bool condizioniIntere = true;
    try {
        LettoreBinario in(pulito);
        uint8_t firma[LunghezzaFirma];
        in.bytes(firma, LunghezzaFirma);
        if (ConfrontaFirma(firma, FirmaSistema) > 0) {
            ui.messageBox(ui.Lang("0008"), ui.Lang("0055"), BoxIcon::Critical);
            return EsitoApriFile::Rifiutato;
        }
        FormatoIntestazione formato;
        formato.haLenColonna = ConfrontaFirma(firma, "dvqsy000002") != 0;
        formato.vociTabPari = ConfrontaFirma(firma, "dvqsy000003") > 0 ? 26 : 11;

        ui.setBusy(true);
        occupato = true;
        ResetSistema(c, ui, false);
        try {
            IntestazioneSistema h;
            LeggiCampi r(in);
            try {
                CampiIntestazione(r, h, formato);
            } catch (const StringaTroppoLunga&) {
                throw Rifiuto{"0229"};
            }
            ControllaIntestazione(h);
            c.LenColonna = h.LenColonna;
            c.pronostico.Quanti = h.Quanti;
            c.pronostico.NumColonne = h.NumColonne;
            c.pronostico.Descrizione = AnsiToUtf8(h.Descrizione);
            c.pronostico.Numeri = h.Numeri;
            c.condizioni = h.condizioni;

            bool ultimaConZero = false;
            const int32_t lette = LeggiColonne(in, c, ultimaConZero);
            if (lette != c.pronostico.NumColonne || (lette > 0 && ultimaConZero)) throw Rifiuto{};

            int32_t marca = 0;
            in.i32(marca);
            if (marca == MarcaCondizioni) condizioniIntere = LeggiBloccoCondizioni(in, c, ui);
        } catch (const Rifiuto& rifiuto) {
            Rifiuta(c, ui, rifiuto, nFiltriOR, nFiltriXOR);
            ui.setBusy(false);
            return EsitoApriFile::Rifiutato;
        }
        ui.setBusy(false);
        occupato = false;

        ui.lenColonnaChanged();
        // The grid again: each click counts its number back into Quanti.
        for (size_t i = 0, n = c.pronostico.Quanti; i < n; ++i) {
            --c.pronostico.Quanti;
            GrigliaNumeriClick(c, ui, c.pronostico.Numeri[i] - 1);
        }
        ui.conditionMarksChanged();
        if (c.pronostico.NumColonne > 0) LockGUI(c, ui);
        // Only a file that opened becomes the current one, so that "Salva" after a refusal
        // cannot overwrite the refused file with another system.
        c.FileCorrente = pulito;
        c.TitoloFile = TitoloDaPath(pulito);
        ui.ViewStatusBar();
        // The file opens as it stands, but a save would make the loss permanent: say so.
        if (!condizioniIntere) ui.statusWarning(ui.Lang("0224"));
        if (c.ModalitaRicalcolo) Sblocca_x_Ricalcolo(c, ui);
        return EsitoApriFile::Aperto;
    } catch (const ErroreEsecuzione& e) {
        if (occupato) ui.setBusy(false);
        MostraErrore(ui, e, ChiusuraApri);
    } catch (const std::bad_alloc&) {
        if (occupato) ui.setBusy(false);
        MostraErrore(ui, errori::MemoriaEsaurita(), ChiusuraApri);
    }
    return EsitoApriFile::Errore;
}

} // namespace dv
