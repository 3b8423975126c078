#pragma once
// frmRSSView, the feed viewer: one item at a time, a header line with its number and title and then
// its description as HTML, stepping with "<" and ">", a list of the feeds, refresh, open on the site,
// on top of other windows or not, its place and size kept in the workspace file.

#include <QString>
#include <QStringList>

#include <cstdint>

namespace pd {

class Workspace;
struct clsHeadLine;

struct ViewerControl {
    float Left = 0, Top = 0, Width = 0, Height = 0;
    bool Enabled = true;
};

struct FrmRSSView {
    QString Caption = QStringLiteral("RSS Viewer");
    bool Loaded = false;
    bool Visible = false;
    int16_t CurrentItem = 0;
    int16_t CurrentFeed = 0;
    // The window's place and size (twips) and state (0 normal, 1 minimised, 2 maximised).
    float Left = 0, Top = 0, Width = 0, Height = 0;
    int WindowState = 0;
    // The document shown in Web: empty is the blank page.
    QString Document;
    // cboFeeds: the names of the feeds' containers, and the chosen one (-1 none).
    QStringList cboFeeds;
    int ListIndex = -1;
    ViewerControl Web{240, 240, 0, 0};
    ViewerControl cmdRefresh{240, 0, 495, 375};
    ViewerControl cboFeeds_{840, 0, 2000, 315};
    ViewerControl cmdBack{0, 0, 495, 375};
    ViewerControl cmdNext{0, 0, 495, 375};
    ViewerControl cmdOpen{0, 0, 855, 375};
    ViewerControl cmdClose{0, 0, 855, 375};
    ViewerControl cmdOnTop{0, 0, 375, 375};
    ViewerControl lblOnTop{0, 0, 375, 375};
    // The pointer over the window: 11 the hourglass while a page is made.
    int MousePointer = 0;
};

// The texts of the viewer.
inline const char* const kRefreshNewsFeedTip = "Refresh News Feed";
inline const char* const kOnTopTip = "Keep visible and on top of other windows";

// Opens or updates the viewer on the item clicked in the panel under HoverFeedContainer.
void ShowRSSViewer(Workspace& ws, const clsHeadLine& item);
// The Viewer menu: the first panel whose reader holds more than one record.
void mnuRSSViewer_Click(Workspace& ws);

void RSSView_Load(Workspace& ws);
void RSSView_Unload(Workspace& ws);
void RSSView_Resize(Workspace& ws);
void DisplayRSS(Workspace& ws);
void RSSView_cmdBack(Workspace& ws);
void RSSView_cmdNext(Workspace& ws);
void RSSView_cboFeedsClick(Workspace& ws, int listIndex);
void RSSView_cmdRefresh(Workspace& ws);
void RSSView_cmdOpen(Workspace& ws);
void RSSView_cmdClose(Workspace& ws);
void RSSView_cmdOnTop(Workspace& ws);
void RSSView_lblOnTop(Workspace& ws);

} // namespace pd
