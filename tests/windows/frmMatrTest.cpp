// frmMatr on the offscreen platform: both ways of opening, adapting and the update.
#include "windows/frmMatr.h"
#include "matrix/Matrice.h"

#include "matrix/SupportoMatrici.h"
#include "support/FakeUi.h"
#include "support/StateBuilder.h"
#include "windows/FinestraPrincipaleProva.h"

#include <QListWidget>
#include <QThread>

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

namespace dv {
namespace {

using test::MatriceDi;

class frmMatrTest : public testing::Test {
protected:
    frmMatrTest() {
        ImpostaAppDir(corpo, dir.path().toStdString());
        // A forecast of 5 numbers, columns of 3.
        corpo.LenColonna = 3;
        test::SetForecast(corpo, {10, 20, 30, 40, 50});
        const double oggi = OggiSeriale();
        MATRIX_STRUCTURE buona = MatriceDi(5, 2, 3, {{1, 2, 3}, {1, 4, 5}, {2, 4, 5}}, oggi - 10, oggi);
        buona.FIXED_NUMBERS_OF_MATRIX_F = 1;
        ScriviMatrice(matrice("buona.mqvn"), buona);
        ScriviMatrice(matrice("scaduta.mqvn"),
                      MatriceDi(5, 3, 3, {{1, 2, 3}, {3, 4, 5}}, oggi - 10, oggi - 1));
        ScriviMatrice(matrice("altra.mqvn"), MatriceDi(6, 3, 3, {{1, 2, 3}, {4, 5, 6}}));
    }
    std::string matrice(const std::string& nome) {
        return PercorsoIn(corpo.AppDir, {"matrici", nome.c_str()});
    }
    // Clicks the row of flQVN whose file is nome.
    void scegli(frmMatr& f, const std::string& nome) {
        auto* lista = test::Controllo<QListWidget>(f, "flQVN");
        int riga = 0;
        for (size_t i = 0; i < f.catalogo().size(); ++i)
            if (!f.catalogo()[i].FILE_NAME.empty() && f.catalogo()[i].FILE_NAME != nome)
                ++riga;
            else if (f.catalogo()[i].FILE_NAME == nome)
                break;
        lista->setCurrentRow(riga);
    }
    ServiziMatrici servizi() {
        ServiziMatrici s;
        s.ordina = [this] {
            ++ordini;
            std::swap(corpo.pronostico.Numeri[0], corpo.pronostico.Numeri[4]); // the user's new order
        };
        s.chiedi = [this](const std::string&, const std::string& p) {
            chiestoDallaFinestra = QThread::currentThread() == qApp->thread();
            return std::optional<std::string>(p);
        };
        s.download = [](const std::string&, const std::string&) { return false; };
        s.apriCartella = [this](const std::string& p) { cartelle.push_back(p); };
        return s;
    }

