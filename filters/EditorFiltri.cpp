#include "filters/EditorFiltri.h"

namespace dv {

TabellaFiltri& TabellaDelTipo(Corpo& c, TipoFiltro tipo) {
    switch (tipo) {
    case TipoFiltro::OR: return c.FiltriOR;
    case TipoFiltro::XOR: return c.FiltriXOR;
    case TipoFiltro::AND: break;
    }
    return c.FiltriAND;
}

EditorFiltri::EditorFiltri(const Corpo& c, TabellaFiltri& tabella)
    : PannelliTabella(tabella, PassoLungo, c.SistemaBloccato == -1), m_lenColonna(c.LenColonna), m_pronostico(c.Griglia) {
    iniziaDa(m_tabella.count());
}

bool EditorFiltri::clickNumero(int n) {
    if (solaLettura() || !nelPronostico(n)) return false;
    bool& scelto = m_numeri[static_cast<size_t>(n - 1)];
    scelto = !scelto;
    m_numSelezionati += scelto ? 1 : -1;
    return true;
}

bool EditorFiltri::clickPresenza(int k) {
    if (solaLettura() || !presenzaVisibile(k)) return false;
    m_presenze[static_cast<size_t>(k)] = !m_presenze[static_cast<size_t>(k)];
    return true;
}

bool EditorFiltri::cancellaTabella(Ui& ui) {
    if (solaLettura()) return false;
    if (!ui.questionBox(ui.Lang("0006") + "\n" + ui.Lang("0007"), "", BoxIcon::Question)) return false;
    m_tabella.clear();
    ricarica();
    return true;
}

void EditorFiltri::ricarica() { iniziaDa(m_tabella.count()); }

ColonnaFiltro EditorFiltri::leggiPannello() const {
    ColonnaFiltro f;
    for (int n = 1; n <= 90; ++n) f.Numeri[static_cast<size_t>(n)] = numero(n) ? 1 : 0;
    for (int k = 0; k <= MaxLenColonna; ++k)
        if (presenza(k)) f.Presenze |= Potenze2[static_cast<size_t>(k)];
    f.Stato = acceso() ? Vero : Falso;
    return f;
}

namespace {
bool Vuoto(const ColonnaFiltro& f) {
    if (f.Presenze != 0 || f.Stato != 0) return false;
    for (uint8_t b : f.Numeri)
        if (b != 0) return false;
    return true;
}
} // namespace

void EditorFiltri::salvaPannello() {
    const ColonnaFiltro f = leggiPannello();
    // Past the stored records every slot is already empty: storing an empty panel there would
    // only make the table grow.
    if (indice() > m_tabella.stored() && Vuoto(f)) return;
    m_tabella[indice()] = f;
}

void EditorFiltri::mostraRecord() {
    const ColonnaFiltro f = recordCorrente();
    // Numbers outside the forecast are neither shown nor counted, so the next save drops them.
    m_numSelezionati = 0;
    for (int n = 1; n <= 90; ++n) {
        const bool scelto = nelPronostico(n) && f.Numeri[static_cast<size_t>(n)] == 1;
        m_numeri[static_cast<size_t>(n - 1)] = scelto;
        if (scelto) ++m_numSelezionati;
    }
    for (int k = 0; k <= MaxLenColonna; ++k) m_presenze[static_cast<size_t>(k)] = (f.Presenze & Potenze2[static_cast<size_t>(k)]) != 0;
    setAcceso(f.Stato == Vero);
}

void EditorFiltri::svuotaPannello() {
    m_numeri.fill(false);
    m_presenze.fill(false);
    m_numSelezionati = 0;
}

} // namespace dv
