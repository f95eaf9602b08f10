// The comparison of two text files of columns: for each line of the second file, how many lines
// of the first share 0, 1, 2, ... numbers with it. No prize and no system are involved.
#pragma once

#include "prize/PianiColonne.h"
#include "system_files/ColonneTesto.h"
#include "system_files/GrigliaCsv.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dv {

struct RisultatoVerifica {
    int lenFile1 = 0; // the count of the first line of the first file
    // Row r (from 0) of the lines of the second file: conteggi[r][h] lines of the first file with
    // h hits for h = 0..lenFile1, then the lowest and the highest hits.
    std::vector<std::vector<int32_t>> conteggi;
    std::vector<int32_t> totali; // the sums by index; the top two the lowest Min and highest Max
    bool fermato = false;
};

// Compares every line of colonne2 (records 1..) with every line of colonne1, positions
// 1..lenFile1 of each line of the first file. Both must hold at least one record.
RisultatoVerifica VerificaSistema(const std::vector<RecordNumeri>& colonne1,
                                  const std::vector<RecordNumeri>& colonne2, AvanzamentoSpoglio& avanzamento);

// The grid: lenFile1 + 5 columns, the header, the row of line r and the totals row.
std::vector<std::string> IntestazioneVerifica(int lenFile1);
std::vector<std::string> CelleVerifica(const RisultatoVerifica& v, const RecordNumeri& riga, size_t r);
std::vector<std::string> TotaliVerifica(const RisultatoVerifica& v);
// The whole grid as text: the header, a row per line of the second file, the totals last. It
// reads colonne2 and v, which must outlive it.
GrigliaTesti GrigliaVerifica(const std::vector<RecordNumeri>& colonne2, const RisultatoVerifica& v);

} // namespace dv
