#include "print/OperazioniStampa.h"

namespace dv {

double PuntiInUnita(double punti, UnitaStampa u) {
    return u == UnitaStampa::Twips ? punti * 20.0 : punti * 25.4 / 72.0;
}

void OperazioniStampa::unita(UnitaStampa u) {
    m_unita = u;
    suUnita(u);
}

void OperazioniStampa::font(std::string_view nome, double punti, bool grassetto) {
    m_font.nome = nome;
    m_font.punti = punti;
    m_font.grassetto = grassetto;
    suFont(m_font);
}

void OperazioniStampa::grassetto(bool on) {
    m_font.grassetto = on;
    suFont(m_font);
}

void OperazioniStampa::posizione(double x, double y) {
    m_x = x;
    m_y = y;
    m_posizioneCambiata = true;
}

void OperazioniStampa::posX(double x) {
    m_x = x;
    m_posizioneCambiata = true;
}

void OperazioniStampa::posY(double y) {
    m_y = y;
    m_posizioneCambiata = true;
}

void OperazioniStampa::stampa(std::string_view s, bool aCapo) {
    if (m_posizioneCambiata) {
        suPosizione(m_x, m_y);
        m_posizioneCambiata = false;
    }
    suTesto(m_x, m_y, s, aCapo);
    if (aCapo) {
        m_x = 0;
        m_y += altezzaRiga();
        // The next text starts on a new line: its position is worth telling.
        m_posizioneCambiata = true;
    } else {
        m_x += larghezzaTesto(s);
    }
}

void OperazioniStampa::testo(std::string_view s) {
    stampa(s, true);
}

void OperazioniStampa::testoInLinea(std::string_view s) {
    stampa(s, false);
}

void OperazioniStampa::riquadro(double x1, double y1, double x2, double y2) {
    suRiquadro(x1, y1, x2, y2);
}

void OperazioniStampa::immagine(std::string_view nome, double x, double y) {
    suImmagine(nome, x, y);
}

void OperazioniStampa::nuovaPagina() {
    suNuovaPagina();
    ++m_pagina;
    posizione(0, 0);
}

void OperazioniStampa::fine() {
    suFine();
    m_pagina = 1;
    posizione(0, 0);
}

} // namespace dv
