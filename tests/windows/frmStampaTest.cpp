// frmTabulato, frmStampa with frmPrnInCorso, and frmTaratura10eLotto on the offscreen platform,
// printing through the "PDF" entry into files of a temporary folder.
#include "windows/frmStampa.h"
#include "print/StampantePdf.h"
#include "windows/frmPrnInCorso.h"
#include "windows/frmTabulato.h"
#include "windows/frmTaratura10eLotto.h"

#include "support/FakeUi.h"
#include "windows/FinestraPrincipaleProva.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace dv {
namespace {

using test::Controllo;
using test::Testi;

int Pagine(const std::string& pdf) {
    std::FILE* p = ::popen(("pdfinfo '" + pdf + "' 2>/dev/null").c_str(), "r");
    std::string out;
    char buf[2048];
    for (size_t n; (n = std::fread(buf, 1, sizeof buf, p)) > 0;)
        out.append(buf, n);
    ::pclose(p);
    const size_t at = out.find("Pages:");
    return at == std::string::npos ? -1 : std::stoi(out.substr(at + 6));
}

struct Finestre : ::testing::Test {
    QTemporaryDir dir;
    std::unique_ptr<Corpo> c = std::make_unique<Corpo>();
    test::FakeUi ui;
    test::QueueDialogs dialogs;
    Impostazioni imp;
    SlipCalibration cal;

    Finestre() {
        c->AppDir = dir.path().toStdString();
        c->LenColonna = 6;
        sistema(3);
        imp.StampanteTabulato = NomeStampantePdf;
    }
    void sistema(int32_t n) {
        c->pronostico.NumColonne = n;
        for (int32_t j = 1; j <= n; ++j)
            for (int p = 1; p <= 6; ++p)
                c->Colonne.set(j, p, static_cast<uint8_t>((j + 7 * p) % 90 + 1));
    }
    std::string file(const char* name) const { return dir.filePath(QString::fromLatin1(name)).toStdString(); }
};

TEST_F(Finestre, ListingCopiesNothingSelectedAndThePdfEntry) {
    frmTabulato f(*c, ui, imp);
    Controllo<QScrollBar>(f, "VsCopie")->setValue(3); // one page a copy
    EXPECT_EQ(Controllo<QLabel>(f, "labCopie")->text(), QStringLiteral("3"));

    Controllo<QCheckBox>(f, "chkCol")->setChecked(false);
    Controllo<QCheckBox>(f, "chkProno")->setChecked(false);
    f.cmdStampa_Click();
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0039>");
    EXPECT_EQ(ui.calls.back(), "messageBox"); // no file was asked for

    Controllo<QCheckBox>(f, "chkProno")->setChecked(true);
    ui.setNextFileName(file("tabulato.pdf"));
    f.cmdStampa_Click();
    EXPECT_FALSE(f.isEnabled());
    f.attendi();
    EXPECT_EQ(Pagine(file("tabulato.pdf")), 3);
}

TEST_F(Finestre, SlipsCheckTheRangePrintOnePageEachAndTheStopQuestionEndsTheJob) {
    frmStampa f(*c, ui, dialogs, imp, cal);
    f.carica();
    auto* cmb = Controllo<QComboBox>(f, "cmbStampante");
    auto* fino = Controllo<QLineEdit>(f, "meA");
    EXPECT_EQ(Testi(f, "meDa meA"), QStringLiteral("1|3"));
    fino->setText(QStringLiteral("4"));
    f.cmdStampa_Click();
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0024>");

    fino->setText(QStringLiteral("3"));
    cmb->setCurrentIndex(cmb->findText(QStringLiteral("PDF")));
    ui.setNextFileName(file("schede.pdf"));
    f.cmdStampa_Click();
    EXPECT_TRUE(f.progresso().isVisible());
    f.attendi();
    EXPECT_FALSE(f.progresso().isVisible());
    EXPECT_EQ(f.progresso().testoScheda(), QStringLiteral("<0030> n.00003"));
    EXPECT_EQ(Pagine(file("schede.pdf")), 3);

    sistema(3000);
    fino->setText(QStringLiteral("3000"));
    ui.setNextFileName(file("stop.pdf"));
    f.cmdPdf_Click();
    dialogs.setNextAnswer(false);
    f.progresso().cmdInterrompi_Click();
    dialogs.setNextAnswer(true);
    f.progresso().cmdInterrompi_Click();
    f.attendi();
    ASSERT_EQ(dialogs.boxes.size(), 2u);
    EXPECT_EQ(dialogs.boxes[0].text, "<0020>");
    EXPECT_EQ(dialogs.beeps, 2);
    EXPECT_LT(Pagine(file("stop.pdf")), 3000);
    EXPECT_EQ(ui.boxes.size(), 1u); // no error after the stop
}

TEST_F(Finestre, CalibrationBarsTextsAndTheSavedFile) {
    frmTaratura10eLotto f(*c, ui, imp, cal, "PDF");
    f.carica();
    // A first use knows no printer: the box, and the printer to calibrate in the list's text.
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Stampante non configurata");
    EXPECT_EQ(Controllo<QComboBox>(f, "cmbStampante")->currentText(), QStringLiteral("PDF"));

    f.barra(0)->setValue(112);
    EXPECT_EQ(f.casella(0)->text(), QStringLiteral("11.2"));
    f.optColor_Click(0);
    f.cmdSalva_Click();
    EXPECT_EQ(f.windowTitle(), QStringLiteral("Taratura Scheda 10eLotto (PDF.prn)"));
    const SlipCalibration letta = LoadCalibration(PercorsoTaratura(c->AppDir, "PDF"));
    EXPECT_EQ(letta.POSX_UNO, 11.2f);
    EXPECT_EQ(letta.INTENSITA_STAMPA, 9999);
}

struct FinestraPrincipale : ::testing::Test, test::FinestraPrincipaleProva {
    void TearDown() override { chiudi(); }
};

TEST_F(FinestraPrincipale, PrintingEntriesShowAndFollowTheLockedSystem) {
    apriItaliano();
    frmMAIN& main = *m_main;
    CollegaStampa(main);
    EXPECT_TRUE(main.azione(QStringLiteral("menuSchedine"))->isVisible());
    EXPECT_TRUE(main.pulsante(QStringLiteral("cmdTabulato"))->isVisibleTo(&main));
    EXPECT_FALSE(main.pulsante(QStringLiteral("cmdSchedine"))->isEnabled());

    m_corpo->pronostico.NumColonne = 2;
    m_corpo->Colonne.set(2, 1, 5);
    main.LockGUI();
    ASSERT_TRUE(main.pulsante(QStringLiteral("cmdSchedine"))->isEnabled());
    // The listing is modal over the main window.
    bool modale = false;
    QTimer::singleShot(0, [&] {
        QWidget* w = QApplication::activeModalWidget();
        modale = w && w->objectName() == QStringLiteral("frmTabulato");
        if (w) w->close();
    });
    main.azione(QStringLiteral("menuTabulato"))->trigger();
    EXPECT_TRUE(modale);
    // The slips disable the main window until they close.
    main.pulsante(QStringLiteral("cmdSchedine"))->click();
    frmStampa* schede = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* s = qobject_cast<frmStampa*>(w)) schede = s;
    ASSERT_TRUE(schede && schede->isVisible());
    EXPECT_FALSE(main.isEnabled());
    EXPECT_EQ(Controllo<QLineEdit>(*schede, "meA")->text(), QStringLiteral("2"));
    schede->close();
    EXPECT_TRUE(main.isEnabled());
}

} // namespace
} // namespace dv
