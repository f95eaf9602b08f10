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

TEST(ArchivioFiltro, ParameterMustBeARealDateOfEightDigits) {
    EXPECT_EQ(DataParametro("20260104"), 20260104);
    for (const char* bad : {"", "2026014", "202601040", "2026-01-04", "20261301", "20260230", "abcdefgh"})
        EXPECT_FALSE(DataParametro(bad)) << bad;
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
}

TEST(ArchivioFiltro, RequestPathsMustStayPlain) {
    EXPECT_EQ(PercorsoRelativoSicuro("/public/10elotto/ver.asp"), "public/10elotto/ver.asp");
    for (const char* bad : {"", "/", "public/x", "/public//x", "/public/../x", "/public/./x", "/..", "/a/b/",
                            "/a\\..\\b", "/a b", "/%2e%2e/x"})
        EXPECT_FALSE(PercorsoRelativoSicuro(bad)) << bad;
}
