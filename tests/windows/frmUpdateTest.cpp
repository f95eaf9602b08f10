// The archive window on the offscreen platform, wired into the main window as at start-up, updating
// from a real dorvanta-server.
#include "windows/frmUpdate.h"

#include "platform/Shell.h"
#include "server/ServerProcess.h"
#include "tests/prize/SupportoSpoglio.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmUpdateModello.h"

#include <QClipboard>
#include <QTableView>
#include <QTcpServer>

#include <gtest/gtest.h>

using namespace dv;

namespace {

// The numbers primo + 2, primo + 4, ... (none for 0), Oro oro and Doppio Oro two above it.
Estrazione Draw(const char* data, int concorso, int primo, int oro) {
    std::vector<int> numeri;
    for (int i = 1; primo && i <= 20; ++i)
        numeri.push_back(primo + 2 * i);
    return test::Draw(data, concorso, numeri, oro, oro ? oro + 2 : 0);
}

} // namespace

class FinestraArchivio : public ::testing::Test, protected test::FinestraPrincipaleProva {
protected:
    frmUpdate* m_win = nullptr;
    std::vector<std::string> m_chiamate; // the other windows' hooks, in the order called

    QRadioButton* opzione(int i) { return test::Elemento<QRadioButton>(*m_win, "OptArchivio", i); }

    void SetUp() override {
        apriItaliano();
        // Oldest first; the newest record is a draw without numbers, which the window leaves out.
        test::ScriviArchivio(
            m_corpo->PathArchivioSerale,
            {Draw("01/03/2024", 1, 1, 3), Draw("02/03/2024", 2, 2, 0), Draw("03/03/2024", 3, 0, 0)});
        test::ScriviArchivio(m_corpo->PathArchivio5Min,
                             {Draw("05/03/2024", 287, 5, 7), Draw("05/03/2024", 288, 6, 8)});
        Finestre& f = m_main->finestre();
        f.ricalcolaStatistiche = [this] { m_chiamate.push_back("ricalcola"); };
        f.popolaStatistiche = [this] {
            m_chiamate.push_back("popola");
            return true;
        };
        f.popolaSpoglioEstrazioni = [this] { m_chiamate.push_back("spoglio"); };
        CollegaArchivio(*m_main);
        m_win = m_main->findChild<frmUpdate*>();
        ASSERT_TRUE(m_win);
    }

    void TearDown() override { chiudi(); }
};

TEST_F(FinestraArchivio, ReadsTheEveningArchiveUnseenNewestFirstAndAnOptionLoadsAnotherOffTheWindowThread) {
    EXPECT_FALSE(m_win->isVisible());
    const QString attesa =
        QString::fromLatin1("  02/03/2024   |   002   |   04   06   08   10   12   14   16   18   2"
                            "0   22   24   26   28   30   32   34   36   38   40   42   |          "
                            "       |                                ");
    EXPECT_EQ(test::Testi(*m_win, "lbLast lbTotale lbElaborazione"), attesa + "|2|Caricamento in corso...");
    EXPECT_TRUE(m_main->pulsante(QStringLiteral("cmdArchivio"))->isVisibleTo(m_main.get()));
    for (const char* voce : {"menuArchivioEstrazioni", "mnuUltimaEstrazione"})
        EXPECT_TRUE(m_main->azione(QString::fromLatin1(voce))->isVisible()) << voce;

    m_main->azione(QStringLiteral("menuArchivioEstrazioni"))->trigger();
    EXPECT_FALSE(
        test::Controllo<QPushButton>(*m_win, "cmdStatistiche")->isVisible()); // no statistics window here

    // An option loads its archive off the window thread; a close meanwhile only warns.
    QTest::mouseClick(opzione(1), Qt::LeftButton);
    EXPECT_FALSE(test::Controllo<QPushButton>(*m_win, "cmdUpdate")->isEnabled());
    m_win->close();
    EXPECT_TRUE(m_win->isVisible());
    m_win->attendi();
    ASSERT_FALSE(m_dialogs->boxes.empty());
    EXPECT_EQ(m_dialogs->boxes[0].text, "Caricamento in corso...");
    EXPECT_EQ(m_corpo->TipoArchivio, 1);
    EXPECT_NE(test::Controllo<QLabel>(*m_win, "lbLast")->text().indexOf(QStringLiteral("288")), -1);
    EXPECT_EQ(opzione(1)->palette().color(QPalette::Window), QColor(Qt::yellow));
    EXPECT_EQ(m_chiamate, (std::vector<std::string>{"popola", "ricalcola", "spoglio"}));

    // An empty archive: no grid, no last draw, zero draws.
    QTest::mouseClick(opzione(2), Qt::LeftButton);
    m_win->attendi();
    EXPECT_EQ(test::Testi(*m_win, "lbLast lbTotale"), "|0");

    // The manual import: a file of one's own, chosen starting on the desktop.
    m_dialogs->setNextFileName(DV_SOURCE_DIR "/tests/archive/data/separatori.txt");
    test::Controllo<QPushButton>(*m_win, "cmdUpdate")->click();
    m_win->attendi();
    EXPECT_EQ(m_dialogs->folders.back(), GetSpecialFolder(CartellaDesktop));
    EXPECT_EQ(m_win->modello().rowCount(), 6);
    m_win->close();
    EXPECT_EQ(m_main->findChild<frmUpdate*>(), m_win); // hidden, not closed
}

