// The statistics window on the offscreen platform, wired into the main window as at start-up.
#include "windows/frmStatistiche.h"

#include "tests/prize/SupportoSpoglio.h"
#include "tests/windows/FinestraPrincipaleProva.h"

#include <QBarCategoryAxis>
#include <QChart>
#include <QChartView>

#include <gtest/gtest.h>

using namespace dv;

namespace {

// Four days of five-minute draws; the numbers shift with the day and the draw.
ArrayEstrazioni Archivio() {
    ArrayEstrazioni a(1);
    for (int g = 1; g <= 4; ++g)
        for (int c = 1; c <= 5; ++c) {
            std::vector<int> numeri;
            for (int k = 1; k <= 20; ++k)
                numeri.push_back(g + c + 3 * k);
            a.push_back(test::Draw(QString::asprintf("%02d/06/2025", g).toStdString(), c, numeri));
        }
    return a;
}

} // namespace

class FinestraStatistiche : public ::testing::Test, protected test::FinestraPrincipaleProva {
protected:
    frmStatistiche* m_stat = nullptr;

    QRadioButton* opzione(int i) { return test::Elemento<QRadioButton>(*m_stat, "optStat", i); }
    QStringList righe() {
        const auto assi =
            m_stat->findChild<QChartView*>(QStringLiteral("chartStat"))->chart()->axes(Qt::Vertical);
        QStringList r;
        // Top to bottom, with plain blanks.
        if (!assi.isEmpty())
            for (const QString& c : static_cast<QBarCategoryAxis*>(assi.first())->categories())
                r.prepend(QString(c).replace(QChar(0x00A0), QLatin1Char(' ')));
        return r;
    }
    int estrazioni() {
        int draws = 0;
        for (int32_t v : m_stat->tabelle().pari)
            draws += v;
        return draws;
    }

    void SetUp() override {
        apriItaliano();
        m_corpo->mArrEstrazioni = Archivio();
        CollegaStatistiche(*m_main);
        m_stat = m_main->findChild<frmStatistiche*>();
        ASSERT_TRUE(m_stat);
    }
    void TearDown() override { chiudi(); }
};

TEST_F(FinestraStatistiche, ComputedUnseenAtStartShownFromTheMenuWithItsChartsAndHiddenOnClose) {
    EXPECT_FALSE(m_stat->isVisible());
    // The evening archive: the draw-number lists hidden, but at 1 and 288 to take whole dates.
    EXPECT_EQ(test::Testi(*m_stat, "cmbDal cmbAl cmbConcDal cmbConcAl"), "01/06/2025|04/06/2025|1|288");
    EXPECT_TRUE(test::Controllo(*m_stat, "cmbConcDal")->isHidden());
    EXPECT_EQ(estrazioni(), 20);
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(m_corpo->AppDir) / "temp" /
                                        std::filesystem::path(m_stat->percorsoCsv()).filename()));
    // The first chart: runs 01..20, its option black on yellow.
    EXPECT_EQ(opzione(0)->palette().color(QPalette::Window), QColor(Qt::yellow));
    EXPECT_EQ(righe().size(), 20);
    EXPECT_EQ(righe().first(), QStringLiteral("01 -->      20"));

    QAction* voce = m_main->azione(QStringLiteral("menuStatistiche"));
    EXPECT_TRUE(voce->isVisible());
    voce->trigger();
    EXPECT_TRUE(m_stat->isVisible());
    QTest::mouseClick(opzione(4), Qt::LeftButton);
    EXPECT_EQ(righe().first().left(9), QStringLiteral("0210-0280"));
    EXPECT_TRUE(opzione(0)->palette().color(QPalette::Window) != QColor(Qt::yellow));
    m_stat->optStat(5);
    EXPECT_EQ(righe().size(), 90);
    m_stat->findChild<QPushButton*>(QStringLiteral("cmdTxt"))->click();
    EXPECT_EQ(m_dialogs->documents, std::vector<std::string>{m_stat->percorsoCsv()});
    m_stat->close();
    EXPECT_EQ(m_main->findChild<frmStatistiche*>(), m_stat); // hidden, not deleted
}

TEST_F(FinestraStatistiche, AnArchiveChangeRecomputesWithoutABoxAndTheFiveMinuteOneListsDrawNumbers) {
    // The updated archive lacks the first date the lists show: the counts come after the lists.
    m_corpo->mArrEstrazioni.erase(m_corpo->mArrEstrazioni.begin() + 1, m_corpo->mArrEstrazioni.begin() + 6);
    m_main->finestre().ricalcolaStatistiche();
    m_main->finestre().popolaStatistiche();
    EXPECT_TRUE(m_dialogs->boxes.empty());
    EXPECT_EQ(test::Testi(*m_stat, "cmbDal"), "02/06/2025");
    EXPECT_EQ(estrazioni(), 15);

    m_corpo->TipoArchivio = Archivio5Minuti;
    m_corpo->mArrEstrazioni.resize(11); // the second and third days
    m_main->finestre().aggiornaStatistiche();
    EXPECT_FALSE(test::Controllo(*m_stat, "cmbConcDal")->isHidden());
    EXPECT_EQ(test::Testi(*m_stat, "cmbAl"), "03/06/2025");
    test::Controllo<QComboBox>(*m_stat, "cmbConcDal")->setCurrentIndex(2);
    m_main->finestre().ricalcolaStatistiche();
    EXPECT_EQ(m_stat->tabelle().ultimo - m_stat->tabelle().primo + 1, 8);
}
