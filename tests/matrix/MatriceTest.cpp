#include "matrix/Matrice.h"
#include "matrix/Catalogo.h"
#include "matrix/cBinaryFileStream.h"
#include "matrix/cCRC32.h"
#include "matrix/SupportoMatrici.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <fstream>
#include <random>

namespace dv {
namespace {

using test::CartellaTemporanea;
using test::MatriceDi;

void Scrivi(const std::string& path, const std::vector<uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

TEST(cCRC32Test, MatchesZlibOnRandomBuffersWholeAndThroughTheStream) {
    const cCRC32 crc;
    std::mt19937 rng(7);
    CartellaTemporanea dir("crc");
    for (int n = 0; n < 200; ++n) {
        std::vector<uint8_t> buf(rng() % (n < 100 ? 64 : 40000));
        for (auto& b : buf)
            b = static_cast<uint8_t>(rng());
        const uLong atteso = crc32(0L, buf.data(), static_cast<uInt>(buf.size()));
        uint32_t nostro = 0;
        crc.GetByteArrayCrc32(buf.data(), buf.size(), nostro);
        ASSERT_EQ(nostro, atteso) << "size " << buf.size();
        if (n % 20 != 0) continue;
        // Through the stream, in blocks: the larger buffers cross the block size.
        Scrivi(dir.in("b.bin"), buf);
        cBinaryFileStream s;
        s.File(dir.in("b.bin"));
        crc.GetFileCrc32(s, nostro);
        EXPECT_EQ(nostro, atteso) << "size " << buf.size();
    }
}

TEST(MatriceTest, HeaderAndBodyRoundTripByPositionWithTheSealAtTheEnd) {
    CartellaTemporanea dir("rt");
    MATRIX_STRUCTURE m = MatriceDi(5, 2, 3, {{1, 2, 3}, {3, 4, 5}}, 45000.0, 46000.5);
    m.FIXED_NUMBERS_OF_MATRIX_F = 1;
    m.AUTHOR = std::string(40, 'x'); // cut to its 30 bytes
    const std::string path = dir.in("matrici/a.mqvn");
    ScriviMatrice(path, m);

    const std::vector<uint8_t> bytes = LeggiFileMatrice(path);
    ASSERT_EQ(bytes.size(), 142u + 6 + 4);
    // Body by position: position 1 of both columns, then position 2, then 3.
    EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 142, bytes.begin() + 148),
              (std::vector<uint8_t>{1, 3, 2, 4, 3, 5}));
    EXPECT_EQ(std::string(bytes.begin() + 9, bytes.begin() + 19), "100       ");
    EXPECT_EQ(std::string(bytes.begin() + 127, bytes.begin() + 142), "matriceqvnv0001");
    EXPECT_EQ(bytes[5], 2); // C little-endian
    EXPECT_EQ(bytes[125], 0xFF);
    const uLong crc = crc32(0L, bytes.data(), static_cast<uInt>(bytes.size() - 4));
    EXPECT_EQ(bytes[148] | bytes[149] << 8 | bytes[150] << 16 | static_cast<uLong>(bytes[151]) << 24, crc);

    const MATRIX_STRUCTURE r = ReadMatrix("  " + path + " ");
    EXPECT_EQ(SerializzaMatrice(r), bytes); // every field read back
    EXPECT_EQ(r.AUTHOR, std::string(30, 'x'));
    EXPECT_TRUE(CheckMatrixCrc(path));
    EXPECT_EQ(ScriviIntestazione(ReadMatrixHeader(path)),
              std::vector<uint8_t>(bytes.begin(), bytes.begin() + 142));
}

TEST(MatriceTest, DamagedShortAndLyingFilesAreListedAsUnsoundAndNeverReadPastTheirEnd) {
    CartellaTemporanea dir("danni");
    const std::vector<uint8_t> buono = SerializzaMatrice(MatriceDi(5, 3, 3, {{1, 2, 3}, {3, 4, 5}}));
    auto cambiato = buono;
    cambiato[145] ^= 1; // one body byte
    auto firma = buono;
    firma[127] = 'M';
    auto bugiardo = buono;
    bugiardo[5] = 0x40; // C far beyond the body the file holds, header and seal resealed
    {
        bugiardo.erase(bugiardo.end() - 4, bugiardo.end()); // the old seal
        uLong crc = crc32(0L, bugiardo.data(), static_cast<uInt>(bugiardo.size()));
        for (int i = 0; i < 4; ++i)
            bugiardo.push_back(static_cast<uint8_t>(crc >> (8 * i)));
    }
    auto negativo = bugiardo;
    negativo[8] = 0x80;
    Scrivi(dir.in("matrici/cambiato.mqvn"), cambiato);
    Scrivi(dir.in("matrici/firma.mqvn"), firma);
    Scrivi(dir.in("matrici/bugiardo.mqvn"), bugiardo);
    Scrivi(dir.in("matrici/negativo.mqvn"), negativo);
    Scrivi(dir.in("matrici/minimo.mqvn"), {1, 2, 3});

    const auto cat = BuildMatrixCatalog(dir.str(), 0, 3, 46000);
    ASSERT_EQ(cat.size(), 5u);
    for (const auto& e : cat) {
        // Only the changed body keeps its signature; the signature is sealed too.
        EXPECT_EQ(e.SIGNATURE_OK, e.FILE_NAME == "cambiato.mqvn" ? -1 : 0) << e.FILE_NAME;
        EXPECT_EQ(e.CRC_OK, 0) << e.FILE_NAME;
    }
    EXPECT_FALSE(CheckMatrixCrc(dir.in("matrici/cambiato.mqvn")));
    EXPECT_FALSE(CheckMatrixCrc(dir.in("matrici/minimo.mqvn")));
    EXPECT_TRUE(CheckMatrixCrc(dir.in("matrici/bugiardo.mqvn"))); // sealed, yet its header lies
    for (const char* nome : {"bugiardo.mqvn", "negativo.mqvn", "minimo.mqvn"})
        EXPECT_EQ(test::Errore([&] { ReadMatrix(dir.in(std::string("matrici/") + nome)); }).substr(0, 3),
                  "62 ")
            << nome;
    EXPECT_NE(test::Errore([&] { ReadMatrix(dir.in("matrici/manca.mqvn")); }), "none");
}

} // namespace
} // namespace dv
