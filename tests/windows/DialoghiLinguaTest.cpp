// Every key of the language files' sections for the condition dialogs, the viewer, the
// forecast order and the filter windows names a control those windows really have, in Italian
// and in English.
#include "windows/frmConsecutivi.h"
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFiltri.h"
#include "windows/frmFiltriDistanzaNumeri.h"
#include "windows/frmFisse.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/frmPari.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"
#include "windows/frmVisualizza.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "windows/LanguageSectionCheck.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace dv;

TEST(DialoghiLingua, SectionsNameTheControlsOfEachWindow) {
    Corpo c;
    c.LenColonna = 3;
    test::SetForecast(c, test::Range(1, 9));
    test::FakeUi ui;
    std::vector<std::unique_ptr<QWidget>> windows;
    windows.push_back(std::make_unique<frmSomma>(c, ui));
    windows.push_back(std::make_unique<frmPari>(c, ui));
    windows.push_back(std::make_unique<frmFisse>(c, ui));
    windows.push_back(std::make_unique<frmConsecutivi>(c, ui));
    windows.push_back(std::make_unique<frmRidotto>(c, ui));
    windows.push_back(std::make_unique<frmDistanzaMinima>(c, ui));
    windows.push_back(std::make_unique<frmVisualizza>(c, ui));
    windows.push_back(std::make_unique<frmOrdinaPronostico>(c, ui));
    windows.push_back(std::make_unique<frmFiltri>(c, ui, c.FiltriAND));
    windows.push_back(std::make_unique<frmFiltriDistanzaNumeri>(c, ui));
    for (const char* f : {"italiano.lng", "english.lng"})
        for (auto& w : windows) test::controllaSezione(*w, QStringLiteral(DV_SOURCE_DIR "/languages/") + f);
}

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
