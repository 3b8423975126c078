#include "feeds/FeedViewer.h"

#include "app/workspace/Workspace.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedsState.h"
#include "window/Docking.h"

namespace pd {

namespace {

const QString kViewer = QStringLiteral("frmRSSView");

FrmRSSView& View(Workspace& ws) {
    return Feeds(ws).Viewer;
}

void Changed(Workspace& ws) {
    if (Feeds(ws).onViewerChanged) Feeds(ws).onViewerChanged();
}

int FirstContainerOfFeed(Workspace& ws, int n) {
    for (int i = 0; i < ws.ContainerCount && i < static_cast<int>(ws.Containers.size()); ++i)
        if (ws.Containers[i].IsFeed && ws.Containers[i].FeedIndex == n) return i;
    return -1;
}

} // namespace

void RSSView_Load(Workspace& ws) {
    FrmRSSView& v = View(ws);
    v = FrmRSSView{};
    v.Loaded = true;
    if (ws.RSSViewerOnTop == 1) RSSView_cmdOnTop(ws);
    v.Width = static_cast<float>(ws.RSSViewerW);
    v.Height = static_cast<float>(ws.RSSViewerH);
    v.Top = static_cast<float>(ws.RSSViewerY);
    v.Left = static_cast<float>(ws.RSSViewerX);
    v.Document.clear();
    RSSView_Resize(ws);
}

void RSSView_Unload(Workspace& ws) {
    FrmRSSView& v = View(ws);
    if (!v.Loaded) return;
    ws.RSSViewerOnTop = v.cmdOnTop.Enabled ? 0 : 1;
    if (v.WindowState == 0) {
        ws.RSSViewerH = static_cast<int32_t>(v.Height);
        ws.RSSViewerW = static_cast<int32_t>(v.Width);
        ws.RSSViewerY = static_cast<int32_t>(v.Top);
        ws.RSSViewerX = static_cast<int32_t>(v.Left);
    }
    v.Loaded = false;
    v.Visible = false;
    auto& list = ws.TopmostWindows;
    list.erase(std::remove(list.begin(), list.end(), kViewer), list.end());
    Changed(ws);
}

void RSSView_Resize(Workspace& ws) {
    FrmRSSView& v = View(ws);
    const float W = v.Width, H = v.Height;
    if (W - 480 >= 0) v.Web.Width = W - 480;
    if (H - 1200 >= 0) v.Web.Height = H - 1200;
    // These two follow cmdRefresh's place before it moves: they lag one resize behind.
    v.cmdOnTop.Left = W - 650;
    v.cmdOnTop.Top = v.cmdRefresh.Top;
    v.lblOnTop.Left = W - 630;
    v.lblOnTop.Top = v.cmdRefresh.Top;
    const float y = v.Web.Top + v.Web.Height + 150;
    v.cmdBack.Left = W - 3380;
    v.cmdBack.Top = y;
    v.cmdNext.Left = v.cmdBack.Left + v.cmdBack.Width + 100;
    v.cmdNext.Top = y;
    v.cmdOpen.Left = v.cmdNext.Left + v.cmdNext.Width + 100;
    v.cmdOpen.Top = y;
    v.cmdClose.Left = v.cmdOpen.Left + v.cmdOpen.Width + 100;
    v.cmdClose.Top = y;
    v.cmdRefresh.Top = y;
    const float combo = v.cmdBack.Left - v.cmdRefresh.Width - 320;
    if (combo >= 0) v.cboFeeds_.Width = combo;
    v.cboFeeds_.Top = y;
    if (W < 5000) v.Width = 5000;
    if (H < 5000) v.Height = 5000;
}

void DisplayRSS(Workspace& ws) {
    FrmRSSView& v = View(ws);
    FeedsState& f = Feeds(ws);
    v.MousePointer = 11;
    // The blank page first; the item is written into it when the navigation completes.
    v.Document.clear();
    if (v.CurrentItem - 1 > -1) f.Panel(v.CurrentFeed).SetRead(v.CurrentItem - 1);
    v.MousePointer = 0;
    if (f.HasReader(v.CurrentFeed)) {
        const auto feed = f.Reader(v.CurrentFeed).NewsFeed();
        const int n = feed->Count();
        // An item that is not there (an empty reader, a refresh that failed) leaves the page blank.
        if (v.CurrentItem >= 1 && v.CurrentItem <= n) {
            const clsHeadLine& item = feed->Item(v.CurrentItem);
            QString doc = QStringLiteral("<b><font size='5' color='#C0C0C0'>") +
                          QString::number(v.CurrentItem) + QStringLiteral("/") + QString::number(n) +
                          QStringLiteral(" ") + item.HeadLine + QStringLiteral("</font></b><hr><br>");
            if (!item.Description.trimmed().isEmpty())
                doc += item.Description;
            else
                doc += QStringLiteral("<html><head><b>No Description</b></head></html>");
            v.Document = doc;
        }
    }
    Changed(ws);
}

void ShowRSSViewer(Workspace& ws, const clsHeadLine&) {
    FeedsState& f = Feeds(ws);
    FrmRSSView& v = f.Viewer;
    const bool wasVisible = v.Visible;
    if (!wasVisible) {
        RSSView_Load(ws);
        for (int k = 0; k < ws.LstRSS.Count(); ++k) {
            const int c = FirstContainerOfFeed(ws, k);
            v.cboFeeds.append(c >= 0 ? ws.lblName(c).Caption.get() : QString());
        }
        if (IsDocked(ws)) DockMe(ws, false);
    }
    const int c = f.HoverFeedContainer;
    if (c < 0 || c >= static_cast<int>(ws.Containers.size())) return;
    UserControl1& p = f.Panel(ws.Containers[c].FeedIndex);
    v.CurrentItem = static_cast<int16_t>(p.RowUnderPointer + 1);
    if (v.CurrentItem == 0) v.CurrentItem = 1;
    if (!wasVisible) RSSView_cboFeedsClick(ws, p.FeedReaderIndex);
    v.CurrentFeed = ws.Containers[c].FeedIndex;
    DisplayRSS(ws);
    if (!wasVisible) {
        v.Visible = true;
        Changed(ws);
    }
}

void mnuRSSViewer_Click(Workspace& ws) {
    FeedsState& f = Feeds(ws);
    // The first panel whose reader holds more than one record; with none the command ends quietly.
    for (int k = 0; k < ws.LstRSS.Count(); ++k) {
        if (!f.HasReader(k) || f.Reader(k).Count() <= 1) continue;
        const int c = FirstContainerOfFeed(ws, k);
        if (c < 0) return;
        f.HoverFeedContainer = static_cast<int16_t>(c);
        ShowRSSViewer(ws, f.Reader(k).NewsFeed()->Item(1));
        return;
    }
}

void RSSView_cmdBack(Workspace& ws) {
    FrmRSSView& v = View(ws);
    FeedsState& f = Feeds(ws);
    const int count = f.HasReader(v.CurrentFeed) ? f.Reader(v.CurrentFeed).Count() : 0;
    if (v.CurrentItem == 1)
        v.CurrentItem = static_cast<int16_t>(count);
    else
        v.CurrentItem = static_cast<int16_t>(v.CurrentItem - 1);
    DisplayRSS(ws);
}

void RSSView_cmdNext(Workspace& ws) {
    FrmRSSView& v = View(ws);
    FeedsState& f = Feeds(ws);
    const int count = f.HasReader(v.CurrentFeed) ? f.Reader(v.CurrentFeed).Count() : 0;
    if (v.CurrentItem == count)
        v.CurrentItem = 1;
    else
        v.CurrentItem = static_cast<int16_t>(v.CurrentItem + 1);
    DisplayRSS(ws);
}

void RSSView_cboFeedsClick(Workspace& ws, int listIndex) {
    FrmRSSView& v = View(ws);
    v.ListIndex = listIndex;
    v.CurrentFeed = static_cast<int16_t>(listIndex);
    FeedsState& f = Feeds(ws);
    if (listIndex < 0) return;
    if (f.Reader(listIndex).Count() == 0) {
        RSSView_cmdRefresh(ws);
    } else if (v.Visible) {
        v.CurrentItem = 1;
        DisplayRSS(ws);
    }
}

void RSSView_cmdRefresh(Workspace& ws) {
    FrmRSSView& v = View(ws);
    v.MousePointer = 11;
    const int feed = v.CurrentFeed;
    const int c = FirstContainerOfFeed(ws, feed);
    v.CurrentItem = 1;
    if (c < 0) {
        v.MousePointer = 0;
        return;
    }
    Workspace* w = &ws;
    RefreshRSS(ws, feed, c, [w] {
        FrmRSSView& view = View(*w);
        if (!view.Loaded) return;
        DisplayRSS(*w);
        view.MousePointer = 0;
        Changed(*w);
    });
}

void RSSView_cmdOpen(Workspace& ws) {
    FrmRSSView& v = View(ws);
    FeedsState& f = Feeds(ws);
    if (!f.HasReader(v.CurrentFeed)) return;
    const auto feed = f.Reader(v.CurrentFeed).NewsFeed();
    if (v.CurrentItem < 1 || v.CurrentItem > feed->Count()) return;
    const QString link = feed->Item(v.CurrentItem).ArticleLink;
    const bool notOnTop = v.cmdOnTop.Enabled;
    if (notOnTop) {
        v.Visible = false;
        Changed(ws);
    }
    ws.platform.openUrl(link);
    if (notOnTop) RSSView_cmdClose(ws);
}

void RSSView_cmdClose(Workspace& ws) {
    RSSView_Unload(ws);
}

void RSSView_cmdOnTop(Workspace& ws) {
    FrmRSSView& v = View(ws);
    SetOnTop(ws, kViewer, true, false);
    v.cmdOnTop.Enabled = false;
    Changed(ws);
}

void RSSView_lblOnTop(Workspace& ws) {
    FrmRSSView& v = View(ws);
    SetOnTop(ws, kViewer, false, true);
    v.cmdOnTop.Enabled = true;
    Changed(ws);
}

} // namespace pd
