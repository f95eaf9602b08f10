// The operations a print job is made of, in the job's units: units, font, position, text ending
// the line or not, filled box, picture, new page, end. The layouts (listing, slips, calibration
// test) are written against this class only; a recorder turns the operations into text and the
// platform's renderer puts them on a printer, a preview or a PDF file.
//
// The class keeps the current position as a printer does: text that ends its line moves x back
// to 0 and y down by the font's line height, text that does not end it moves x on by its width.
// Line height and width come from the implementation, which knows its fonts.
#pragma once

#include <string>
#include <string_view>

namespace dv {

enum class UnitaStampa { Twips, Millimetri };

struct FontStampa {
    std::string nome = "Arial";
    double punti = 10;
    bool grassetto = false;
};

class OperazioniStampa {
public:
    virtual ~OperazioniStampa() = default;

    void unita(UnitaStampa u);
    void font(std::string_view nome, double punti, bool grassetto);
    // The same font, bold on or off.
    void grassetto(bool on);
    void posizione(double x, double y);
    void posX(double x);
    void posY(double y);
    double x() const { return m_x; }
    double y() const { return m_y; }
    // The page of the job being printed, from 1.
    int pagina() const { return m_pagina; }
    // Prints s at the current position and ends the line.
    void testo(std::string_view s);
    // Prints s at the current position; x moves on by its width.
    void testoInLinea(std::string_view s);
    // A filled black rectangle from (x1, y1) to (x2, y2). The position does not move.
    void riquadro(double x1, double y1, double x2, double y2);
    // The named picture at its natural size, its top left corner at (x, y).
    void immagine(std::string_view nome, double x, double y);
    // Ends the page; the position goes back to (0, 0).
    void nuovaPagina();
    // Ends the job; a further job may follow on the same device, from page 1.
    void fine();

    // The line height of the current font, and the width of s in it, in the current units.
    double misuraRiga() { return altezzaRiga(); }
    double misuraTesto(std::string_view s) { return larghezzaTesto(s); }

    UnitaStampa unitaCorrente() const { return m_unita; }
    const FontStampa& fontCorrente() const { return m_font; }

protected:
    virtual void suUnita(UnitaStampa u) = 0;
    virtual void suFont(const FontStampa& f) = 0;
    // The position at which the next text starts, when it was set since the last text.
    virtual void suPosizione(double x, double y) = 0;
    virtual void suTesto(double x, double y, std::string_view s, bool aCapo) = 0;
    virtual void suRiquadro(double x1, double y1, double x2, double y2) = 0;
    virtual void suImmagine(std::string_view nome, double x, double y) = 0;
    virtual void suNuovaPagina() = 0;
    virtual void suFine() = 0;
    virtual double altezzaRiga() = 0;
    virtual double larghezzaTesto(std::string_view s) = 0;

private:
    void stampa(std::string_view s, bool aCapo);

    UnitaStampa m_unita = UnitaStampa::Twips;
    FontStampa m_font;
    double m_x = 0;
    double m_y = 0;
    bool m_posizioneCambiata = true;
    int m_pagina = 1;
};

// Points to the given units.
double PuntiInUnita(double punti, UnitaStampa u);

} // namespace dv
