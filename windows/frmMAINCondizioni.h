// The conditions menu of the main window: the condition dialogs, the filter tables, the distance
// conditions, and the check marks that show which conditions are in force.
#pragma once

#include <initializer_list>

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
    // Shows the dialog D modally, then refreshes the marks of the named entries.
    template <typename D, typename... Args> void apri(std::initializer_list<const char*> segni, Args... args);
    void segna(const char* name);
    void segna(const char* name, bool on);

    frmMAIN& m_window;
};

} // namespace dv
