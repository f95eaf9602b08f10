#include "system_files/FileSistema.h"

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

// A file that cannot be a system: the reason is shown under the text of "0058".
struct Rifiuto {
    std::string dettaglio;
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

void ScriviColonne(ScrittoreBinario& out, const Corpo& c) {
    std::vector<uint8_t> buffer;
    buffer.reserve(1 << 16);
    const int len = c.LenColonna;
    for (int32_t j = 1; j <= c.pronostico.NumColonne; ++j) {
        for (int p = 1; p <= len; ++p) buffer.push_back(c.Colonne.get(j, p));
        if (buffer.size() + static_cast<size_t>(len) > buffer.capacity()) {
            out.bytes(buffer.data(), buffer.size());
            buffer.clear();
        }
    }
    out.bytes(buffer.data(), buffer.size());
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
    if (h.LenColonna < 1 || h.LenColonna > MaxLenColonna)
        throw Rifiuto{"LenColonna = " + std::to_string(h.LenColonna) + " (1..25)"};
    if (h.NumColonne < 0 || h.NumColonne > MaxColonne)
        throw Rifiuto{"NumColonne = " + std::to_string(h.NumColonne) + " (0..4000000)"};
    if (h.Quanti > 90) throw Rifiuto{"Quanti = " + std::to_string(h.Quanti) + " (0..90)"};
    for (size_t i = 0; i < h.Quanti; ++i)
        if (h.Numeri[i] < 1 || h.Numeri[i] > 90)
            throw Rifiuto{"Numeri(" + std::to_string(i) + ") = " + std::to_string(h.Numeri[i]) + " (1..90)"};
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

void AggiungiFiltro(TabellaFiltri& tabella, const ColonnaFiltro& r, const char* nome) {
    if (!tabella.append(r)) throw Rifiuto{std::string(nome) + " > " + std::to_string(MaxFiltri)};
}

// The conditions block, after its mark: tags up to the end of the file or a closing value.
void LeggiBloccoCondizioni(LettoreBinario& in, Corpo& c, Ui& ui) {
    LeggiCampi r(in);
    ColonnaFiltro filtro;
    while (!in.fine()) {
        int32_t tag = 0;
        in.i32(tag);
        if (tag == FineCondizioni1 || tag == FineCondizioni2) break;
        switch (tag) {
        case TagDistanzaMinima:
            CampiDistanzaMinima(r, c.distanzaMinima);
            break;
        case TagFiltroAND:
            CampiColonnaFiltro(r, filtro);
            AggiungiFiltro(c.FiltriAND, filtro, "FiltriAND");
            break;
        case TagFiltroOR:
            CampiColonnaFiltro(r, filtro);
            AggiungiFiltro(c.FiltriOR, filtro, "FiltriOR");
            break;
        case TagFiltroXOR:
            CampiColonnaFiltro(r, filtro);
            AggiungiFiltro(c.FiltriXOR, filtro, "FiltriXOR");
            break;
        case TagConsecutivi:
            CampiConsecutivi(r, c.consecutivi);
            break;
        case TagCondizioneDistanza:
            CampiCondizioneDistanza(r, c.CondizioneDistanzaLetta);
            if (!c.CondizioniDistanza.append(c.CondizioneDistanzaLetta))
                throw Rifiuto{"CondizioniDistanza > " + std::to_string(MaxCondizioniDistanza)};
            break;
        default:
            // Nothing is skipped: the next 4 bytes are read as a tag.
            ui.messageBox("Condizione non riconosciuta\nID : " + std::to_string(tag), "E R R O R E",
                          BoxIcon::Critical);
            break;
        }
    }
}

void Rifiuta(Corpo& c, Ui& ui, const std::string& dettaglio, int32_t nFiltriOR, int32_t nFiltriXOR) {
    std::string testo = ui.Lang("0058");
    if (!dettaglio.empty()) testo += "\n" + dettaglio;
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
                throw Rifiuto{"Descrizione > " + std::to_string(in.restanti()) + " byte"};
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
            if (marca == MarcaCondizioni) LeggiBloccoCondizioni(in, c, ui);
        } catch (const Rifiuto& rifiuto) {
            Rifiuta(c, ui, rifiuto.dettaglio, nFiltriOR, nFiltriXOR);
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
