// frmImpostazioni and the start's version check with frmNewVersion, on the offscreen platform,
// with the shipped language files and dorvanta-server on 127.0.0.1.
#include "platform/ApplyLanguage.h"
#include "platform/DownloadFile.h"
#include "settings/classINI.h"
#include "settings/Lingua.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmNewVersion.h"

#include "server/ServerProcess.h"
#include "support/FakeUi.h"
#include "windows/Controlli.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <fstream>

using dv::test::Controllo;
using dv::test::FakeUi;
using dv::test::ServerProcess;

namespace {

dv::ServiziImpostazioni servizi(std::vector<std::string> printers, dv::Scaricatore download = {}) {
    if (!download) download = [](const std::string&, const std::string&) { return false; };
    return {[printers] { return printers; }, download};
}

std::vector<std::string> testiBox(const FakeUi& ui) {
    std::vector<std::string> out;
    for (const auto& b : ui.boxes)
        out.push_back(b.text);
    return out;
}

// A data folder with the shipped language files when asked, the settings and a recording Ui.
struct FinestraImpostazioni : ::testing::Test {
    QTemporaryDir dir;
    dv::Impostazioni imp;
    FakeUi ui;

    std::string app() const { return dir.path().toStdString(); }
    void conLingue() {
        for (const char* f : {"italiano.lng", "english.lng"})
            QFile::copy(QStringLiteral(DV_SOURCE_DIR "/languages/") + QString::fromLatin1(f),
                        dir.filePath(QString::fromLatin1(f)));
    }
    void conImpostazioni(const std::string& text) {
        std::ofstream(dir.filePath(QStringLiteral("dorvantaqvn.ini")).toStdString(), std::ios::binary)
            << text;
    }
};

} // namespace

TEST_F(FinestraImpostazioni, ShowsTheFileChoosingALanguageAppliesItAtOnceAndSavingStoresIt) {
    conLingue();
    conImpostazioni("[IMPOSTAZIONI]\r\nINTESTAZIONE=RICEVITORIA 42\r\nSTAMPANTE TABULATO=Laser B\r\n"
                    "MODALITA' RICALCOLO=TRUE\r\nSORGENTE RICALCOLO=1\r\nLINGUA=italiano\r\n");
    dv::Lingua lingua{app(), ""};
    dv::ReadConfiguration(app(), imp, lingua);
    dv::frmImpostazioni f(imp, lingua, ui, nullptr, servizi({"Laser A", "Laser B"}));
    EXPECT_TRUE(ui.boxes.empty()) << testiBox(ui).front();
    // The language in capitals; the second source option is the memory.
    EXPECT_EQ(
        dv::test::Testi(f, "frmImpostazioni optModoRicalcolo(1) mskIntestazione cmbStampante cmbLingua"),
        "Impostazioni|MEMORIA|RICEVITORIA 42|Laser B|ITALIANO");
    EXPECT_TRUE(Controllo<QCheckBox>(f, "chkStatoRicalcolo")->isChecked());
    EXPECT_TRUE(dv::elementoArray<QRadioButton>(f, QStringLiteral("optModoRicalcolo"), 1)->isChecked());

    QComboBox* lingue = Controllo<QComboBox>(f, "cmbLingua");
    lingue->setCurrentIndex(lingue->findText(QStringLiteral("ENGLISH")));
    emit lingue->activated(lingue->currentIndex());
    EXPECT_EQ(lingua.CurrentLanguage, "ENGLISH");
    EXPECT_EQ(f.windowTitle(), "Settings");
    EXPECT_EQ(ui.busyDepth, 0);

    // An unticked mode hides the source options, whose value is saved all the same.
    Controllo<QCheckBox>(f, "chkStatoRicalcolo")->setChecked(false);
    EXPECT_TRUE(dv::elementoArray<QRadioButton>(f, QStringLiteral("optModoRicalcolo"), 0)->isHidden());
    dv::elementoArray<QRadioButton>(f, QStringLiteral("optModoRicalcolo"), 0)->setChecked(true);
    Controllo<QLineEdit>(f, "mskIntestazione")->setText(QStringLiteral("BAR SPORT"));
    Controllo<QComboBox>(f, "cmbStampante")->setCurrentIndex(0);
    Controllo<QPushButton>(f, "cmdSalva")->click();
    EXPECT_EQ(f.result(), QDialog::Accepted);
    const dv::classINI ini(dv::FileImpostazioni(app()));
    EXPECT_EQ(ini.getProperty("IMPOSTAZIONI", "INTESTAZIONE", ""), "BAR SPORT");
    EXPECT_EQ(ini.getProperty("IMPOSTAZIONI", "STAMPANTE TABULATO", ""), "Laser A");
    EXPECT_EQ(ini.getProperty("IMPOSTAZIONI", "MODALITA' RICALCOLO", ""), "FALSE");
    EXPECT_EQ(ini.getProperty("IMPOSTAZIONI", "SORGENTE RICALCOLO", ""), "2");
    EXPECT_EQ(ini.getProperty("IMPOSTAZIONI", "LINGUA", ""), "ENGLISH");
}

