// The comparison of two files of columns: a file against itself, lines of other lengths, and the
// grid with its totals row.
#include "tests/prize/SupportoSpoglio.h"

#include <gtest/gtest.h>

using namespace dv;
using namespace dv::test;

namespace {

std::vector<std::string> Cella(const GrigliaTesti& g, int riga) {
    std::vector<std::string> v;
    for (int c = 0; c < g.colonne; ++c)
        v.push_back(g.testo(riga, c));
    return v;
}

TEST(VerificaSistemi, AFileAgainstItselfPutsEachLineInTheTopCategory) {
    const std::vector<RecordNumeri> f{RecordNumeri{}, Riga({1, 2, 3}), Riga({1, 2, 4}), Riga({7, 8, 9})};
    AvanzamentoSpoglio avanzamento;
    const RisultatoVerifica v = VerificaSistema(f, f, avanzamento);
    const GrigliaTesti g = GrigliaVerifica(f, v);
    ASSERT_EQ(g.righe, 5);
    EXPECT_EQ(Cella(g, 0),
              (std::vector<std::string>{"N.", "Col ", "Max", "Min", "Pt.3", "Pt.2", "Pt.1", "Pt.0"}));
    EXPECT_EQ(Cella(g, 1), (std::vector<std::string>{"1", "01-02-03", "3", "0", "1", "1", "0", "1"}));
    EXPECT_EQ(Cella(g, 3), (std::vector<std::string>{"3", "07-08-09", "3", "0", "1", "0", "0", "2"}));
    EXPECT_EQ(Cella(g, 4), (std::vector<std::string>{"TOT", "", "3", "0", "3", "2", "0", "4"}));
}

TEST(VerificaSistemi, LinesOfOtherLengthsCountOnlyWhatTheRulesLookAt) {
    // The first line sets the length 2: the third number of a longer line is not looked at, a
    // shorter line's empty position is no hit. A longer line of the second file counts in full.
    const std::vector<RecordNumeri> f1{RecordNumeri{}, Riga({1, 2}), Riga({3, 4, 5}), Riga({6})};
    const std::vector<RecordNumeri> f2{RecordNumeri{}, Riga({1, 2, 5, 6})};
    AvanzamentoSpoglio avanzamento;
    const RisultatoVerifica v = VerificaSistema(f1, f2, avanzamento);
    EXPECT_EQ(v.conteggi[0], (std::vector<int32_t>{1, 1, 1, 0, 2}));
    // A file of one line: one row and a totals row with the same values.
    const std::vector<RecordNumeri> uno{RecordNumeri{}, Riga({10, 20})};
    const RisultatoVerifica w = VerificaSistema(uno, uno, avanzamento);
    EXPECT_EQ(w.conteggi[0], w.totali);
}

} // namespace
