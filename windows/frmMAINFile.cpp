#include "windows/frmMAINFile.h"

#include "core/Cartelle.h"
#include "core/Finestra.h"
#include "core/Helpers.h"
#include "platform/ApplyLanguage.h"
#include "platform/TraduzioniQt.h"
#include "settings/Impostazioni.h"
#include "system_files/ColonneTesto.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FileSistema.h"
#include "windows/frmAbout.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMAIN.h"
#include "windows/QtUi.h"
#include "windows/QtUiDialogs.h"

#include <QAction>
#include <QMenuBar>

#include <new>

#include <filesystem>

namespace dv {

namespace {
constexpr const char* FiltroSistemi = "File Dorvanta (*.dvs)|*.dvs";
constexpr const char* FiltroTesto = "File TXT (*.txt)|*.txt";

// Greys the window's controls and menus while one of its operations runs; a box or a chooser
// that the operation opens stays usable, as the window itself is not disabled.
class Sospensione {
public:
    explicit Sospensione(frmMAIN& window) : m_window(window) { imposta(false); }
    ~Sospensione() { imposta(true); }

private:
    void imposta(bool enabled) {
        m_window.centralWidget()->setEnabled(enabled);
        m_window.menuBar()->setEnabled(enabled);
    }
    frmMAIN& m_window;
};
} // namespace

frmMAINFile::frmMAINFile(frmMAIN& window) : m_window(window) {
    window.collega("menuNuovo", [this] { nuovo(); });
    window.collega("menuApri", [this] { apriConScelta(); });
    window.collega("menuSalva", [this] { salva(); });
    window.collega("menuSalvaConNome", [this] { salvaConNome(); });
    window.collega("menuImportaColonne", [this] { importaColonne(); });
    window.collega("menuEsportaColonne", [this] { esportaColonne(); });
    window.collega("menuImpostazioni", [this] { impostazioni(); });
    window.collega("menuinfo", [this] { informazioni(); });
    window.collega("menuUscita", [&window] { window.close(); });
    window.collega("menuApriDirectory", [this] { apriDirectory(); });
}

void frmMAINFile::leggiConfigurazione() {
    ReadConfiguration(m_window.corpo(), m_window.impostazioni(), m_window.lingua());
    if (m_window.lingua().CurrentLanguage.empty()) {
        frmImpostazioni settings(m_window.impostazioni(), m_window.lingua(), m_window.ui(), &m_window);
        settings.exec();
        ReadConfiguration(m_window.corpo(), m_window.impostazioni(), m_window.lingua());
    }
    ApplicaTraduzioniQt(m_window.lingua().languageFile());
    ApplyLanguage(m_window, m_window.lingua().languageFile());
}

void frmMAINFile::impostazioni() {
    {
        frmImpostazioni settings(m_window.impostazioni(), m_window.lingua(), m_window.ui(), &m_window);
        settings.exec();
    }
    ReadConfiguration(m_window.corpo(), m_window.impostazioni(), m_window.lingua());
    // A new language shows at once: the captions, and (through the window's language change)
    // the texts built from the state. The enabled state of the controls is not touched: a
    // locked system stays locked.
    ApplicaTraduzioniQt(m_window.lingua().languageFile());
    ApplyLanguage(m_window, m_window.lingua().languageFile());
}

void frmMAINFile::informazioni() {
    frmAbout about(m_window.ui(), &m_window);
    about.exec();
}

void frmMAINFile::nuovo() {
    NuovoSistema(m_window.corpo(), m_window.ui());
}

void frmMAINFile::apriConScelta() {
    Corpo& c = m_window.corpo();
    const std::string path = m_window.ui().chooseOpenFile(PercorsoIn(c.AppDir, {"sistemi"}), FiltroSistemi);
    if (!path.empty()) apri(path);
}

void frmMAINFile::apri(const std::string& path) {
    if (ApriFile(m_window.corpo(), m_window.ui(), path) == EsitoApriFile::Aperto)
        m_fileDelSistema = m_window.corpo().FileCorrente;
}

void frmMAINFile::salva() {
    salvaIn(PercorsoSalva(m_window.corpo()));
}

void frmMAINFile::salvaIn(const std::string& path) {
    QtUi& ui = m_window.ui();
    if (SostituisceAltroFile(path, m_fileDelSistema) &&
        !ui.questionBox(TestoCon(ui.Lang("0223"), path), "", BoxIcon::Question))
        return;
    if (SalvaFile(m_window.corpo(), ui, path)) m_fileDelSistema = path;
}

void frmMAINFile::salvaConNome() {
    Corpo& c = m_window.corpo();
    const std::string proposed = std::filesystem::path(PercorsoSalva(c)).filename().string();
    const std::string path =
        m_window.ui().chooseSaveFile(PercorsoIn(c.AppDir, {"sistemi"}), FiltroSistemi, ".dvs", proposed);
    if (path.empty()) return;
    c.FileCorrente = path;
    // The chooser has asked before replacing a file.
    if (SalvaFile(c, m_window.ui(), path)) m_fileDelSistema = path;
}

void frmMAINFile::importaColonne() {
    Corpo& c = m_window.corpo();
    const std::string path = m_window.ui().chooseOpenFile(PercorsoIn(c.AppDir, {"txt"}), FiltroTesto);
    if (!path.empty()) ImportaColonneTxt(c, m_window.ui(), path);
}

void frmMAINFile::esportaColonne() {
    Corpo& c = m_window.corpo();
    QtUi& ui = m_window.ui();
    Sospensione sospesa(m_window);
    try {
        const std::string path =
            ui.chooseSaveFile(PercorsoIn(c.AppDir, {"txt"}), FiltroTesto, ".txt", NomeEsportazione(c));
        if (path.empty()) return;
        // A failed export has told why in its own box.
        if (SalvaColonneTxt(c, ui, path)) ui.messageBox("File " + path + " ok ", "", BoxIcon::Information);
    } catch (const std::bad_alloc&) {
        MostraErrore(ui, errori::MemoriaEsaurita(),
                     ") in procedure menuEsportaColonne_Click of Form frmMAIN");
    }
}

void frmMAINFile::apriDirectory() {
    QtUi& ui = m_window.ui();
    const std::string& folder = m_window.corpo().AppDir;
    if (!ui.dialogs().openFolder(folder)) ui.messageBox(TestoCon(ui.Lang("0232"), folder), "", BoxIcon::Exclamation);
}

} // namespace dv
