// The panel of one filter column in the window of a filter table (AND, OR or XOR): the
// forecast-aware grid of numbers, the allowed counts, and the table it edits.
#pragma once

#include "core/Corpo.h"
#include "core/Ui.h"
#include "filters/Pannelli.h"

#include <array>

namespace dv {

enum class TipoFiltro : int32_t { AND = 0, OR = 1, XOR = 2 };

// The table of the state that a kind of filter selects.
TabellaFiltri& TabellaDelTipo(Corpo& c, TipoFiltro tipo);

class EditorFiltri : public PannelliTabella<TabellaFiltri> {
public:
    static constexpr int PassoLungo = 100;

    // The load of the window: panel 1, the ON count from the table's count, record 1 shown.
    // The numbers that can be chosen are those selected on the forecast grid at this moment.
    EditorFiltri(const Corpo& c, TabellaFiltri& tabella);

    // Number n (1..90) belongs to the forecast and can be chosen.
    bool nelPronostico(int n) const { return m_pronostico[static_cast<size_t>(n - 1)]; }
    // The label of count k (0..25) is shown: a column can hold k of the filter's numbers.
    bool presenzaVisibile(int k) const { return k <= m_lenColonna; }
    bool numero(int n) const { return m_numeri[static_cast<size_t>(n - 1)]; }
    bool presenza(int k) const { return m_presenze[static_cast<size_t>(k)]; }
    int numSelezionati() const { return m_numSelezionati; }

    // Toggles number n when it belongs to the forecast. Returns true when it changed.
    bool clickNumero(int n);
    // Toggles the allowed count k. Returns true when it changed.
    bool clickPresenza(int k);
    // Asks "0006" and "0007"; on yes the whole table is zeroed and record 1 shown.
    // Returns true when the table was cleared.
    bool cancellaTabella(Ui& ui);
    // After the table was refilled from elsewhere: panel 1, the ON count from the table, record 1.
    // The panel shown before is not saved.
    void ricarica();

    // The panel as a record: the selected numbers, the sum of 2^k of the selected counts, ON/OFF.
    ColonnaFiltro leggiPannello() const;

protected:
    void salvaPannello() override;
    void mostraRecord() override;
    void svuotaPannello() override;

private:
    int m_lenColonna;
    std::array<bool, 90> m_pronostico;
    std::array<bool, 90> m_numeri{};
    std::array<bool, 26> m_presenze{};
    int m_numSelezionati = 0;
};

} // namespace dv
