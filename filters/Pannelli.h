// What the two panel windows of the condition tables share: moving between panels, the count of
// ON records that they show, and the compaction that puts the ON records in front at close.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace dv {

// The navigation buttons: one panel, a long step, or the first and last panel.
enum class Spostamento { Indietro1, Indietro2, Avanti1, Avanti2, Primo, Ultimo };

// The panel a navigation button leads to from indice, kept within 1..ultimo.
int IndiceDopo(int indice, Spostamento s, int passoLungo, int ultimo);

// A panel number or count as the windows show it: at least two digits, thousands grouped
// ("05", "150.000"); a negative count keeps its sign.
std::string FormatPannello(int32_t value, char sep = '.');

// Rewrites the table from index 1 with its ON records (Stato -1) first and all the others
// behind them, each group in table order, and sets the count to the number of ON records.
// Records past the stored ones are all zero, so only the stored part needs to move.
template <typename Tabella> int32_t CompattaTabella(Tabella& t) {
    using Record = std::remove_cvref_t<decltype(t[1])>;
    std::vector<Record> accesi, spenti;
    const Tabella& sola = t;
    for (int32_t i = 1; i <= sola.stored(); ++i) (sola[i].Stato == -1 ? accesi : spenti).push_back(sola[i]);
    int32_t i = 1;
    for (const Record& r : accesi) t[i++] = r;
    for (const Record& r : spenti) t[i++] = r;
    const auto n = static_cast<int32_t>(accesi.size());
    t.setCount(n);
    return n;
}

// The panel under edit of a table of condition records, one record at a time. The derived
// editor knows the record; this class keeps the index, the ON state shown and the ON count.
// In a read-only view (a locked system) nothing is edited and nothing is written back.
class NavigazionePannelli {
public:
    NavigazionePannelli(int ultimo, int passoLungo, bool solaLettura)
        : m_ultimo(ultimo), m_passoLungo(passoLungo), m_solaLettura(solaLettura) {}
    virtual ~NavigazionePannelli() = default;
    NavigazionePannelli(const NavigazionePannelli&) = delete;
    NavigazionePannelli& operator=(const NavigazionePannelli&) = delete;

    int indice() const { return m_indice; }
    int ultimo() const { return m_ultimo; }
    int32_t totaleON() const { return m_totaleON; }
    int32_t totaleOFF() const { return m_ultimo - m_totaleON; }
    bool acceso() const { return m_acceso; }
    bool solaLettura() const { return m_solaLettura; }

    // Saves the panel at the current index, moves, and shows the record found there.
    void sposta(Spostamento s);
    // The option ON (true) or OFF clicked. Only a change counts: the ON count follows it.
    // Returns true when the state changed.
    bool clickStato(bool on);
    // Empties the panel; the table is written only by the next move or the close. The ON count
    // goes down by one even when the panel was OFF: the compaction at close puts it right.
    void cancellaPannello();
    // Saves the panel, compacts the table and sets its count. Nothing happens in a read-only view.
    void chiudi();

protected:
    // Panel 1 and the ON count from the table's count, at load and after the table was refilled.
    void iniziaDa(int32_t conteggioTabella);
    void setAcceso(bool on) { m_acceso = on; }
    void setTotaleON(int32_t n) { m_totaleON = n; }
    void vaiA(int indice) { m_indice = indice; }

    virtual void salvaPannello() = 0;   // the panel into the record at indice()
    virtual void mostraRecord() = 0;    // the record at indice() onto the panel
    virtual void svuotaPannello() = 0;  // an empty, OFF panel
    virtual void compatta() = 0;

private:
    int m_ultimo;
    int m_passoLungo;
    bool m_solaLettura;
    int m_indice = 1;
    int32_t m_totaleON = 0;
    bool m_acceso = false;
};

// The panels of one table: the compaction at close and the record that a panel shows.
template <typename Tabella> class PannelliTabella : public NavigazionePannelli {
public:
    using Record = std::remove_cvref_t<decltype(std::declval<Tabella&>()[1])>;

protected:
    PannelliTabella(Tabella& tabella, int passoLungo, bool solaLettura)
        : NavigazionePannelli(Tabella::capacity, passoLungo, solaLettura), m_tabella(tabella) {}

    // The record at the current index; past the stored ones, an empty record.
    Record recordCorrente() const {
        const Tabella& t = m_tabella;
        return indice() <= t.stored() ? t[indice()] : Record{};
    }
    void compatta() override { CompattaTabella(m_tabella); }

    Tabella& m_tabella;
};

} // namespace dv
