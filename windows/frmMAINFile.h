// The file menu of the main window: new, open, save, settings and language, exit, the data folder.
#pragma once

#include <string>

namespace dv {

class frmMAIN;

class frmMAINFile {
public:
    explicit frmMAINFile(frmMAIN& window);

    // Reads the settings and the language in use; with no language chosen yet, the settings
    // window comes first. The window then takes the language's captions.
    void leggiConfigurazione();
    // menuImpostazioni: the settings window, then the settings and the language read again.
    void impostazioni();
    // menuinfo: the about window.
    void informazioni();
    // menuNuovo: an empty system named "nuovo.dvs".
    void nuovo();
    // menuApri: a system file chosen in AppDir/sistemi.
    void apriConScelta();
    // Opens the system file at path (the command line's argument).
    void apri(const std::string& path);
    // menuSalva: saves under the current name in AppDir/sistemi.
    void salva();
    // menuSalvaConNome: saves under a name the user chooses, which becomes the current one.
    void salvaConNome();
    // menuImportaColonne: columns from a text file chosen in AppDir/txt.
    void importaColonne();
    // menuEsportaColonne: the columns to a text file chosen in AppDir/txt.
    void esportaColonne();
    // menuApriDirectory: the data folder in the desktop's file browser.
    void apriDirectory();
    // The system in memory was emptied: it has no file of its own until it is opened or saved.
    void sistemaAzzerato() { m_fileDelSistema.clear(); }

private:
    // SalvaFile, after asking when path is an existing file other than the system's own.
    void salvaIn(const std::string& path);

    frmMAIN& m_window;
    std::string m_fileDelSistema; // the file the system was opened from or last saved to
};

} // namespace dv
