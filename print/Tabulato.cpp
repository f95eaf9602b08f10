#include "print/Tabulato.h"

#include "core/Helpers.h"
#include "core/Sistema.h"
#include "print/FormatiStampa.h"

#include <algorithm>

namespace dv {

namespace {

// The separator line: the em dash 100 times.
std::string Righello() {
    std::string r;
    r.reserve(300);
    for (int i = 0; i < 100; ++i)
        r += "\u2014";
    return r;
}

const char* NomeTipoGiocata(int tipo) {
    switch (tipo) {
    case 2:
        return "Numero ORO";
    case 3:
        return "Doppio ORO";
    default:
        return "Classico";
    }
}

// Prints the listing of one copy.
class Copia {
public:
    Copia(Corpo& c, const OpzioniTabulato& o, OperazioniStampa& out, Ui& ui, int& primaPagina)
        : m_c(c), m_o(o), m_out(out), m_ui(ui), m_primaPagina(primaPagina), m_righello(Righello()) {}

    void stampa() {
        intestazione();
        if (m_o.pronostico)
            pronosticoECondizioni();
        else
            ++m_primaPagina;
        if (m_o.colonne) colonne();
        m_out.fine();
    }

private:
    void x() { m_out.posX(MargineTabulato); }
    void passo() { m_out.posY(m_out.y() + PassoTabulato); }
    std::string lang(const char* key) { return m_ui.Lang(key); }

    void intestazione() {
        // 1.-2. Page number, header and the program's host, in bold.
        m_out.font("Consolas", 10, true);
        m_out.posizione(MargineTabulato, 250);
        m_out.testo("Pag. " + std::to_string(m_out.pagina()) + " " + m_o.intestazione + " - By Norvane - " +
                    m_o.sitoWeb);
        m_out.grassetto(false);
        // 3.-5. Ruler, the file and the logo beside it.
        x();
        m_out.testo(m_righello);
        x();
        m_out.testoInLinea(lang("0040") + " " + m_c.TitoloFile);
        m_out.immagine(m_o.colori ? "logoColor" : "logoBW", XImmaginiTabulato, m_out.y());
        x();
        m_out.posY(m_out.y() + 2 * PassoTabulato);
        // 6.-7. Columns and cost.
        m_out.testo(lang("0003") + " " + std::to_string(m_c.pronostico.NumColonne));
        x();
        passo();
        const double costo = static_cast<double>(m_c.CostoColonna) * m_c.pronostico.NumColonne;
        m_out.testo(lang("0041") + " " + "\u20AC " + FormatoMigliaia(costo, 2, false));
        passo();
        x();
        // 8. Count of numbers, description and kind of play.
        m_out.testo(lang("0042") + " : " + std::to_string(m_c.pronostico.Quanti) + "\t - " + lang("0043") +
                    " : " + m_c.pronostico.Descrizione +
                    " - Tipo giocata : " + NomeTipoGiocata(m_c.TipoGiocata));
        passo();
    }

    void titolo(const char* key) {
        x();
        m_out.testo(m_righello);
        x();
        m_out.testo(lang(key));
        x();
        m_out.testo(m_righello);
    }

    void pronosticoECondizioni() {
        // 1.-2. The forecast, thirty numbers a line.
        titolo("0044");
        AggiornaPronostico(m_c);
        x();
        for (int i = 0; i < m_c.pronostico.Quanti; ++i) {
            m_out.testoInLinea(FormatoCifre(m_c.pronostico.Numeri[static_cast<size_t>(i)], 2) + " ");
            if ((i + 1) % NumeriPerRigaTabulato == 0) {
                x();
                passo();
            }
        }
        x();
        passo();
        // 3.-4. The conditions, with the "vietato" sign beside them.
        titolo("0045");
        const double y = m_out.y();
        m_out.immagine(m_o.colori ? "vietatoColor" : "vietatoBW", XImmaginiTabulato, y + 100);
        m_out.posY(y);
        x();
        const Condizioni& k = m_c.condizioni;
        // 5. Sum.
        if (k.CondSomma != Falso)
            m_out.testo(lang("0036") + "   : " + std::to_string(k.SommaMinMax[0]) + " -- " +
                        std::to_string(k.SommaMinMax[1]));
        else
            m_out.testo(lang("0036") + "   : -- " + " --");
        // 6.-7. Even and odd numbers.
        x();
        m_out.testoInLinea(lang("0033") + "    : ");
        if (k.CondPari != Falso)
            for (int i = 0; i <= 25; ++i)
                if (k.TabPari[static_cast<size_t>(i)] != 0) m_out.testoInLinea(FormatoCifre(i, 2) + " ");
        m_out.testo("");
        x();
        m_out.testoInLinea(lang("0034") + " : ");
        if (k.CondPari != Falso)
            for (int i = 0; i <= 25; ++i)
                if (k.TabPari[static_cast<size_t>(i)] != 0)
                    m_out.testoInLinea(FormatoCifre(m_c.LenColonna - i, 2) + " ");
        m_out.testo("");
        // 8. Fixed numbers.
        x();
        m_out.testoInLinea(lang("0046") + "   : ");
        if (k.CondFisse != Falso)
            for (int n = 1; n <= 90; ++n)
                if (k.TabFisse[static_cast<size_t>(n)] == 1) m_out.testoInLinea(FormatoCifre(n, 2) + " ");
        m_out.testo("");
        // 9. Consecutive numbers.
        x();
        m_out.testoInLinea(lang("0035") + " : ");
        if (m_c.consecutivi.CondConsecutivi != Falso)
            m_out.testoInLinea(MaskToString(m_c.consecutivi.MaskConsecutivi, m_c.LenColonna));
        m_out.testo("");
        // 10.
        x();
        passo();
    }

