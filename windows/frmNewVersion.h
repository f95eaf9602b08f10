// "Nuova Versione Disponibile!!": shown at start when the web server has a newer version. A click
// on the address opens the program's web page and closes the window; the program then ends.
#pragma once

#include "settings/Impostazioni.h"
#include "settings/Online.h"

#include <QDialog>

#include <functional>
#include <string>

class QLabel;

namespace dv {

class Ui;

class frmNewVersion : public QDialog {
    Q_OBJECT
public:
    // opener hands the address to the platform; OpenDocument when none is given.
    explicit frmNewVersion(Ui& ui, QWidget* parent = nullptr, std::function<bool(const std::string&)> opener = {});

    // The two versions shown when the window comes up.
    std::string localVersion;
    std::string remoteVersion;

    void lbURL_Click();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<bool(const std::string&)> m_opener;
    QLabel* m_lbRemoteVersion = nullptr;
    QLabel* m_lbLocalVersion = nullptr;
    QLabel* m_lbURL = nullptr;
};

// The start's version check. Compares the program's version with the server's; when the server's
// is higher, shows frmNewVersion modally and returns true: the program is then to end without its
// main window. A server that cannot be reached returns false without a word; an answer that cannot
// be read shows the error box and returns false.
bool NewVersion(const Impostazioni& imp, const std::string& appDir, Ui& ui, QWidget* parent = nullptr,
                Scaricatore download = {});

} // namespace dv
