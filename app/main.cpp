// The desktop program: the working state, the desktop's dialogs and the main window, started in
// the order of start-up, then the event loop.
#include "core/Cartelle.h"
#include "core/Corpo.h"
#include "core/Sistema.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"
#include "windows/frmMAIN.h"
#include "windows/frmMAINFile.h"
#include "windows/frmSplash.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>

#include <memory>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QString::fromLatin1(dv::TitoloApplicazione));

    // The data folder: the desktop's folder for application data, and the program's name in it.
    auto corpo = std::make_unique<dv::Corpo>();
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    dv::ImpostaAppDir(*corpo, QDir(base).filePath(QString::fromLatin1(dv::TitoloApplicazione)).toStdString());

    dv::frmSplash splash;
    splash.show();
    splash.repaint();
    QApplication::processEvents();

    dv::QtDialogService dialogs;
    dv::frmMAIN main(*corpo, dialogs);
    main.carica();
    dv::ResetSistema(*corpo, main.ui(), false);

    const std::string path = argc > 1 ? argv[1] : "";
    QTimer::singleShot(500, &main, [&] {
        splash.close();
        main.show();
        if (!path.empty()) main.file().apri(path);
    });
    return app.exec();
}
