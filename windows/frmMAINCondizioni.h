// The conditions menu of the main window: its check marks, taken from the state.
#pragma once

namespace dv {

class frmMAIN;

class frmMAINCondizioni {
public:
    explicit frmMAINCondizioni(frmMAIN& window);

    // Every condition entry shows whether its condition is in force.
    void aggiornaSegni();
    // The marks taken away, all but that of menuDistanzaNumeri.
    void togliSegni();

private:
    void segna(const char* name, bool on);

    frmMAIN& m_window;
};

} // namespace dv
