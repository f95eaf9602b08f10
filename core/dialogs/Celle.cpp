#include "core/dialogs/Celle.h"

#include "core/dialogs/Condizione.h"
#include "core/Sistema.h"

#include <algorithm>

namespace dv {

bool DialogoPari::click(int i) {
    auto& entry = m_c.condizioni.TabPari[static_cast<size_t>(i)];
    entry = entry != Falso ? Falso : Vero;
    return entry != Falso;
}

int SequenzaPronostico(const Corpo& c) {
    const auto& numeri = c.pronostico.Numeri;
    int sequenza = 1;
    int massima = 1;
    for (int i = 1; i < c.pronostico.Quanti; ++i) {
        if (numeri[static_cast<size_t>(i)] == numeri[static_cast<size_t>(i - 1)] + 1) {
            sequenza = std::min(sequenza + 1, static_cast<int>(c.LenColonna));
            massima = std::max(massima, sequenza);
        } else {
            sequenza = 1;
        }
    }
    return massima;
}

DialogoConsecutivi::DialogoConsecutivi(Corpo& c) : m_c(c) {
    AggiornaPronostico(c);
    for (int i = Prima; i <= Ultima; ++i)
        m_on[static_cast<size_t>(i)] =
            (c.consecutivi.MaskConsecutivi & Potenze2[static_cast<size_t>(i)]) != 0;
    m_sequenza = SequenzaPronostico(c);
}

bool DialogoConsecutivi::click(int i) {
    auto& on = m_on[static_cast<size_t>(i)];
    on = !on;
    return on;
}

void DialogoConsecutivi::chiudi() {
    if (SoloLettura(m_c)) return;
    int32_t mask = 0;
    for (int i = Prima; i <= Ultima; ++i)
        if (m_on[static_cast<size_t>(i)]) mask += Potenze2[static_cast<size_t>(i)];
    m_c.consecutivi.MaskConsecutivi = mask;
}

DialogoFisse::DialogoFisse(Corpo& c) : m_c(c), m_limite(c.LenColonna - 1) {
    for (int i = 0; i < Celle; ++i) {
        const auto n = static_cast<size_t>(i + 1);
        if (c.condizioni.TabFisse[n] == 1 && c.Griglia[static_cast<size_t>(i)]) {
            m_on[static_cast<size_t>(i)] = true;
            ++m_conteggio;
        }
    }
    if (!SoloLettura(c)) c.condizioni.NumFisse = static_cast<uint8_t>(m_conteggio);
}

bool DialogoFisse::click(int i) {
    if (!abilitato(i)) return false;
    auto& on = m_on[static_cast<size_t>(i)];
    if (on) {
        on = false;
        --m_conteggio;
        return true;
    }
    if (m_conteggio >= m_limite) return false;
    on = true;
    ++m_conteggio;
    return true;
}

void DialogoFisse::chiudi() {
    if (SoloLettura(m_c)) return;
    for (int i = 0; i < Celle; ++i)
        m_c.condizioni.TabFisse[static_cast<size_t>(i + 1)] = m_on[static_cast<size_t>(i)] ? 1 : 0;
    m_c.condizioni.NumFisse = static_cast<uint8_t>(m_conteggio);
}

} // namespace dv
