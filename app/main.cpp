// The desktop program: the working state, the desktop's dialogs and the main window, started in
// the order of start-up, then the event loop.
#include "core/Cartelle.h"
#include "core/Corpo.h"
#include "core/Sistema.h"
#include "platform/ApplyLanguage.h"
#include "platform/Shell.h"
#include "settings/Folders.h"
#include "settings/Impostazioni.h"
#include "windows/frmMAIN.h"
#include "windows/frmMAINFile.h"
#include "windows/frmNewVersion.h"
#include "windows/frmSplash.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"
#include "windows/Aree.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstring>
#include <memory>

int main(int argc, char* argv[]) {
    if (argc == 2 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
        std::printf("Usage: dorvanta [FILE.dvs]\n\n"
                    "The Dorvanta desktop program: mark a forecast, set the conditions and develop it\n"
                    "into a system of 10eLotto columns; save, check, compare and print systems.\n\n"
                    "  FILE.dvs    a system file to open at start\n"
                    "  -h, --help  show this text and exit\n\n"
                    "The data folder is ~/.local/share/Dorvanta. The same operations without windows:\n"
                    "dorvanta-cli --help.\n");
        return 0;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QString::fromLatin1(dv::TitoloApplicazione));

    // The data folder with its sub-folders, and the language files that ship with the program.
    auto corpo = std::make_unique<dv::Corpo>();
    dv::PulisciSalvataggiInterrotti();
    dv::ImpostaAppDir(*corpo, dv::AppDirPredefinito());
    dv::CopiaLingueIniziali(dv::CartellaLingueSpedite(), corpo->AppDir);

    // The splash speaks the language of the settings already.
    dv::Impostazioni impostazioni;
    dv::Lingua lingua;
    dv::ReadConfiguration(corpo->AppDir, impostazioni, lingua);
    dv::frmSplash splash;
    dv::ApplyLanguage(splash, lingua.languageFile());
    splash.show();
    splash.repaint();
    QApplication::processEvents();

    // The version check; a newer version on the server ends the program here.
    dv::QtDialogService dialogs;
    dv::frmMAIN main(*corpo, dialogs);
    if (dv::NewVersion(impostazioni, corpo->AppDir, main.ui(), &splash)) return 0;
    main.carica();
    // The windows of the other areas, unseen; the archive window loads the evening archive.
    dv::CollegaAree(main);
    dv::ResetSistema(*corpo, main.ui(), false);

    const std::string path = argc > 1 ? argv[1] : "";
    QTimer::singleShot(500, &main, [&] {
        splash.close();
        main.show();
        if (!path.empty()) main.file().apri(path);
    });
    return app.exec();
}
