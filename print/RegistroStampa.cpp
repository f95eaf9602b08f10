#include "print/RegistroStampa.h"

#include <cstdio>

namespace dv {

namespace {

// Two decimals, whatever the locale.
std::string Numero(double v) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.2f", v);
    // A negative zero prints as "-0.00"; the layouts never mean it.
    if (buf[0] == '-' && std::string_view(buf) == "-0.00") return "0.00";
    return buf;
}

std::string Citato(std::string_view s) {
    std::string out(1, '"');
    for (char ch : s) {
        if (ch == '"') out += '"';
        out += ch;
    }
    out += '"';
    return out;
}

} // namespace

double AltezzaRigaNominale(const FontStampa& f) {
    // Line spacing of the stand-in fonts, as a fraction of the size in points: Inconsolata for
    // "Consolas", Comic Neue for "Comic Sans MS", Liberation Sans for "Arial".
    // Comic Neue and Liberation Sans both space their lines at 1.15.
    return f.punti * (f.nome == "Consolas" ? 1.1 : 1.15);
}

void RegistroStampa::suUnita(UnitaStampa u) {
    m_out << "units " << (u == UnitaStampa::Twips ? "twips" : "mm") << '\n';
}

void RegistroStampa::suFont(const FontStampa& f) {
    m_out << "font " << f.nome << ' ' << Numero(f.punti) << ' ' << (f.grassetto ? "bold" : "regular") << '\n';
}

void RegistroStampa::suPosizione(double x, double y) {
    m_out << "pos " << Numero(x) << ' ' << Numero(y) << '\n';
}

void RegistroStampa::suTesto(double, double, std::string_view s, bool aCapo) {
    m_out << (aCapo ? "text " : "inline ") << Citato(s) << '\n';
}

void RegistroStampa::suRiquadro(double x1, double y1, double x2, double y2) {
    m_out << "box " << Numero(x1) << ' ' << Numero(y1) << ' ' << Numero(x2) << ' ' << Numero(y2) << '\n';
}

void RegistroStampa::suImmagine(std::string_view nome, double x, double y) {
    m_out << "picture " << nome << ' ' << Numero(x) << ' ' << Numero(y) << '\n';
}

void RegistroStampa::suNuovaPagina() {
    m_out << "page\n";
}

void RegistroStampa::suFine() {
    m_out << "end\n";
    m_out.flush();
}

double RegistroStampa::altezzaRiga() {
    return PuntiInUnita(AltezzaRigaNominale(fontCorrente()), unitaCorrente());
}

double RegistroStampa::larghezzaTesto(std::string_view s) {
    // Counted in characters of UTF-8 at 0.55 of the size: only the renderer draws by it.
    size_t caratteri = 0;
    for (unsigned char ch : s)
        if ((ch & 0xC0) != 0x80) ++caratteri;
    return PuntiInUnita(fontCorrente().punti * 0.55 * static_cast<double>(caratteri), unitaCorrente());
}

void StampaDoppia::suUnita(UnitaStampa u) {
    m_a.unita(u);
    m_b.unita(u);
}

void StampaDoppia::suFont(const FontStampa& f) {
    m_a.font(f.nome, f.punti, f.grassetto);
    m_b.font(f.nome, f.punti, f.grassetto);
}

void StampaDoppia::suPosizione(double x, double y) {
    m_a.posizione(x, y);
    m_b.posizione(x, y);
}

void StampaDoppia::suTesto(double, double, std::string_view s, bool aCapo) {
    if (aCapo) {
        m_a.testo(s);
        m_b.testo(s);
    } else {
        m_a.testoInLinea(s);
        m_b.testoInLinea(s);
    }
}

void StampaDoppia::suRiquadro(double x1, double y1, double x2, double y2) {
    m_a.riquadro(x1, y1, x2, y2);
    m_b.riquadro(x1, y1, x2, y2);
}

void StampaDoppia::suImmagine(std::string_view nome, double x, double y) {
    m_a.immagine(nome, x, y);
    m_b.immagine(nome, x, y);
}

void StampaDoppia::suNuovaPagina() {
    m_a.nuovaPagina();
    m_b.nuovaPagina();
}

void StampaDoppia::suFine() {
    m_a.fine();
    m_b.fine();
}

double StampaDoppia::altezzaRiga() {
    return m_a.misuraRiga();
}

double StampaDoppia::larghezzaTesto(std::string_view s) {
    return m_a.misuraTesto(s);
}

} // namespace dv
