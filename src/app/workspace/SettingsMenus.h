#pragma once
// The menu entries whose check marks store the workspace's settings, with their captions and their
// defaults, and the entries of the main menu that the workspace core owns.

#include "app/elements/Menu.h"

namespace pd {

struct CheckSetting {
    const char* menu;    // the entry, e.g. "mnuAlign"
    const char* caption; // its caption
    bool byDefault;      // checked when no workspace file says otherwise
    const char* submenu; // the menu that shows it
};

// Every setting kept in a check mark.
extern const CheckSetting kCheckSettings[];
extern const int kCheckSettingCount;

// Declares the main popup menu with the core's entries and the settings' check entries, all at their
// defaults.
void DeclareCoreMenus(Menus& menus);

} // namespace pd