    void colonne() {
        x();
        m_out.testo(lang("0003"));
        const int32_t numColonne = std::max<int32_t>(0, m_c.pronostico.NumColonne);
        const int32_t blocchi = (numColonne + ColonnePerBlocco - 1) / ColonnePerBlocco;
        int32_t rimaste = numColonne;
        int suPagina = 0;
        bool primaPagina = true;
        char cella[4] = {'0', '0', ' ', 0};
        for (int32_t b = 1; b <= blocchi; ++b) {
            x();
            m_out.testo(m_righello);
            ++suPagina;
            const int32_t quante = std::min<int32_t>(ColonnePerBlocco, rimaste);
            const int32_t prima = (b - 1) * ColonnePerBlocco + 1;
            // Each column reads downwards: one text row for each position.
            for (int p = 1; p <= m_c.LenColonna; ++p) {
                x();
                for (int32_t j = 0; j < quante; ++j) {
                    const int32_t col = prima + j;
                    const int n = col <= MaxColonne ? m_c.Colonne.get(col, p) : 0;
                    cella[0] = static_cast<char>('0' + n / 10);
                    cella[1] = static_cast<char>('0' + n % 10);
                    m_out.testoInLinea(cella);
                    m_out.testoInLinea("| ");
                }
                passo();
            }
            x();
            m_out.testo(m_righello);
            passo();
            rimaste -= quante;
            // The page break falls between blocks, never after the last.
            if (b < blocchi) {
                if (primaPagina) {
                    if (suPagina % m_primaPagina == 0) {
                        interruzione();
                        primaPagina = false;
                        suPagina = 0;
                    }
                } else if (suPagina % BlocchiPaginaSeguente == 0) {
                    interruzione();
                }
            }
        }
    }

    void interruzione() {
        m_out.nuovaPagina();
        passo();
        x();
        m_out.grassetto(true);
        m_out.testo("Pag. " + std::to_string(m_out.pagina()) + " " + m_c.TitoloFile + " - " + "Dorvanta - " +
                    m_o.sitoWeb);
        m_out.grassetto(false);
        m_out.testo("");
    }

    Corpo& m_c;
    const OpzioniTabulato& m_o;
    OperazioniStampa& m_out;
    Ui& m_ui;
    int& m_primaPagina;
    const std::string m_righello;
};

} // namespace

std::string HostWeb(const std::string& url) {
    const size_t schema = url.find("://");
    const size_t inizio = schema == std::string::npos ? 0 : schema + 3;
    const size_t fine = url.find('/', inizio);
    return url.substr(inizio, fine == std::string::npos ? std::string::npos : fine - inizio);
}

bool ControllaTabulato(const OpzioniTabulato& o, Ui& ui) {
    if (o.colonne || o.pronostico) return true;
    ui.messageBox(ui.Lang("0039"), "", BoxIcon::Exclamation);
    return false;
}

void StampaTabulato(Corpo& c, const OpzioniTabulato& o, OperazioniStampa& out, Ui& ui) {
    if (!o.colonne && !o.pronostico) return;
    // Set once before the first copy; each copy without the forecast raises it.
    int primaPagina = 3;
    out.unita(UnitaStampa::Twips);
    for (int copia = 0; copia < o.copie; ++copia)
        Copia(c, o, out, ui, primaPagina).stampa();
}

} // namespace dv
