#include "filters/Pannelli.h"

#include "core/Helpers.h"

#include <algorithm>

namespace dv {

int IndiceDopo(int indice, Spostamento s, int passoLungo, int ultimo) {
    int nuovo = indice;
    switch (s) {
    case Spostamento::Indietro1: nuovo = indice - 1; break;
    case Spostamento::Indietro2: nuovo = indice - passoLungo; break;
    case Spostamento::Avanti1: nuovo = indice + 1; break;
    case Spostamento::Avanti2: nuovo = indice + passoLungo; break;
    case Spostamento::Primo: nuovo = 1; break;
    case Spostamento::Ultimo: nuovo = ultimo; break;
    }
    return std::clamp(nuovo, 1, ultimo);
}

std::string FormatPannello(int32_t value, char sep) {
    const int32_t assoluto = value < 0 ? -value : value;
    std::string testo = assoluto < 10 ? "0" + std::to_string(assoluto) : FormatIntero(assoluto, sep);
    return value < 0 ? "-" + testo : testo;
}

void NavigazionePannelli::sposta(Spostamento s) {
    if (!m_solaLettura) salvaPannello();
    m_indice = IndiceDopo(m_indice, s, m_passoLungo, m_ultimo);
    mostraRecord();
}

bool NavigazionePannelli::clickStato(bool on) {
    if (m_solaLettura || on == m_acceso) return false;
    m_acceso = on;
    m_totaleON += on ? 1 : -1;
    return true;
}

void NavigazionePannelli::cancellaPannello() {
    if (m_solaLettura) return;
    --m_totaleON;
    svuotaPannello();
    m_acceso = false;
}

void NavigazionePannelli::chiudi() {
    if (m_solaLettura) return;
    salvaPannello();
    compatta();
}

void NavigazionePannelli::iniziaDa(int32_t conteggioTabella) {
    m_indice = 1;
    m_totaleON = conteggioTabella;
    mostraRecord();
}

} // namespace dv