    QTemporaryDir dir;
    Corpo corpo;
    test::FakeUi ui;
    Impostazioni imp;
    int ordini = 0;
    bool chiestoDallaFinestra = false; // the fixed number's input box asked on the window thread
    std::vector<std::string> cartelle;
};

TEST_F(frmMatrTest, AdaptModeListsWhatFitsWithTheCustomRowAndEnablesByTheRow) {
    frmMatr f(corpo, ui, imp, frmMatr::Modo::Adatta, nullptr, servizi());
    EXPECT_EQ(f.windowTitle(), "<0019> (3)");
    EXPECT_EQ(test::Controllo<QListWidget>(f, "flQVN")->font().family(), "Courier New");
    auto* adatta = test::Controllo<QPushButton>(f, "cmdAdatta");
    auto* txt = test::Controllo<QPushButton>(f, "cmdMatriceTXT");
    EXPECT_TRUE(test::Controllo<QPushButton>(f, "cmdUpdateMatrix")->isHidden());

    scegli(f, "CUSTOM");
    EXPECT_FALSE(adatta->isEnabled());
    EXPECT_TRUE(txt->isEnabled());
    EXPECT_EQ(test::Controllo<QLineEdit>(f, "txtAuthor")->text(), "NORVANE");

    scegli(f, "scaduta.mqvn");
    EXPECT_EQ(test::Testi(f, "txtColMatrix lblScaduta lblOK"), "2|<0010>|");
    EXPECT_EQ(test::Controllo<QLabel>(f, "lblScaduta")->palette().color(QPalette::Window), QColor(Qt::red));
    EXPECT_FALSE(adatta->isEnabled() || txt->isEnabled());

    scegli(f, "buona.mqvn");
    ASSERT_TRUE(adatta->isEnabled());
    adatta->click();
    f.attendi();
    EXPECT_EQ(ordini, 1);
    EXPECT_EQ(f.result(), QDialog::Accepted);
    // The order 50 20 30 40 10: column 1 (indices 1 2 3) is 20 30 50.
    EXPECT_EQ(corpo.pronostico.NumColonne, 3);
    EXPECT_EQ(corpo.Colonne.get(1, 1), 20);
    EXPECT_EQ(corpo.Colonne.get(1, 3), 50);
    EXPECT_TRUE(chiestoDallaFinestra);
}

TEST_F(frmMatrTest, CancelledTextDialogLeavesAnEmptySystemAndADamagedFileShowsRed) {
    corpo.pronostico.NumColonne = 7;
    corpo.pronostico.Descrizione = "vecchio";
    {
        std::fstream file(matrice("buona.mqvn"), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(145);
        file.put(4);
    }
    frmMatr f(corpo, ui, imp, frmMatr::Modo::Adatta, nullptr, servizi());
    scegli(f, "buona.mqvn");
    EXPECT_EQ(test::Controllo<QLabel>(f, "lblOK")->text(), "<0009>");
    EXPECT_FALSE(test::Controllo<QPushButton>(f, "cmdAdatta")->isEnabled());
    scegli(f, "CUSTOM");
    test::Controllo<QPushButton>(f, "cmdMatriceTXT")->click(); // the chooser answers Cancel
    f.attendi();
    EXPECT_EQ(f.result(), QDialog::Accepted);
    EXPECT_EQ(corpo.pronostico.NumColonne, 0);
    EXPECT_EQ(corpo.pronostico.Descrizione, "");
}

TEST_F(frmMatrTest, UpdateRunsOffTheWindowThreadWithTheWindowDisabledAndStopsBeforeTheNextFile) {
    std::mutex m;
    std::condition_variable cv;
    bool via = false;
    std::vector<std::string> chiesti;
    auto s = servizi();
    s.download = [&](const std::string& url, const std::string& path) {
        std::unique_lock lock(m);
        chiesti.push_back(url);
        if (url.find("lista.asp") != std::string::npos) {
            std::ofstream(path) << "UNO.DAT\r\nDUE.DAT\r\n";
            return true;
        }
        cv.wait(lock, [&] { return via; }); // the first file hangs until the test lets it go
        ScriviMatrice(path, MatriceDi(7, 2, 2, {{1, 2, 3, 4, 5, 6, 7}}));
        return true;
    };
    ui.texts["0190"] = "%1/%2";
    frmMatr f(corpo, ui, imp, frmMatr::Modo::Elenco, nullptr, s);
    test::Controllo<QPushButton>(f, "cmdUpdateMatrix")->click();
    EXPECT_FALSE(f.isEnabled());
    ASSERT_TRUE(f.finestraAvanzamento() && f.finestraAvanzamento()->isVisible());
    auto* lbl = f.finestraAvanzamento()->findChild<QLabel*>(QStringLiteral("lblAvanzamento"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return lbl->text() == "1/2"; })) << lbl->text().toStdString();
    f.reject(); // a close during the update is refused
    EXPECT_EQ(ui.boxes.back().text, "<0192>");
    EXPECT_EQ(ui.busyDepth, 1);
    f.finestraAvanzamento()->findChild<QPushButton*>(QStringLiteral("cmdInterrompi"))->click();
    {
        std::lock_guard lock(m);
        via = true;
    }
    cv.notify_all();
    f.attendi();
    EXPECT_TRUE(f.isEnabled() && !f.finestraAvanzamento()->isVisible());
    EXPECT_EQ(chiesti.size(), 2u); // the list and UNO, not DUE
    EXPECT_TRUE(std::filesystem::exists(matrice("UNO.mqvn")));
    EXPECT_EQ(f.windowTitle(), "<0019> (4)");
    EXPECT_EQ(ui.busyDepth, 0);
    test::Controllo<QPushButton>(f, "cmdOpenDir")->click();
    EXPECT_EQ(cartelle, std::vector<std::string>{PercorsoIn(corpo.AppDir, {"matrici"})});
}

} // namespace
} // namespace dv
