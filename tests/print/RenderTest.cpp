// The renderer on real PDF files, rendered back to pictures by pdftoppm (poppler-utils); the
// pages are counted by the print command's test.
#include "platform/StampanteQt.h"
#include "print/Schedine.h"

#include "settings/TempDir.h"
#include "support/FakeUi.h"

#include <QGuiApplication>
#include <QImage>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace dv {
namespace {

struct Render : ::testing::Test {
    test::TempDir dir;
    Corpo c;
    test::FakeUi ui;

    Render() {
        c.LenColonna = 10;
        c.TitoloFile = "prova.dvs";
        c.pronostico.NumColonne = 1;
        const uint8_t colonna[10] = {3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
        c.Colonne.setColumn(1, colonna, 10);
    }
    // The first page of a PDF rendered at dpi.
    QImage primaPagina(const std::string& pdf, int dpi) {
        const std::string prefix = dir.file("pag");
        const std::string cmd = "pdftoppm -r " + std::to_string(dpi) + " -png -f 1 -l 1 -singlefile '" + pdf +
                                "' '" + prefix + "'";
        EXPECT_EQ(std::system(cmd.c_str()), 0) << cmd;
        return QImage(QString::fromStdString(prefix + ".png"));
    }
    static bool nero(const QImage& img, double xMm, double yMm, int dpi) {
        const QColor c =
            img.pixelColor(static_cast<int>(xMm / 25.4 * dpi), static_cast<int>(yMm / 25.4 * dpi));
        return c.lightness() < 80;
    }
};

TEST_F(Render, MarksFallOnTheCalibration) {
    const std::string pdf = dir.file("schede.pdf");
    auto job = LavoroStampa::pdf(pdf);
    struct : AvanzamentoSchedine {
        bool fermata() override { return false; }
        void scheda(int32_t, const std::string&) override {}
    } avanzamento;
    SlipCalibration cal;
    cal.POSX_UNO = 20.0f;
    StampaScheda10eLottoNew(c, cal, {}, {1, 1}, job->operazioni(), avanzamento, ui);
    std::string errore;
    ASSERT_TRUE(job->concludi(errore)) << errore;
    EXPECT_FALSE(std::filesystem::exists(pdf + ".tmp"));
    const QImage p = primaPagina(pdf, 127); // 5 pixels a millimetre
    ASSERT_FALSE(p.isNull());
    // The column holds 3 to 12: the third box of the first row is marked, 2 * 7.8 mm right of
    // the number 1, and the second is not; the mark is 2 mm wide.
    EXPECT_TRUE(nero(p, 20 + 2 * 7.8 + 1, 26 + 1, 127));
    EXPECT_FALSE(nero(p, 20 + 7.8 + 1, 26 + 1, 127));
    EXPECT_FALSE(nero(p, 20 + 2 * 7.8 + 2.5, 26 + 1, 127));
}

TEST_F(Render, UnwritableFileIsReported) {
    auto job = LavoroStampa::pdf(dir.file("no/such/folder/x.pdf"));
    StampaTestTaratura(c, SlipCalibration{}, {}, job->operazioni());
    std::string errore;
    EXPECT_FALSE(job->concludi(errore));
    EXPECT_NE(errore.find("x.pdf"), std::string::npos);
}

} // namespace
} // namespace dv

int main(int argc, char** argv) {
    // No screen is needed to paint on files.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
