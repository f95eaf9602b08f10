// A grid of texts written to a CSV file: every cell of a row followed by ";", the last one too,
// one row a line (CR LF), with no quoting: a ";" inside a cell makes one field more.
#pragma once

#include <functional>
#include <string>

namespace dv {

class Ui;

// The grid as the writer reads it: its size and the text of a cell (row and column from 0).
struct GrigliaTesti {
    int righe = 0;
    int colonne = 0;
    std::function<std::string(int riga, int colonna)> testo;
};

// Writes every row of the grid, from row 0, to path. The file is written beside path and put in
// its place when complete. Returns true on success; on a failure shows the box that names
// MSHFlexGridTocsv, leaves any older file as it was and returns false.
bool MSHFlexGridTocsv(const GrigliaTesti& grid, const std::string& path, Ui& ui);

} // namespace dv
