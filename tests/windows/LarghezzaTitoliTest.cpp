// Every dialog of the main window, and the program's message boxes, are at least as wide as their
// title needs, in both shipped languages. Run also with QT_SCALE_FACTOR=1.5.
#include "core/Cartelle.h"
#include "core/Sistema.h"
#include "tests/windows/QueueDialogs.h"
#include "windows/frmAbout.h"
#include "windows/frmCalcolo.h"
#include "windows/frmConsecutivi.h"
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFiltri.h"
#include "windows/frmFiltriDistanzaNumeri.h"
#include "windows/frmFisse.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMAIN.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/frmPari.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"
#include "windows/frmVisualizza.h"
#include "windows/QtUi.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace dv;
namespace fs = std::filesystem;

class LarghezzaTitoliTest : public QObject {
    Q_OBJECT

    // The least a title bar needs: the title in a bold face and room for three buttons.
    static int minimo(const QString& title) {
        QFont bold = QApplication::font();
        bold.setBold(true);
        return QFontMetrics(bold).horizontalAdvance(title) + 90;
    }
    static void controlla(QWidget& w, const char* lingua) {
        w.show();
        QCoreApplication::processEvents();
        QVERIFY2(!w.windowTitle().isEmpty(), qPrintable(w.objectName()));
        QVERIFY2(w.width() >= minimo(w.windowTitle()),
                 qPrintable(QStringLiteral("%1 (%2): %3 px for \"%4\"")
                                .arg(w.objectName(), QString::fromLatin1(lingua))
                                .arg(w.width())
                                .arg(w.windowTitle())));
        w.hide();
    }
    template <typename D, typename... Args>
    static void dialogo(frmMAIN& main, const char* lingua, Args... args) {
        D d(main.corpo(), main.ui(), args..., &main);
        controlla(d, lingua);
    }

private slots:
    void dialogsAndBoxesAreAsWideAsTheirTitles() {
        for (const char* lingua : {"italiano", "english"}) {
            QTemporaryDir dir;
            Corpo corpo;
            ImpostaAppDir(corpo, dir.path().toStdString());
            fs::copy_file(fs::path(DV_SOURCE_DIR) / "languages" / (std::string(lingua) + ".lng"),
                          fs::path(corpo.AppDir) / (std::string(lingua) + ".lng"));
            std::ofstream(fs::path(corpo.AppDir) / "dorvantaqvn.ini")
                << "[IMPOSTAZIONI]\nLINGUA=" << lingua << "\n";
            test::QueueDialogs dialogs;
            frmMAIN main(corpo, dialogs);
            main.carica();
            for (int i = 0; i < 12; ++i)
                GrigliaNumeriClick(corpo, main.ui(), i);

            dialogo<frmSomma>(main, lingua);
            dialogo<frmPari>(main, lingua);
            dialogo<frmFisse>(main, lingua);
            dialogo<frmConsecutivi>(main, lingua);
            dialogo<frmRidotto>(main, lingua);
            dialogo<frmDistanzaMinima>(main, lingua);
            dialogo<frmVisualizza>(main, lingua);
            dialogo<frmOrdinaPronostico>(main, lingua);
            dialogo<frmFiltri>(main, lingua, TipoFiltro::AND);
            dialogo<frmFiltriDistanzaNumeri>(main, lingua);
            RunControl control;
            frmCalcolo calcolo(main.ui(), control);
            controlla(calcolo, lingua);
            frmImpostazioni impostazioni(main.impostazioni(), main.lingua(), main.ui(), &main);
            controlla(impostazioni, lingua);
            frmAbout about(main.ui(), &main);
            controlla(about, lingua);
            // The elapsed-time box: a short text under the application's title.
            auto box = QtDialogService::box(&main, "0 Days 00:00:05", "", BoxIcon::None, false);
            controlla(*box, lingua);
            auto domanda = QtDialogService::box(&main, "?", " !!! ERROR !!! ", BoxIcon::Question, true);
            controlla(*domanda, lingua);
        }
    }
};

QTEST_MAIN(LarghezzaTitoliTest)
#include "LarghezzaTitoliTest.moc"