TEST_F(FinestraArchivio, UpdateFetchesFromTheServerAndAFailedOneKeepsTheArchive) {
    test::ServerProcess server(QStringLiteral(DV_SOURCE_DIR "/server/sample-data"));
    ASSERT_TRUE(server.running());
    m_main->impostazioni().Server = "http://127.0.0.1:9";
    test::Controllo<QPushButton>(*m_win, "cmdUpdate")->click();
    m_win->attendi();
    ASSERT_EQ(m_dialogs->boxes.size(), 1u);
    EXPECT_EQ(m_dialogs->boxes[0].text, "Non è stato possibile scaricare l'archivio delle estrazioni.\nIl "
                                        "server ha rifiutato la connessione.");
    EXPECT_EQ(m_win->modello().rowCount(), 2);

    m_main->impostazioni().Server = server.base();
    test::Controllo<QPushButton>(*m_win, "cmdUpdate")->click();
    opzione(1)->click(); // refused while the update runs
    EXPECT_TRUE(opzione(0)->isChecked());
    m_win->attendi();
    EXPECT_EQ(m_dialogs->boxes.size(), 1u);
    EXPECT_EQ(m_win->modello().rowCount(), 12);
    EXPECT_EQ(m_win->modello().testo(0).mid(2, 10), QStringLiteral("13/01/2026"));
    EXPECT_EQ(m_chiamate,
              (std::vector<std::string>{"ricalcola", "spoglio", "popola", "ricalcola", "spoglio", "popola"}));

    // A server that takes the request and says nothing: the stop reaches the download at once.
    QTcpServer muto;
    muto.listen(QHostAddress::LocalHost, 0);
    m_main->impostazioni().Server = "http://127.0.0.1:" + std::to_string(muto.serverPort());
    test::Controllo<QPushButton>(*m_win, "cmdUpdate")->click();
    ASSERT_TRUE(test::Controllo<QPushButton>(*m_win, "cmdInterrompi")->isVisibleTo(m_win));
    test::Controllo<QPushButton>(*m_win, "cmdInterrompi")->click();
    m_win->attendi();
    EXPECT_EQ(m_dialogs->boxes.back().text,
              "Non è stato possibile scaricare l'archivio delle estrazioni.\nScaricamento interrotto.");
    EXPECT_EQ(m_win->modello().rowCount(), 12);
}

TEST_F(FinestraArchivio, DoubleClickMakesTheForecastOrHandsTheDrawToTheCheckAndCtrlCCopiesRows) {
    m_main->azione(QStringLiteral("mnuUltimaEstrazione"))->trigger();
    EXPECT_EQ(m_corpo->pronostico.Quanti, 0); // the newest record has no numbers

    m_win->flexGrid_DblClick(1); // row 1 stands for the record one below the newest
    EXPECT_EQ(m_corpo->pronostico.Quanti, 20);
    EXPECT_TRUE(m_corpo->Griglia[41] && !m_corpo->Griglia[42]); // 4 to 42 by twos
    ASSERT_EQ(m_dialogs->boxes.size(), 1u);
    EXPECT_EQ(m_dialogs->boxes[0].text.substr(0, 30), "I numeri dell'estrazione \r\n04 ");
    EXPECT_NE(m_dialogs->boxes[0].text.find("\r\n02/03/2024 sono ora il pronostico."), std::string::npos);

    int init = 0, mostra = 0;
    m_main->finestre().initSpoglio = [&] { return ++init > 0; };
    m_main->finestre().mostraSpoglio = [&] { ++mostra; };
    m_corpo->pronostico.NumColonne = 5;
    m_win->flexGrid_DblClick(2);
    EXPECT_EQ(m_corpo->NumeriSpoglio[1], 3);
    EXPECT_EQ(m_corpo->OroSpoglio, 3);
    EXPECT_EQ(m_corpo->DoppioOroSpoglio, 5);
    EXPECT_EQ(init + mostra, 2);
    EXPECT_NE(m_dialogs->boxes.back().text.find("sono pronti per lo spoglio del sistema."),
              std::string::npos);

    auto* grid = test::Controllo<QTableView>(*m_win, "flexGrid");
    grid->selectRow(1);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), m_win->modello().testo(1) + QStringLiteral("\r\n"));
}
