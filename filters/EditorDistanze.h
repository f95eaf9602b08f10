// The panel of one number distance condition, and the limits of the distances that the
// forecast allows.
#pragma once

#include "core/Corpo.h"
#include "filters/Pannelli.h"

#include <array>

namespace dv {

// The smallest and largest distance that neighbouring numbers of a column can have, from the
// forecast's numbers in ascending order p[0..c-1] and the column length L.
struct LimitiDistanza {
    bool calcolati = false; // false when the forecast cannot fill a column: nothing is limited
    int minima = 1;         // the least p[i+1] - p[i], starting from 90
    int massima = 89;       // p[c-1] - p[L-2]: the L-1 lowest numbers, then the highest
};
LimitiDistanza LimitiDaPronostico(const std::array<bool, 90>& griglia, int lenColonna);

class EditorDistanze : public PannelliTabella<TabellaDistanze> {
public:
    static constexpr int PassoLungo = 5;
    static constexpr int NumCoppie = 24;
    static constexpr int NumDistanze = 89;

    // The load of the window: the limits, panel 1, the ON count from the table's count and
    // record 1. With an empty forecast the limits, the hiding of labels and the showing of
    // record 1 are left out, and the panel stays empty.
    EditorDistanze(const Corpo& c, TabellaDistanze& tabella);

    const LimitiDistanza& limiti() const { return m_limiti; }
    bool pronosticoVuoto() const { return m_pronosticoVuoto; }
    // Pair k (1..24), positions k and k+1, lies within a column.
    bool coppiaVisibile(int k) const { return m_pronosticoVuoto || k < m_lenColonna; }
    // Distance d (1..89) can occur between neighbours of a column of the forecast.
    bool distanzaVisibile(int d) const {
        return !m_limiti.calcolati || (d >= m_limiti.minima && d <= m_limiti.massima);
    }
    bool coppia(int k) const { return m_coppie[static_cast<size_t>(k)]; }
    bool distanzaMin(int d) const { return m_min[static_cast<size_t>(d)]; }
    bool distanzaMax(int d) const { return m_max[static_cast<size_t>(d)]; }

    // Toggle a label; each returns true when it changed.
    bool clickCoppia(int k);
    bool clickDistanzaMin(int d);
    bool clickDistanzaMax(int d);

    // The panel as a record: the selected pairs ascending, the selected distances with their
    // counts, ON/OFF.
    CondizioneDistanza leggiPannello() const;

protected:
    void salvaPannello() override;
    void mostraRecord() override;
    void svuotaPannello() override;

private:
    bool toggle(std::array<bool, 90>& labels, int i);

    int m_lenColonna;
    bool m_pronosticoVuoto;
    LimitiDistanza m_limiti;
    std::array<bool, 90> m_coppie{}; // elements 1..24
    std::array<bool, 90> m_min{};    // elements 1..89
    std::array<bool, 90> m_max{};    // elements 1..89
};

} // namespace dv
