#include "windows/frmMAINFile.h"

#include "core/Cartelle.h"
#include "core/Finestra.h"
#include "system_files/FileSistema.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"
#include "windows/frmMAIN.h"

#include <QAction>

#include <filesystem>

namespace dv {

namespace {
constexpr const char* FiltroSistemi = "File Dorvanta (*.dvs)|*.dvs";
}

frmMAINFile::frmMAINFile(frmMAIN& window) : m_window(window) {
    const auto collega = [&window](const char* name, auto slot) {
        QAction* a = window.azione(QString::fromLatin1(name));
        QObject::connect(a, &QAction::triggered, &window, slot);
        a->setVisible(true);
    };
    collega("menuNuovo", [this] { nuovo(); });
    collega("menuApri", [this] { apriConScelta(); });
    collega("menuSalva", [this] { salva(); });
    collega("menuSalvaConNome", [this] { salvaConNome(); });
    collega("menuUscita", [&window] { window.close(); });
    collega("menuApriDirectory", [this] { apriDirectory(); });
}

void frmMAINFile::leggiConfigurazione() {}

void frmMAINFile::nuovo() { NuovoSistema(m_window.corpo(), m_window.ui()); }

void frmMAINFile::apriConScelta() {
    Corpo& c = m_window.corpo();
    const std::string path = m_window.ui().chooseOpenFile(PercorsoIn(c.AppDir, {"sistemi"}), FiltroSistemi);
    if (!path.empty()) apri(path);
}

void frmMAINFile::apri(const std::string& path) { ApriFile(m_window.corpo(), m_window.ui(), path); }

void frmMAINFile::salva() { SalvaFile(m_window.corpo(), m_window.ui(), PercorsoSalva(m_window.corpo())); }

void frmMAINFile::salvaConNome() {
    Corpo& c = m_window.corpo();
    const std::string proposed = std::filesystem::path(PercorsoSalva(c)).filename().string();
    const std::string path =
        m_window.ui().chooseSaveFile(PercorsoIn(c.AppDir, {"sistemi"}), FiltroSistemi, ".dvs", proposed);
    if (path.empty()) return;
    c.FileCorrente = path;
    SalvaFile(c, m_window.ui(), path);
}

void frmMAINFile::apriDirectory() { m_window.ui().dialogs().openFolder(m_window.corpo().AppDir); }

} // namespace dv
