#pragma once
// The state of the feed containers: the readers and the headline panels (both by FeedIndex), the
// container the refresh label serves, a running "Refresh All", the viewer, and the view's hooks for the
// dialogs. Made at first use by Feeds(ws).

#include "feeds/FeedReader.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedViewer.h"
#include "feeds/HeadlinePanel.h"
#include "feeds/StripHtmlTags.h"

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace pd {

class Workspace;
struct FrmAddRSS;

struct FeedsState {
    explicit FeedsState(Workspace& ws);
    FeedsState(const FeedsState&) = delete;
    FeedsState& operator=(const FeedsState&) = delete;

    Workspace& ws;
    // One reader a FeedIndex; slots of deleted containers stay.
    std::vector<std::unique_ptr<clsReader>> Readers;
    // One panel a member of LstRSS; member 0 exists from the start.
    std::vector<std::unique_ptr<UserControl1>> Panels;
    // The container the refresh label serves.
    int16_t HoverFeedContainer = 0;
    // The pointer is on a headline.
    bool OverHeadline = false;
    // lblTip's alignment for the headline tip now shown: 0 left, 2 centred.
    int TipAlignment = 2;

    // A running "Refresh All": the containers in order, which have their answer, and the next to show.
    struct RefreshAllRun {
        bool Running = false;
        std::vector<int> containers;
        std::vector<bool> answered;
        size_t next = 0;
        int total = 0;
        bool announced = false;
    } RefreshAll;
    // Runs once the current "Refresh All" has shown its last feed (tests and the benchmark wait on it).
    std::function<void()> onRefreshAllDone;

    FrmRSSView Viewer;

    // --- the view's hooks ---
    // Shows the "Add RSS News Feeds" dialog modally; returns when it has closed.
    std::function<void(FrmAddRSS&)> showAddRSS;
    // Shows the search window modally; returns when it has closed.
    std::function<void(FrmRSSSearch&)> showSearch;
    // The viewer's state changed (loaded, shown, a new page, closed).
    std::function<void()> onViewerChanged;
    // The containers whose shrink icon carries the small feed mark, and the hook that draws it.
    std::set<int> RssOverlay;
    std::function<void(int)> onRssOverlay;
    // A panel was made (its view widget is due).
    std::function<void(UserControl1&)> onPanelCreated;

    // The reader and panel of a FeedIndex, made when first asked for.
    clsReader& Reader(int n);
    UserControl1& Panel(int n);
    bool HasReader(int n) const { return n >= 0 && n < static_cast<int>(Readers.size()) && Readers[n]; }
};

// A feed text as displays show it; the record keeps its raw text.
inline QString Cleaned(QString text) {
    return StripHTMLTags(text);
}

// The workspace's feed state, made at its first use.
FeedsState& Feeds(Workspace& ws);

} // namespace pd