TEST_F(FinestraImpostazioni,
       AMachineWithoutPrintersIsToldSoAndASettingsFileThatCannotBeWrittenKeepsTheWindow) {
    conLingue();
    dv::Lingua lingua{app(), "ITALIANO"};
    dv::frmImpostazioni f(imp, lingua, ui, nullptr, servizi({}));
    // No language is set in the file: the list asks for one, then the printers are missing.
    EXPECT_EQ(testiBox(ui), (std::vector<std::string>{"Select Language", "Printer not found"}));
    QDir().mkdir(dir.filePath(QStringLiteral("dorvantaqvn.ini"))); // a folder in the file's place
    ui.boxes.clear();
    Controllo<QPushButton>(f, "cmdSalva")->click();
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_NE(ui.boxes[0].text.find("<0262>) in procedure cmdSalva_Click of Form frmImpostazioni"),
              std::string::npos);
    EXPECT_NE(f.result(), QDialog::Accepted);
}

TEST_F(FinestraImpostazioni, FirstStartSaysWhyNoLanguageCameAndDownloadsThemWhenTheServerAnswers) {
    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost, 0);
    const auto port = closed.serverPort();
    closed.close();
    conImpostazioni("[IMPOSTAZIONI]\r\nSERVER=http://127.0.0.1:" + std::to_string(port) + "\r\n");
    dv::Lingua senza{app(), ""};
    dv::frmImpostazioni muto(imp, senza, ui, nullptr, servizi({}, dv::ScaricatoreDiRete()));
    // The buttons say that the server cannot be reached, and why.
    Controllo<QPushButton>(muto, "cmdInfoLanguage")->click();
    Controllo<QPushButton>(muto, "cmdLangUpdate")->click();
    EXPECT_EQ(testiBox(ui), (std::vector<std::string>{"Warning files language not found", "<0233>\n<0243>",
                                                      "Warning files language not found", "<0254> <0243>"}));

    ServerProcess server(QStringLiteral(DV_SOURCE_DIR "/server/sample-data"));
    ASSERT_TRUE(server.running());
    conImpostazioni("[IMPOSTAZIONI]\r\nSERVER=" + server.base() + "\r\n");
    ui.boxes.clear();
    dv::Lingua lingua{app(), ""};
    dv::frmImpostazioni f(imp, lingua, ui, nullptr, servizi({"Laser A"}, dv::ScaricatoreDiRete()));
    QComboBox* lingue = Controllo<QComboBox>(f, "cmbLingua");
    ASSERT_EQ(lingue->count(), 2);
    EXPECT_EQ(lingue->itemText(0) + "|" + lingue->itemText(1), "ENGLISH|ITALIANO");
    EXPECT_EQ(testiBox(ui), std::vector<std::string>{"Select Language"});
    ui.boxes.clear();
    Controllo<QPushButton>(f, "cmdInfoLanguage")->click();
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Italiano: il gruppo di Dorvanta\r\nEnglish: the Dorvanta team");
    EXPECT_EQ(ui.boxes[0].icon, dv::BoxIcon::Information);
    // A download by the button says how it ended.
    ui.texts["0234"] = "%1 installed";
    Controllo<QPushButton>(f, "cmdLangUpdate")->click();
    EXPECT_EQ(testiBox(ui).back(), "2 installed");
}

TEST_F(FinestraImpostazioni, NewerOnTheServerShowsTheWindowOtherwiseStartsWithoutAWord) {
    QTemporaryDir data;
    QDir().mkpath(data.filePath(QStringLiteral("public/10elotto")));
    const std::string versione = data.filePath(QStringLiteral("public/10elotto/ver.asp")).toStdString();
    ServerProcess server(data.path());
    ASSERT_TRUE(server.running());
    conImpostazioni("[IMPOSTAZIONI]\r\nSERVER=" + server.base() + "\r\n");
    dv::Lingua lingua;
    dv::ReadConfiguration(app(), imp, lingua);

    EXPECT_FALSE(dv::NewVersion(imp, app(), ui)); // no ver.asp: 404
    std::ofstream(versione) << dv::VersioneProgramma() << "\r\n";
    EXPECT_FALSE(dv::NewVersion(imp, app(), ui));
    EXPECT_TRUE(ui.boxes.empty());

    std::ofstream(versione) << "1.0";
    EXPECT_FALSE(dv::NewVersion(imp, app(), ui));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 9 (Subscript out of range) in procedure NewVersion of Modulo corpo");

    std::ofstream(versione) << "999.0.0";
    // The window comes up after the download: close it as soon as it is there.
    QString shown;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&shown, &closer] {
        if (QWidget* w = QApplication::activeModalWidget()) {
            shown = w->findChild<QLabel*>(QStringLiteral("lbRemoteVersion"))->text();
            w->close();
            closer.stop();
        }
    });
    closer.start(20);
    EXPECT_TRUE(dv::NewVersion(imp, app(), ui));
    EXPECT_EQ(shown, "999.0.0");
}
