#include "filters/EditorDistanze.h"

#include <algorithm>
#include <vector>

namespace dv {

LimitiDistanza LimitiDaPronostico(const std::array<bool, 90>& griglia, int lenColonna) {
    std::vector<int> p;
    for (int n = 1; n <= 90; ++n)
        if (griglia[static_cast<size_t>(n - 1)]) p.push_back(n);
    LimitiDistanza l;
    const auto c = static_cast<int>(p.size());
    if (lenColonna < 2 || c < lenColonna) return l; // no column, or no pair in a column
    l.calcolati = true;
    l.minima = 90;
    for (int i = 0; i + 1 < c; ++i) l.minima = std::min(l.minima, p[static_cast<size_t>(i + 1)] - p[static_cast<size_t>(i)]);
    l.massima = p[static_cast<size_t>(c - 1)] - p[static_cast<size_t>(lenColonna - 2)];
    return l;
}

namespace {
bool PronosticoVuoto(const std::array<bool, 90>& griglia) {
    for (bool b : griglia)
        if (b) return false;
    return true;
}
} // namespace

EditorDistanze::EditorDistanze(const Corpo& c, TabellaDistanze& tabella)
    : PannelliTabella(tabella, PassoLungo, c.SistemaBloccato == -1), m_lenColonna(c.LenColonna), m_pronosticoVuoto(PronosticoVuoto(c.Griglia)) {
    if (m_pronosticoVuoto) {
        setTotaleON(m_tabella.count());
        return;
    }
    m_limiti = LimitiDaPronostico(c.Griglia, c.LenColonna);
    iniziaDa(m_tabella.count());
}

bool EditorDistanze::toggle(std::array<bool, 90>& labels, int i) {
    if (solaLettura()) return false;
    labels[static_cast<size_t>(i)] = !labels[static_cast<size_t>(i)];
    return true;
}

bool EditorDistanze::clickCoppia(int k) { return coppiaVisibile(k) && toggle(m_coppie, k); }
bool EditorDistanze::clickDistanzaMin(int d) { return distanzaVisibile(d) && toggle(m_min, d); }
bool EditorDistanze::clickDistanzaMax(int d) { return distanzaVisibile(d) && toggle(m_max, d); }

CondizioneDistanza EditorDistanze::leggiPannello() const {
    CondizioneDistanza cd;
    for (int k = 1; k <= NumCoppie; ++k)
        if (coppia(k)) cd.Posizioni[++cd.NumPosizioni] = static_cast<uint8_t>(k);
    for (int d = 1; d <= NumDistanze; ++d) {
        if (distanzaMin(d)) {
            cd.DistanzaMin[static_cast<size_t>(d)] = Vero;
            ++cd.NumDistanzeMin;
        }
        if (distanzaMax(d)) {
            cd.DistanzaMax[static_cast<size_t>(d)] = Vero;
            ++cd.NumDistanzeMax;
        }
    }
    cd.Stato = acceso() ? Vero : Falso;
    return cd;
}

void EditorDistanze::salvaPannello() { m_tabella[indice()] = leggiPannello(); }

void EditorDistanze::mostraRecord() {
    const CondizioneDistanza cd = recordCorrente();
    svuotaPannello();
    for (int i = 1; i <= cd.NumPosizioni && i <= MaxLenColonna; ++i) {
        const int k = cd.Posizioni[static_cast<size_t>(i)];
        if (k >= 1 && k <= NumCoppie) m_coppie[static_cast<size_t>(k)] = true;
    }
    for (int d = 1; d <= NumDistanze; ++d) {
        m_min[static_cast<size_t>(d)] = cd.DistanzaMin[static_cast<size_t>(d)] != 0;
        m_max[static_cast<size_t>(d)] = cd.DistanzaMax[static_cast<size_t>(d)] != 0;
    }
    setAcceso(cd.Stato == Vero);
}

void EditorDistanze::svuotaPannello() {
    m_coppie.fill(false);
    m_min.fill(false);
    m_max.fill(false);
}

} // namespace dv
