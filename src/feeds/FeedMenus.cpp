// The menus of feeds: the feeds submenu of the main menu (also the popup of the toolbar's feed
// picture), the recent search terms, the entries of a feed container's menu and the headline panel's
// popup, with their commands.

#include "app/workspace/Workspace.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedViewer.h"
#include "feeds/FeedsState.h"

namespace pd {

void WireFeeds(Workspace& ws) {
    Menus& m = ws.menus;
    Feeds(ws);
    m.add("mnuAddRSS", "R&SS News Feed", "mnuMain");
    m.add("mnuRSSNewsFeeds", "R&SS News Feeds", "mnuMain");
    m.add("mnuRSSSettingsAddNew", "&New...", "mnuRSSNewsFeeds");
    m.add("mnuRSSRefreshAll", "&Refresh All", "mnuRSSNewsFeeds");
    m.add("mnuRSSViewer", "&Viewer", "mnuRSSNewsFeeds");
    m.add("mnuRSSSearch", "&Search..", "mnuRSSNewsFeeds").setShortcut("Ctrl+S");
    m.add("mnuRSSRecentSearches", "Recen&t Search Terms", "mnuRSSNewsFeeds");
    // The recent terms: member 0 always; the others are declared hidden, and a term makes one visible.
    m["mnuRSSRecentSearches"].addChild(&m("mnuRSSSearchItem", 0));
    for (int n = 1; n < 10; ++n) {
        if (m.has(QStringLiteral("mnuRSSSearchItem"), n)) {
            m["mnuRSSRecentSearches"].addChild(&m("mnuRSSSearchItem", n));
        } else {
            m.add(QStringLiteral("mnuRSSSearchItem"), QString(), QStringLiteral("mnuRSSRecentSearches"), n)
                .setVisible(false);
        }
    }
    m.add("mnuSepRecentSearches", "-", "mnuRSSRecentSearches");
    m.add("mnuClearRecentSearchTerms", "&Clear Recent List", "mnuRSSRecentSearches");
    // The feeds' settings (declared with the other settings) follow under a line.
    m.add("mnuSepRSSSettings", "-", "mnuRSSNewsFeeds");

    // A feed container's own entries on the container menu, shown only for feed containers.
    m.add("mnuSepRSS", "-", "mnuLink").setVisible(false);
    m.add("mnuRSSOpenWebsite", "&Go to URL", "mnuLink").setVisible(false);
    m.add("mnuRSSCopyURL", "&Copy URL", "mnuLink").setVisible(false);
    m.add("mnuRSSResetIcon", "&Reset Icon", "mnuLink").setVisible(false);

    // The headline panel's popup.
    m.add("mnuRightClick", "mnuRightClick");
    m.add("mnuOpenInBrowser", "Open on the &website <Shift>", "mnuRightClick");

    Workspace* w = &ws;
    m["mnuAddRSS"].onClick = [w] { mnuAddRSS_Click(*w); };
    m["mnuRSSSettingsAddNew"].onClick = [w] { mnuAddRSS_Click(*w); };
    m["mnuRSSRefreshAll"].onClick = [w] { mnuRSSRefreshAll_Click(*w); };
    m["mnuRSSViewer"].onClick = [w] { mnuRSSViewer_Click(*w); };
    m["mnuRSSSearch"].onClick = [w] { mnuRSSSearch_Click(*w); };
    m["mnuClearRecentSearchTerms"].onClick = [w] { mnuClearRecentSearchTerms_Click(*w); };
    m["mnuRSSSetProxy"].onClick = [w] { mnuRSSSetProxy_Click(*w); };
    m["mnuRSSOpenWebsite"].onClick = [w] { mnuRSSOpenWebsite_Click(*w); };
    m["mnuRSSCopyURL"].onClick = [w] { mnuRSSCopyURL_Click(*w); };
    m["mnuRSSResetIcon"].onClick = [w] { mnuRSSResetIcon_Click(*w); };
    m["mnuOpenInBrowser"].onClick = [w] {
        FeedsState& f = Feeds(*w);
        const int c = f.HoverFeedContainer;
        if (c < 0 || c >= static_cast<int>(w->Containers.size()) || !w->Containers[c].IsFeed) return;
        f.Panel(w->Containers[c].FeedIndex).mnuOpenInBrowser_Click();
    };
    for (int n = 0; n < 10; ++n)
        m("mnuRSSSearchItem", n).onClick = [w, n] { mnuRSSSearchItem_Click(*w, n); };
}

} // namespace pd
