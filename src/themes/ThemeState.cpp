#include "themes/ThemeState.h"

#include "app/workspace/Workspace.h"

namespace pd {

// In the order of the button set's table: the six toolbar buttons, then the seven of a container.
const char* const kButtonFiles[kButtonImages] = {
    "shrinkall.gif", "foldall.gif",  "rss.gif",      "lock.gif",     "unlock.gif", "dock.gif",  "shrink.gif",
    "folderoff.gif", "folderon.gif", "noteshow.gif", "notehide.gif", "fold.gif",   "unfold.gif"};

ThemeState& Themes(Workspace& ws) {
    if (!ws.ThemeStateSlot) ws.ThemeStateSlot = std::make_shared<ThemeState>();
    return *ws.ThemeStateSlot;
}

} // namespace pd
