#include "server/ArchivioFiltro.h"

#include <gtest/gtest.h>

using namespace dv::server;

TEST(ArchivioFiltro, DateOfADrawLineUnderEverySeparator) {
    EXPECT_EQ(DataRigaEstrazione("04/01/2026\t1\t5"), 20260104);
    EXPECT_EQ(DataRigaEstrazione("4/1/2026;1;5"), 20260104);
    EXPECT_EQ(DataRigaEstrazione("29/02/2024 1"), 20240229);
    EXPECT_FALSE(DataRigaEstrazione("29/02/2026 1"));
    EXPECT_FALSE(DataRigaEstrazione("Data\tConcorso"));
    EXPECT_FALSE(DataRigaEstrazione("2026/01/04 1"));
    EXPECT_FALSE(DataRigaEstrazione(""));
}

TEST(ArchivioFiltro, KeepsDrawsFromTheDateOnAndEveryOtherLine) {
    const std::string archivio = "Data\tConcorso\r\n"
                                 "03/01/2026\t1\t5\r\n"
                                 "04/01/2026\t1\t6\r\n"
                                 "\r\n"
                                 "02/02/2025\t9\t7\r\n"
                                 "05/01/2026\t2\t8";
    EXPECT_EQ(FiltraArchivioDal(archivio, 20260104), "Data\tConcorso\r\n"
                                                     "04/01/2026\t1\t6\r\n"
                                                     "\r\n"
                                                     "05/01/2026\t2\t8");
    // Fed in three pieces cut anywhere, the streaming filter gives the same text.
    const std::string lunga = archivio + "\n02/01/2026\t" + std::string(40, 'x') + "\n04/01/2026\n01/01/2026";
    const std::string atteso = FiltraArchivioDal(lunga, 20260104);
    EXPECT_EQ(atteso.find("02/01"), std::string::npos);
    EXPECT_NE(atteso.find("\n04/01/2026\n"), std::string::npos);
    for (size_t i = 0; i <= lunga.size(); ++i)
        for (size_t j = i; j <= lunga.size(); j += 3) {
            FiltroArchivioDal filtro(20260104);
            std::string out;
            filtro.aggiungi(std::string_view(lunga).substr(0, i), out);
            filtro.aggiungi(std::string_view(lunga).substr(i, j - i), out);
            filtro.aggiungi(std::string_view(lunga).substr(j), out);
            filtro.fine(out);
            ASSERT_EQ(out, atteso) << i << " " << j;
        }
}

TEST(ArchivioFiltro, RequestPathsMustStayPlain) {
    EXPECT_EQ(PercorsoRelativoSicuro("/public/10elotto/ver.asp"), "public/10elotto/ver.asp");
    for (const char* bad : {"", "/", "public/x", "/public//x", "/public/../x", "/public/./x", "/..", "/a/b/",
                            "/a\\..\\b", "/a b", "/%2e%2e/x", "/.git/config", "/public/.htaccess"})
        EXPECT_FALSE(PercorsoRelativoSicuro(bad)) << bad;
}
