#pragma once

#include <functional>

@class VelmoraMenuTarget;

namespace velmora {

/// The program's menu in the menu bar, seen while its settings are the active window.
class ApplicationMenu {
public:
    /// What the rows do.
    struct Actions {
        std::function<void()> openSettings;
        std::function<void()> quit;
    };

    explicit ApplicationMenu(Actions actions);
    ApplicationMenu(ApplicationMenu const&) = delete;
    ApplicationMenu& operator=(ApplicationMenu const&) = delete;
    ~ApplicationMenu();

private:
    Actions m_actions;
    VelmoraMenuTarget* m_target;
};

} // namespace velmora
