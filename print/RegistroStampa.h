// The recorder of print operations: one line each, numbers in the job's units with two decimals.
//     units twips|mm
//     font NAME SIZE bold|regular
//     pos X Y            where the next text starts
//     text "..."         text that ends its line
//     inline "..."       text that does not
//     box X1 Y1 X2 Y2
//     picture NAME X Y
//     page
//     end
// Texts are UTF-8 with '"' doubled. Lines go to the stream as they come, so a long job costs no
// memory. Line heights are those of the fonts that stand in for the layout's fonts, at their
// nominal proportions; a recorder fed beside a renderer takes the renderer's instead.
#pragma once

#include "print/OperazioniStampa.h"

#include <memory>
#include <ostream>

namespace dv {

class RegistroStampa : public OperazioniStampa {
public:
    explicit RegistroStampa(std::ostream& out) : m_out(out) {}

protected:
    void suUnita(UnitaStampa u) override;
    void suFont(const FontStampa& f) override;
    void suPosizione(double x, double y) override;
    void suTesto(double x, double y, std::string_view s, bool aCapo) override;
    void suRiquadro(double x1, double y1, double x2, double y2) override;
    void suImmagine(std::string_view nome, double x, double y) override;
    void suNuovaPagina() override;
    void suFine() override;
    double altezzaRiga() override;
    double larghezzaTesto(std::string_view s) override;

private:
    std::ostream& m_out;
};

// The line height of a font, as a fraction of its size, for the fonts the layouts use.
double AltezzaRigaNominale(const FontStampa& f);

// Sends every operation to two devices: the first one (a renderer) gives line heights and
// widths, the second (a recorder) writes down the same positions.
class StampaDoppia : public OperazioniStampa {
public:
    StampaDoppia(OperazioniStampa& primo, OperazioniStampa& secondo) : m_a(primo), m_b(secondo) {}

protected:
    void suUnita(UnitaStampa u) override;
    void suFont(const FontStampa& f) override;
    void suPosizione(double x, double y) override;
    void suTesto(double x, double y, std::string_view s, bool aCapo) override;
    void suRiquadro(double x1, double y1, double x2, double y2) override;
    void suImmagine(std::string_view nome, double x, double y) override;
    void suNuovaPagina() override;
    void suFine() override;
    double altezzaRiga() override;
    double larghezzaTesto(std::string_view s) override;

private:
    OperazioniStampa& m_a;
    OperazioniStampa& m_b;
};

} // namespace dv
