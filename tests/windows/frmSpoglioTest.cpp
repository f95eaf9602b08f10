// The check windows, wired into the main window, driven through their controls on the offscreen
// platform.
#include "windows/frmSpoglio.h"
#include "tests/prize/SupportoSpoglio.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmSpoglioEstrazioni.h"
#include "windows/frmSpoglioGriglia.h"
#include "windows/frmVerificaSistemi.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QListView>
#include <QTableView>

#include <gtest/gtest.h>

#include <sstream>

using namespace dv;
using namespace dv::test;

namespace {

// A box typed into and then left, as the user's next click leaves it.
void Digita(QLineEdit* box, const QString& text) {
    box->setText(text);
    QFocusEvent lasciata(QEvent::FocusOut);
    QApplication::sendEvent(box, &lasciata);
}

class FinestreSpoglio : public ::testing::Test, protected FinestraPrincipaleProva {
protected:
    void SetUp() override {
        apriItaliano();
        CollegaSpoglio(*m_main);
        // The system and the archive of the golden CSV, played as Numero ORO at 2,5.
        ImpostaSistema(*m_corpo, 3, {{1, 2, 3}, {1, 2, 40}, {41, 42, 43}, {3, 5, 7}});
        SetForecast(*m_corpo, {1, 2, 3, 5, 7, 40, 41, 42, 43});
        ImpostaGiocata(*m_corpo, 2, 2.5f);
        m_corpo->TitoloFile = "prova.dvs";
        m_corpo->mArrEstrazioni = ArrayEstrazioni{Estrazione{}, Draw("28/02/2024", 0, Range(1, 20), 3, 4),
                                                  Draw("01/03/2024", 12, Range(30, 49), 90, 0),
                                                  Draw("01/03/2024", 13, Range(2, 21), 0, 0),
                                                  Draw("02/03/2024", 288, Range(41, 60), 41, 42)};
        m_main->LockGUI();
    }
    void TearDown() override { chiudi(); }
};

TEST_F(FinestreSpoglio, SingleCheckFromTheMainWindowShowsTheStateValidatesSortsAndListsTheWinners) {
    auto* f = m_main->findChild<frmSpoglio*>();
    QPushButton* cmd = m_main->pulsante("cmdSpoglio");
    ASSERT_TRUE(cmd->isVisibleTo(m_main.get()) && cmd->isEnabled());
    // Columns longer than 10: neither the menu entry nor the archive window's hand-over opens it.
    m_corpo->LenColonna = 11;
    m_main->azione("menuSpoglio")->trigger();
    EXPECT_FALSE(f->isVisible() || m_main->finestre().initSpoglio());
    m_corpo->LenColonna = 3;
    m_corpo->NumeriSpoglio[1] = 7;
    m_corpo->OroSpoglio = 41;
    cmd->click();
    ASSERT_TRUE(f->isVisible());
    EXPECT_EQ(Testi(*f, "meSpoglio(0) meNumORO meA lblCategoria(3) lblCategoria(4)"), "07|41|4|Punti 3|-");
    // Numero ORO: a category for each count of hits up to the length.
    EXPECT_TRUE(Elemento<QListView>(*f, "listVin", 0)->isEnabled());
    EXPECT_FALSE(Elemento<QListView>(*f, "listVin", 4)->isEnabled());
    // An emptied box cannot clear its number: it comes back at the next init.
    Digita(Elemento<QLineEdit>(*f, "meSpoglio", 0), "");
    EXPECT_EQ(m_corpo->NumeriSpoglio[1], 7);

    // The draw 20 down to 1, Oro 3, typed box after box: sorted, then checked.
    for (int i = 0; i < 20; ++i)
        Digita(Elemento<QLineEdit>(*f, "meSpoglio", i), QString::number(20 - i));
    Digita(Controllo<QLineEdit>(*f, "meNumORO"), "03");
    Controllo<QPushButton>(*f, "cmdSpoglio")->click();
    EXPECT_EQ(Testi(*f, "meSpoglio(0) meSpoglio(19) labVincite(3) lblMaxPunti"), "01|20|2| 3");
    EXPECT_EQ(Elemento<QListView>(*f, "listVin", 3)->model()->index(1, 0).data().toString(), "C. 4");
    EXPECT_EQ(Testi(*f, "labTot"), QLocale().toString(655.0, 'f', 2));

    // A repeated number: the box, the focus on the first of the two.
    Digita(Elemento<QLineEdit>(*f, "meSpoglio", 5), "01");
    Controllo<QPushButton>(*f, "cmdSpoglio")->click();
    EXPECT_EQ(m_dialogs->boxes.back().text, m_main->ui().Lang("0025"));
    Controllo<QPushButton>(*f, "cmdCancella")->click();
    EXPECT_EQ(m_corpo->NumeriSpoglio[1], 0);
}

TEST_F(FinestreSpoglio, ArchiveCheckFillsTheGridFiltersItAndWritesTheCsv) {
    auto* f = m_main->findChild<frmSpoglioEstrazioni*>();
    m_main->azione("menuSpoglioEstrazioni")->trigger();
    ASSERT_TRUE(f->isVisible());
    EXPECT_EQ(Controllo<QComboBox>(*f, "cmbDal")->count(), 3);
    Controllo<QPushButton>(*f, "cmdSpoglioEstrazioni")->click();
    EXPECT_FALSE(Controllo<QWidget>(*f, "cmdSpoglioEstrazioni")->isEnabled() && f->lavoro().inCorso());
    f->lavoro().attendi();
    QTableView* grid = Controllo<QTableView>(*f, "flexGrid");
    ASSERT_EQ(grid->model()->rowCount(), 5);
    EXPECT_EQ(grid->model()->headerData(19, Qt::Horizontal).toString(), "Euro");
    EXPECT_TRUE(grid->model()->index(0, 5).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(grid->model()->index(1, 4).data(Qt::BackgroundRole).value<QColor>(), QColor(0x80, 0xff, 0x80));
    EXPECT_EQ(Testi(*f, "lblNumEstr"), "4");
    EXPECT_EQ(m_dialogs->boxes.back().text, m_main->ui().Lang("0026") + " Numero ORO [90] del 01/03/2024");

    // A filter on the Euro column keeps the totals row and the draws that won 325.
    Controllo<QCheckBox>(*f, "chkFiltri")->setChecked(true);
    QComboBox* euro = f->griglia().filtro(19);
    ASSERT_TRUE(euro);
    euro->setCurrentIndex(euro->findText("325"));
    EXPECT_EQ(grid->model()->rowCount(), 2);

    // The CSV holds every row, also those a filter hides, and is handed to the desktop.
    Controllo<QPushButton>(*f, "cmdCSV")->click();
    ASSERT_EQ(m_dialogs->documents.size(), 1u);
    std::ifstream got(m_dialogs->documents[0], std::ios::binary),
        want(DV_SOURCE_DIR "/tests/prize/data/spoglio_estrazioni.csv");
    std::stringstream g, w;
    g << got.rdbuf();
    w << want.rdbuf();
    EXPECT_EQ(g.str(), w.str());
    EXPECT_EQ(m_dialogs->documents[0], m_corpo->AppDir + "/csv/prova.csv");
}

TEST_F(FinestreSpoglio, ComparisonAsksForBothFilesThenCountsAndCopies) {
    auto* f = m_main->findChild<frmVerificaSistemi*>();
    m_main->azione("menuVerificaSistema")->trigger();
    ASSERT_TRUE(f->isVisible());
    Controllo<QPushButton>(*f, "cmdVerificaSistema")->click();
    EXPECT_EQ(m_dialogs->boxes.back().text, m_main->ui().Lang("0120"));

    const std::string uno = m_corpo->AppDir + "/txt/uno.txt", due = m_corpo->AppDir + "/txt/due.txt";
    std::filesystem::create_directories(m_corpo->AppDir + "/txt");
    std::ofstream(uno) << " 01 02 03 \r\n 01 02 04 \r\n";
    std::ofstream(due) << "1-2-3\r\n7 8 9\r\n";
    m_dialogs->setNextFileName(uno);
    Controllo<QPushButton>(*f, "cmdLoad1")->click();
    Controllo<QPushButton>(*f, "cmdVerificaSistema")->click();
    EXPECT_EQ(m_dialogs->boxes.back().text, m_main->ui().Lang("0121"));
    m_dialogs->setNextFileName(due);
    Controllo<QPushButton>(*f, "cmdLoad2")->click();
    Controllo<QPushButton>(*f, "cmdVerificaSistema")->click();
    f->lavoro().attendi();
    QTableView* grid = Controllo<QTableView>(*f, "flexGrid");
    ASSERT_EQ(grid->model()->rowCount(), 3);
    EXPECT_EQ(grid->model()->index(2, 0).data().toString(), "TOT");
    EXPECT_EQ(Testi(*f, "lblNumEstr"), "2");
    // The totals row is an ordinary row: a filter hides it.
    Controllo<QCheckBox>(*f, "chkFiltri")->setChecked(true);
    QComboBox* n = f->griglia().filtro(0);
    n->setCurrentIndex(n->findText("1"));
    EXPECT_EQ(grid->model()->rowCount(), 1);
    grid->setCurrentIndex(grid->model()->index(0, 1));
    grid->selectionModel()->select(grid->model()->index(0, 1), QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "01-02-03\r\n");
}

} // namespace
