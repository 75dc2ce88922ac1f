// What a loaded module has taken from the system and not given back, kept by standing between the module and
// the functions that it imports: windows, hooks, timers, menus, device contexts, fonts and other GDI objects,
// activation contexts, themes, libraries, window classes, kernel objects.
#pragma once

#include <windows.h>

#include <string>

namespace dlv::test {

class Ledger {
public:
    /// Of what the module imports; one ledger at a time. The module stays loaded for as long.
    explicit Ledger(HMODULE module);
    ~Ledger();
    Ledger(const Ledger&) = delete;
    Ledger& operator=(const Ledger&) = delete;

    /// How many functions are watched.
    int Watched() const { return watched_; }
    /// What is open, in words ("2 hooks; "); what goes with a window that is gone does not count.
    static std::string Open();

private:
    const HMODULE module_;
    int watched_ = 0;
};

/// What else a module may use up that nothing tells of: slots of the thread's storage, and handles. Each is
/// the number that the system would give next.
struct HiddenUse {
    DWORD nextThreadSlot = 0;
    std::size_t nextHandle = 0;

    static HiddenUse Now();
};

}  // namespace dlv::test
