// The operations menu and the buttons of the main window: develop, shuffle, change, clear.
#pragma once

#include <memory>

namespace dv {

class frmMAIN;
class frmCalcoloWorker;

class frmMAINOperazioni {
public:
    explicit frmMAINOperazioni(frmMAIN& window);
    ~frmMAINOperazioni();

    // cmdCalcolo and menuCalcolo: a development on the worker thread.
    void calcolo();
    // menuMescola: the held columns in a random order, after the user's yes.
    void mescola();
    // menuModifiche and cmdModifiche: after "0054", the columns are given up.
    void modifiche();
    // menuVisualizza and cmdVisualizza: the columns held, page by page.
    void visualizza();
    // cmdCancella: system, conditions and forecast emptied.
    void cancella();

    bool inCorso() const;
    frmCalcoloWorker& worker() { return *m_worker; }

private:
    frmMAIN& m_window;
    std::unique_ptr<frmCalcoloWorker> m_worker;
};

} // namespace dv
