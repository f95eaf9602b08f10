#include "filters/ImportFiltri.h"

#include "tests/archive/SupportoArchivio.h"
#include "tests/settings/TempDir.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace dv {
namespace {

using test::Draw;
using test::Range;

// Three days of the five-minute game: four draws on the 1st, two on the 2nd, three on the 3rd;
// the first number of draw i is i.
ArrayEstrazioni Archivio() {
    ArrayEstrazioni a(1);
    const std::pair<const char*, int> d[] = {{"01/03/2024", 1}, {"01/03/2024", 2}, {"01/03/2024", 5},
                                             {"01/03/2024", 6}, {"02/03/2024", 1}, {"02/03/2024", 2},
                                             {"03/03/2024", 3}, {"03/03/2024", 4}, {"03/03/2024", 9}};
    for (size_t i = 0; i < std::size(d); ++i)
        a.push_back(Draw(d[i].first, d[i].second, Range(static_cast<int>(i) + 1, static_cast<int>(i) + 20)));
    return a;
}

// The first number of each filter of the table, 1..count: which draws were taken.
std::vector<int> Primi(const TabellaFiltri& t, int32_t count) {
    std::vector<int> v;
    for (int32_t i = 1; i <= count; ++i) {
        const auto& numeri = t[i].Numeri;
        v.push_back(static_cast<int>(std::find(numeri.begin() + 1, numeri.end(), 1) - numeri.begin()));
    }
    return v;
}

TEST(ImportFiltri, RangesOfDatesAndDrawNumbersAndReadyMadeRanges) {
    const ArrayEstrazioni a = Archivio();
    test::FakeUi ui;
    TabellaFiltri t;
    // Within the first date from draw 3 on (5 is the first not below it); within the last up to 4.
    int32_t n = loadArchiveToFilters(t, a, ui, "01/03/2024", "03/03/2024", 3, 4, 0b11);
    EXPECT_EQ(Primi(t, n), (std::vector<int>{3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(t[1].Presenze, 0b11);
    EXPECT_EQ(t[1].Stato, Vero);
    // A draw number beyond the day's last takes the day's last draw.
    n = loadArchiveToFilters(t, a, ui, "01/03/2024", "02/03/2024", 7, 288, 1);
    EXPECT_EQ(Primi(t, n), (std::vector<int>{4, 5, 6}));
    // An empty date leaves the table and gives 0.
    EXPECT_EQ(loadArchiveToFilters(t, a, ui, "", "02/03/2024", 1, 288, 1), 0);
    EXPECT_EQ(Primi(t, 3), (std::vector<int>{4, 5, 6}));
    EXPECT_TRUE(ui.boxes.empty());
    // A start after the end is the guard's failure, and 0.
    EXPECT_EQ(loadArchiveToFilters(t, a, ui, "03/03/2024", "01/03/2024", 1, 288, 1), 0);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text,
              "Error -2147211504 (Data DAL > Data AL) in procedure loadArchiveToFilters of Modulo corpo");
    EXPECT_EQ(ui.busyDepth, 0);

    // The ready-made ranges and the date list.
    EXPECT_EQ(DateArchivio(a), (std::vector<std::string>{"01/03/2024", "02/03/2024", "03/03/2024"}));
    const IntervalloImport ultime = UltimeEstrazioni(a, 4);
    EXPECT_EQ(ultime.dal + " " + ultime.concDal + " " + ultime.al + " " + ultime.concAl,
              "02/03/2024 2 03/03/2024 9");
    // 157 draws of an archive of 9 are all of them.
    EXPECT_EQ(UltimeEstrazioni(a, 157).concDal, "1");
    const IntervalloImport giorni = UltimiGiorni(a, 2);
    EXPECT_EQ(giorni.dal + " " + giorni.concDal + " " + giorni.al + " " + giorni.concAl,
              "02/03/2024 1 03/03/2024 288");
    EXPECT_EQ(loadArchiveToFilters(t, a, ui, giorni.dal, giorni.al, 1, 288, 1), 5);
    EXPECT_TRUE(DateArchivio(ArrayEstrazioni(2)).empty());
}

TEST(ImportFiltri, LinesOfAFileUpToTheLimitOfTheTable) {
    const RigaFiltro r = RigaToColonnaFiltro("1-2,3;4.5\t90", 6);
    ASSERT_EQ(r.esito, RigaFiltro::Esito::Ok);
    EXPECT_EQ(r.colonna.Presenze, 6);
    for (int n : {1, 2, 3, 4, 5, 90})
        EXPECT_EQ(r.colonna.Numeri[static_cast<size_t>(n)], 1) << n;
    EXPECT_EQ(RigaToColonnaFiltro("1 99999999999", 1).campo, "99999999999");
    EXPECT_EQ(RigaToColonnaFiltro("1, 2", 1).esito, RigaFiltro::Esito::NonNumero); // empty field

    test::FakeUi ui;
    test::TempDir dir;
    TabellaFiltri t;
    t[1].Numeri[77] = 1;
    t.setCount(1);
    const auto n = loadFileToFilters(t, ui, dir.write("a.txt", "1 2 3\r\n\r\n  4\t5  \r\n7 95\r\n8 9\n"), 1);
    ASSERT_TRUE(n.has_value());
    EXPECT_EQ(Primi(t, *n), (std::vector<int>{1, 4, 8}));
    EXPECT_EQ(t[1].Numeri[77], 0);  // the table was replaced
    ASSERT_EQ(ui.boxes.size(), 1u); // the line with 95 named
    EXPECT_NE(ui.boxes[0].text.find("4: \"7 95\" (95)"), std::string::npos);
    // A field that is no number: the table stays as it was, and the line is named.
    EXPECT_FALSE(loadFileToFilters(t, ui, dir.write("b.txt", "10 11\nab 12\n"), 1).has_value());
    EXPECT_EQ(Primi(t, 3), (std::vector<int>{1, 4, 8}));
    EXPECT_NE(ui.boxes.back().text.find("2: \"ab 12\""), std::string::npos);
    // A bad line is shown by its first characters only; a line of megabytes is refused unread.
    EXPECT_FALSE(loadFileToFilters(t, ui, dir.write("c.txt", "1\n" + std::string(3000, 'x') + "\n"), 1));
    EXPECT_LT(ui.boxes.back().text.size(), 200u);
    EXPECT_FALSE(loadFileToFilters(t, ui, dir.write("d.txt", "1\n" + std::string(1 << 22, '1')), 1));
    EXPECT_NE(ui.boxes.back().text.find("Overflow: <0269>"), std::string::npos) << ui.boxes.back().text;
    EXPECT_EQ(Primi(t, 3), (std::vector<int>{1, 4, 8}));
    EXPECT_FALSE(loadFileToFilters(t, ui, "/nonexistent/x.txt", 1).has_value());
    EXPECT_EQ(ui.busyDepth, 0);

    // The limit of the table, with its warning.
    std::string righe;
    for (int i = 0; i < MaxFiltri + 3; ++i)
        righe += std::to_string(1 + i % 90) + "\n";
    const size_t prima = ui.boxes.size();
    EXPECT_EQ(loadFileToFilters(t, ui, dir.write("f.txt", righe), 1), MaxFiltri);
    ASSERT_EQ(ui.boxes.size(), prima + 1);
    EXPECT_EQ(ui.boxes.back().text, "Raggiunto il limite di 150000 colonne filtro");
    EXPECT_EQ(ui.boxes.back().title, "Warning");
    // An archive stops at its index 150,000, whatever the count.
    ArrayEstrazioni a(1);
    for (int i = 0; i < MaxFiltri; ++i)
        a.push_back(Draw("01/03/2024", 1 + i % 288, Range(1, 20)));
    for (int i = 1; i <= 5; ++i)
        a.push_back(Draw("02/03/2024", i, Range(1, 20)));
    EXPECT_EQ(loadArchiveToFilters(t, a, ui, "01/03/2024", "02/03/2024", 100, 288, 1), MaxFiltri - 99);
    EXPECT_EQ(ui.boxes.size(), prima + 2);
}

} // namespace
} // namespace dv
