#pragma once
// Feed containers: containers that show a headline panel filled from a reader. Adding them (the dialog
// and AddRSS), filling and refreshing them (one, or all at once with progress), the failed state's red
// lines, the shrink icon from the site's favicon, the refresh label, the menus of feeds.
//
// Fetches run in the background: a refresh empties the panel at once and fills it when the answer has
// come, so that the window never waits on the network. "Refresh All" starts every fetch together and
// shows the answers in container order, with the same progress texts as one-by-one loading would.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace pd {

class Workspace;
struct clsHeadLine;

// The dialog "Add RSS News Feeds".
struct FrmAddRSS {
    QString Caption = QStringLiteral("Add RSS News Feeds");
    QString txtRSS = QStringLiteral("http://");
    QStringList lstFeeds;
    int ListIndex = -1;
    bool lblWaitVisible = false;
    bool Closed = false;
    // The pointer: 11 the hourglass while processing.
    int MousePointer = 0;
    // Called after a change the view must show (and to repaint at once while processing).
    std::function<void()> onChanged;
};

void AddRSS_Load(Workspace& ws, FrmAddRSS& f);
void AddRSS_cmdAdd(Workspace& ws, FrmAddRSS& f);
void AddRSS_cmdRemove(Workspace& ws, FrmAddRSS& f);
void AddRSS_OKButton(Workspace& ws, FrmAddRSS& f);
void AddRSS_Cancel(Workspace& ws, FrmAddRSS& f);
// Drops one final "/" from the text.
void RemoveTrailingSlash(QString& text);
// Whether an address is a web address that is not a directory (no final "/").
bool IsFeedUrl(const QString& url);
QString GetHostName(const QString& url);

// Makes a feed container for `url` (trimmed in place). False, after a message, for an address that is
// not valid. `done` runs when its first display is there (at once while loading).
bool AddRSS(Workspace& ws, QString& url, int16_t parentIndex, std::function<void()> done = {});
void ShowFeedHeadlines(Workspace& ws, int i);
void ShowFeedError(Workspace& ws, int n);
// Fetches feed n again for container i; the panel is empty until the answer comes, then `done` runs.
void RefreshRSS(Workspace& ws, int n, int i, std::function<void()> done = {});
bool MatchSearchTerm(Workspace& ws, const clsHeadLine& headline, QString& term);
void AddRSSShrinkIcon(Workspace& ws, const QString& url, int i);
void DrawRSSIconOnTopofShrinkIcon(Workspace& ws, int i);
void ShowRSSRefresh(Workspace& ws);
// "Last Update n minutes ago", counted from a stored time text to now.
QString FormatUpdateAge(Workspace& ws, const QString& t);
// The current date and time as the update label shows it.
QString NowText(Workspace& ws);

void lblRSSRefresh_MouseUp(Workspace& ws, int Button);
void mnuRSSRefreshAll_Click(Workspace& ws);
void mnuAddRSS_Click(Workspace& ws);
void mnuRSSCopyURL_Click(Workspace& ws);
void mnuRSSOpenWebsite_Click(Workspace& ws);
void mnuRSSResetIcon_Click(Workspace& ws);
void mnuRSSSetProxy_Click(Workspace& ws);
void PicRSSRefreshALL_MouseDown(Workspace& ws, int Button);
// Returns the menu to pop up ("mnuRSSNewsFeeds"), or empty.
QString PicRSSRefreshALL_MouseUp(Workspace& ws, int Button);
// The pointer over a feed container's title: the refresh label comes, and the title's tip is set.
void FeedTitle_MouseMove(Workspace& ws, int i);
QString FeedTitleTooltip(Workspace& ws, int i);
void lblRSSLastUpdate_MouseMove(Workspace& ws, int n);
// The caption of a shrunk feed container's update label when its tile is pressed.
QString FeedLastUpdateAge(Workspace& ws, int i);
// Shows or hides the feed entries of the container menu for container i.
void SetFeedMenuEntries(Workspace& ws, int i);

// A feed container was deleted: its reader lets its records go; the slot stays.
void FeedContainerDeleted(Workspace& ws, int i);

// The panel of feed n has a new size: it lays itself out and nudges both bars by 10 and back, so
// that the sheet is drawn afresh.
void FeedPanelResized(Workspace& ws, int n);

// Declares the feed menus and wires every feed command.
void WireFeeds(Workspace& ws);

} // namespace pd
