// The bar chart of the statistics window: a title and one horizontal bar for each labelled row.
#pragma once

#include "archive/Statistiche.h"

#include <string>
#include <vector>

class QChartView;

namespace dv {

// Puts into view a new bar chart with that title and no legend, one bar for each row, top to
// bottom, each labelled with its row's text; the chart is made tall enough for every label to be
// read at the window's font size (the view scrolls when it is taller than its room).
void MostraGraficoBarre(QChartView& view, const std::string& titolo, const std::vector<RigaGrafico>& righe);

} // namespace dv
