#include "feeds/FeedContainers.h"

#include "app/WorkspaceFile.h"
#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Shrinking.h"
#include "feeds/FeedsState.h"
#include "feeds/InputDialog.h"
#include "feeds/StripHtmlTags.h"
#include "themes/Buttons.h"
#include "window/AutoHide.h"
#include "window/Docking.h"
#include "window/RelativeLayout.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>

#include <cmath>
#include <memory>

namespace pd {

namespace {

constexpr int32_t kRed = 255;
constexpr int32_t kGreen = 32768;
// The stored form of an update time; FormatUpdateAge reads it back.
const QString kTimeFormat = QStringLiteral("yyyy-MM-dd hh:mm:ss");

void Status(Workspace& ws, const QString& text) {
    if (ws.splash.loaded && ws.splash.frmSplash(0).Visible)
        ws.showStatus(text);
    else
        ws.lblCaption(0).Caption = text;
}

// Fetches `url` into `file`; `done` gets true when the file was written from a good answer.
void DownloadFile(Workspace& ws, const QString& url, const QString& file, std::function<void(bool)> done) {
    HttpRequest req;
    req.url = url;
    ws.platform.httpGet(req, [file, done](const HttpReply& reply) {
        bool ok = false;
        if (reply.status == 200) {
            QDir().mkpath(QFileInfo(file).path());
            QSaveFile out(file);
            ok = out.open(QIODevice::WriteOnly) && out.write(reply.body) == reply.body.size() && out.commit();
        }
        if (done) done(ok);
    });
}

} // namespace

// --- small helpers of the dialog ---

void RemoveTrailingSlash(QString& text) {
    if (text.endsWith(QLatin1Char('/'))) text.chop(1);
}

bool IsFeedUrl(const QString& url) {
    // A web address: a scheme of letters, a colon, and more; a directory ends with a slash.
    const int colon = url.indexOf(QLatin1Char(':'));
    if (colon < 2) return false; // no scheme, or a drive letter
    for (int k = 0; k < colon; ++k) {
        const QChar c = url[k];
        if (!(c.isLetterOrNumber() || c == QLatin1Char('+') || c == QLatin1Char('-') ||
              c == QLatin1Char('.')))
            return false;
    }
    if (!url[0].isLetter() || url.size() == colon + 1) return false;
    if (url.endsWith(QLatin1Char('/')) || url.endsWith(QLatin1Char('\\'))) return false;
    return QUrl(url).isValid();
}

QString GetHostName(const QString& url) {
    const QStringList parts = url.split(QLatin1Char('/'));
    return parts.size() > 2 ? parts[2] : QString();
}

QString NowText(Workspace& ws) {
    return ws.clock.now().toString(kTimeFormat);
}

QString FormatUpdateAge(Workspace& ws, const QString& t) {
    if (t.trimmed().isEmpty()) return QStringLiteral("Last Update: [not available]");
    const QDateTime then = QDateTime::fromString(t.trimmed(), kTimeFormat);
    if (!then.isValid()) return QStringLiteral("Last Update: [not available]");
    const qint64 minutes = then.secsTo(ws.clock.now()) / 60;
    return QStringLiteral("Last Update ") + QString::number(minutes) + QStringLiteral(" minutes ago");
}

// --- adding ---

bool AddRSS(Workspace& ws, QString& url, int16_t parentIndex, std::function<void()> done) {
    url = TrimBlanks(url);
    if (!IsFeedUrl(url)) {
        ws.platform.messageBox(QStringLiteral("Invalid URL: ") + url, MsgStyle::ExclamationBox);
        return false;
    }
    FeedsState& f = Feeds(ws);
    const int n = ws.RSSCount;
    f.Readers.resize(std::max<size_t>(f.Readers.size(), static_cast<size_t>(n) + 1));
    f.Readers[n] = std::make_unique<clsReader>(ws);
    clsReader& reader = *f.Readers[n];
    reader.FeedURL = url;
    NewGroup(ws, parentIndex);
    const int i = ws.ContainerCount - 1;
    if (i < 0) return false;
    ws.picCopy1(i).Visible = false;
    ws.picCopy2(i).Visible = false;
    ws.picPinNote(i).Visible = false;
    ws.picPin(i).Visible = false;
    ContainerRecord& r = ws.Containers[i];
    r.IsFeed = true;
    r.CopyPath = url;
    if (n > 0) {
        ws.LstRSS.Load(n);
        ws.lblRSSLastUpdate.Load(n);
    }
    Element& box = ws.LstRSS(n);
    UserControl1& p = f.Panel(n);
    p.GroupIndex = static_cast<int16_t>(i);
    p.FontName = ws.LinkFontName;
    box.Visible = true;
    box.ZOrder(0);
    p.setFeedBackColor(ws.txtNote(0).BackColor);
    box.setContainer(&ws.grpBorder(i));
    Element& last = ws.lblRSSLastUpdate(n);
    last.ForeColor = ws.ContainerLabelColor;
    last.Visible = true;
    last.ZOrder(0);
    last.setContainer(&ws.grpBorder(i));
    r.FeedIndex = static_cast<int16_t>(n);
    ws.grpBorder(i).BackColor = ws.ContainerColor;
    ws.grpBorder(i).ForeColor = ws.ContainerLabelColor;
    ws.lblName(i).ForeColor = ws.ContainerLabelColor;
    SetColors(ws, i, ws.ContainerColor);
    ws.Group(i).ZOrder(0);
    ws.Group(i).setContainer(&ws.picBack(0));
    ws.SelectedContainer = static_cast<int16_t>(i);
    if (!ws.IsLoading) SetObjectRelativeSize(ws, i);
    box.Left = 80;
    box.Top = 360;
    ws.platform.doEvents();
    ws.RSSCount = static_cast<int16_t>(n + 1);
    if (ws.IsLoading) {
        p.AddHeadLine(QString::fromLatin1(kClickToDownload), 0);
        p.ChangeHeadlinesForeColor(kGreen);
        p.SetScrolls();
        if (done) done();
        return true;
    }
    Workspace* w = &ws;
    reader.GetFeed([w, n, i, done] {
        if (Feeds(*w).Reader(n).Count() < 1)
            ShowFeedError(*w, n);
        else
            ShowFeedHeadlines(*w, i);
        if (done) done();
    });
    return true;
}

// --- filling ---

bool MatchSearchTerm(Workspace& ws, const clsHeadLine& headline, QString& term) {
    const QString name = QStringLiteral("mnuRSSSearchItem");
    const int members = ws.menus.familyCount(name);
    const QString head = headline.HeadLine.toLower();
    const QString desc = headline.Description.toLower();
    for (int k = 0; k < members; ++k) {
        const MenuEntry& m = ws.menus(name, k);
        if (!m.Visible()) continue;
        const QString caption = m.Caption().toLower();
        if (head.contains(caption) || desc.contains(caption)) {
            term = QStringLiteral("[") + m.Caption() + QStringLiteral("]");
            return true;
        }
    }
    return false;
}

void ShowFeedHeadlines(Workspace& ws, int i) {
    if (i < 0 || i >= static_cast<int>(ws.Containers.size())) return;
    FeedsState& f = Feeds(ws);
    const int n = ws.Containers[i].FeedIndex;
    clsReader& reader = f.Reader(n);
    reader.LastUpdate = NowText(ws);
    ws.lblRSSLastUpdate(n).Caption = reader.LastUpdate;
    if (ws.lblName(i).Caption.get() == QLatin1String("Container"))
        ws.lblName(i).Caption = reader.ChannelTitle();
    AddRSSShrinkIcon(ws, reader.FeedURL, i);
    UserControl1& p = f.Panel(n);
    p.FeedReaderIndex = static_cast<int16_t>(n);
    const bool highlight = ws.menus["mnuHighlightRSS"].Checked();
    const auto feed = reader.NewsFeed();
    int r = 0;
    for (const clsHeadLine& item : *feed) {
        p.AddHeadLine(Cleaned(item.HeadLine), r);
        QString term;
        if (highlight && MatchSearchTerm(ws, item, term)) {
            p.setForeColor(r, kRed);
            p.ChangeHeadLine(item.HeadLine + QStringLiteral(" ") + term, r);
        }
        if (r >= 30) break; // at most 31 rows
        ++r;
    }
    p.RSS_Resize();
    p.SetScrolls();
}

void ShowFeedError(Workspace& ws, int n) {
    UserControl1& p = Feeds(ws).Panel(n);
    p.AddHeadLine(QStringLiteral("Error opening RSS news feed"), 0);
    p.AddHeadLine(QStringLiteral("Check your internet connection and/or the Proxy Server address"), 1);
    p.AddHeadLine(QStringLiteral("Click the Refresh button to try again"), 2);
    p.AddHeadLine(QStringLiteral("* Make sure you have MSXML6 installed-See the readme.txt file for more"),
                  3);
    p.RSS_Resize();
    p.ChangeHeadlinesForeColor(kRed);
    p.SetScrolls();
}

void RefreshRSS(Workspace& ws, int n, int i, std::function<void()> done) {
    FeedsState& f = Feeds(ws);
    clsReader& reader = f.Reader(n);
    reader.Clear();
    // The old headlines go at once, whether or not the new fetch works.
    f.Panel(n).Clear();
    Workspace* w = &ws;
    reader.GetFeed([w, n, i, done] {
        if (Feeds(*w).Reader(n).Count() < 1)
            ShowFeedError(*w, n);
        else
            ShowFeedHeadlines(*w, i);
        if (done) done();
    });
}

// --- the shrink icon ---

void AddRSSShrinkIcon(Workspace& ws, const QString& url, int i) {
    const QString h = GetHostName(url);
    const QString favicon = ws.dataFile(QStringLiteral("favicon.ico"));
    Workspace* w = &ws;
    // One file serves every feed and is overwritten by each download.
    DownloadFile(ws, QStringLiteral("http://") + h + QStringLiteral("/favicon.ico"), favicon,
                 [w, i, favicon](bool ok) {
                     Workspace& space = *w;
                     if (i < 0 || i >= static_cast<int>(space.Containers.size())) return;
                     const QString icon = space.Containers[i].IconPath;
                     if (icon.isEmpty() || icon.contains(QLatin1String("rss.ico")) ||
                         icon.contains(QLatin1String("favicon.ico"))) {
                         AddShrinkIcon(space, ok ? favicon : space.programFile(QStringLiteral("rss.ico")), i);
                     } else {
                         AddShrinkIcon(space, icon, i);
                     }
                     DrawRSSIconOnTopofShrinkIcon(space, i);
                 });
}

void DrawRSSIconOnTopofShrinkIcon(Workspace& ws, int i) {
    FeedsState& f = Feeds(ws);
    f.RssOverlay.insert(i);
    if (f.onRssOverlay) f.onRssOverlay(i);
}

// --- the refresh label ---

void ShowRSSRefresh(Workspace& ws) {
    const int c = Feeds(ws).HoverFeedContainer;
    if (!ws.Group.exists(c)) return;
    Element& label = ws.lblRSSRefresh(0);
    const Element* parent = label.Container();
    bool colour = true;
    if (parent == &ws.picBack(0)) {
        label.setContainer(&ws.grpBorder(c));
    } else if (parent && parent->Index() == c) {
        if (!label.Visible) label.Visible = true;
        colour = false;
    }
    if (colour) {
        label.ForeColor = ws.lblName(c).ForeColor.get();
        label.setContainer(&ws.grpBorder(c));
    }
    label.Move(300, ws.picShrink(c).Top);
    label.ZOrder(0);
}

void lblRSSRefresh_MouseUp(Workspace& ws, int Button) {
    if (Button != 1) return;
    Element& label = ws.lblRSSRefresh(0);
    label.Caption = QStringLiteral(",");
    ws.platform.doEvents();
    const Element* parent = label.Container();
    // A label still on the background serves no container: the refresh ends here, busy.
    if (!parent || parent->Name() != QLatin1String("grpBorder")) return;
    const int c = parent->Index();
    if (c < 0 || c >= static_cast<int>(ws.Containers.size()) || !ws.Containers[c].IsFeed) return;
    const int n = ws.Containers[c].FeedIndex;
    Workspace* w = &ws;
    RefreshRSS(ws, n, c, [w, n] {
        if (w->LstRSS.exists(n)) w->SetFocus(w->LstRSS(n));
        w->lblRSSRefresh(0).Caption = QStringLiteral("7");
    });
}

// --- Refresh All ---

namespace {

void FinishRefreshAll(Workspace& ws) {
    FeedsState& f = Feeds(ws);
    ws.picBack(0).MousePointer = 0;
    ws.picBack(0).Enabled = true;
    ws.frmMain(0).Enabled = true;
    ws.lblCaption(0).Caption = ClockCaption(ws);
    EnableDisableTimerHide(ws, true);
    f.RefreshAll.Running = false;
    if (f.onRefreshAllDone) f.onRefreshAllDone();
}

// Shows the answers that have come, in container order, and the progress of the one awaited.
void PumpRefreshAll(Workspace& ws) {
    FeedsState& f = Feeds(ws);
    auto& run = f.RefreshAll;
    if (!run.Running) return;
    while (run.next < run.containers.size()) {
        const int i = run.containers[run.next];
        if (!run.announced) {
            run.announced = true;
            f.HoverFeedContainer = static_cast<int16_t>(i);
            SelectGroup(ws, i);
            ShowRSSRefresh(ws);
            Status(ws, ws.lblName(i).Caption.get() + QStringLiteral(" [") + QString::number(run.next + 1) +
                           QStringLiteral("/") + QString::number(run.total) + QStringLiteral("]"));
        }
        if (!run.answered[run.next]) return;
        const int n = ws.Containers[i].FeedIndex;
        if (f.Reader(n).Count() < 1)
            ShowFeedError(ws, n);
        else
            ShowFeedHeadlines(ws, i);
        UnselectGroup(ws, i);
        ++run.next;
        run.announced = false;
    }
    FinishRefreshAll(ws);
}

} // namespace

void mnuRSSRefreshAll_Click(Workspace& ws) {
    FeedsState& f = Feeds(ws);
    auto& run = f.RefreshAll;
    if (run.Running) return;
    EnableDisableTimerHide(ws, false);
    int total = 0;
    for (int k = 0; k < ws.LstRSS.Count(); ++k)
        if (ws.LstRSS.exists(k) && ws.LstRSS(k).Visible) ++total;
    ws.lblRSSRefresh(0).Visible = true;
    ws.picBack(0).MousePointer = 11;
    ws.picBack(0).Enabled = false;
    ws.frmMain(0).Enabled = false;
    if (!ws.IsLoading) UnselectAllGroups(ws);
    run = {};
    run.Running = true;
    run.total = total;
    for (int i = 0; i < ws.ContainerCount && i < static_cast<int>(ws.Containers.size()); ++i)
        if (ws.Containers[i].IsFeed && ws.Group.exists(i) && ws.Group(i).Visible) run.containers.push_back(i);
    run.answered.assign(run.containers.size(), false);
    // Every fetch starts now; each panel empties at once and is filled when its turn comes.
    const auto started = run.containers;
    Workspace* w = &ws;
    for (size_t k = 0; k < started.size(); ++k) {
        const int i = started[k];
        const int n = ws.Containers[i].FeedIndex;
        clsReader& reader = f.Reader(n);
        reader.Clear();
        f.Panel(n).Clear();
        reader.GetFeed([w, k] {
            auto& r = Feeds(*w).RefreshAll;
            if (!r.Running || k >= r.answered.size()) return;
            r.answered[k] = true;
            PumpRefreshAll(*w);
        });
    }
    PumpRefreshAll(ws);
}

// --- the dialog ---

void AddRSS_Load(Workspace& ws, FrmAddRSS& f) {
    SetOnTop(ws, QStringLiteral("frmAddRSS"), true, false);
    const QString clip = ws.platform.clipboardText();
    if (clip.startsWith(QLatin1String("http"))) f.txtRSS = clip;
}

void AddRSS_cmdAdd(Workspace&, FrmAddRSS& f) {
    RemoveTrailingSlash(f.txtRSS);
    f.lstFeeds.append(f.txtRSS);
    f.txtRSS.clear();
    if (f.onChanged) f.onChanged();
}

void AddRSS_cmdRemove(Workspace&, FrmAddRSS& f) {
    if (f.ListIndex < 0 || f.ListIndex >= f.lstFeeds.size()) return;
    f.lstFeeds.removeAt(f.ListIndex);
    f.ListIndex = f.lstFeeds.isEmpty() ? -1 : 0;
    if (f.onChanged) f.onChanged();
}

void AddRSS_OKButton(Workspace& ws, FrmAddRSS& f) {
    f.MousePointer = 11;
    f.lblWaitVisible = true;
    if (f.onChanged) f.onChanged();
    bool allAdded = true;
    if (f.lstFeeds.isEmpty() && !f.txtRSS.isEmpty()) {
        RemoveTrailingSlash(f.txtRSS);
        QString url = f.txtRSS;
        allAdded = AddRSS(ws, url, -1);
    } else {
        for (int k = static_cast<int>(f.lstFeeds.size()) - 1; k >= 0; --k) {
            QString url = f.lstFeeds[k];
            if (AddRSS(ws, url, -1))
                f.lstFeeds.removeAt(k);
            else
                allAdded = false;
        }
    }
    if (!allAdded)
        ws.platform.messageBox(QStringLiteral("Could not add all RSS feeds"), MsgStyle::ExclamationBox);
    f.MousePointer = 0;
    f.lblWaitVisible = false;
    AddRSS_Cancel(ws, f);
}

void AddRSS_Cancel(Workspace& ws, FrmAddRSS& f) {
    f.Closed = true;
    auto& list = ws.TopmostWindows;
    list.erase(std::remove(list.begin(), list.end(), QStringLiteral("frmAddRSS")), list.end());
    if (f.onChanged) f.onChanged();
}

void mnuAddRSS_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    FrmAddRSS form;
    AddRSS_Load(ws, form);
    if (Feeds(ws).showAddRSS) Feeds(ws).showAddRSS(form);
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

// --- menus and small elements ---

void mnuRSSCopyURL_Click(Workspace& ws) {
    const int i = ws.SelectedContainer;
    if (i < 0 || i >= static_cast<int>(ws.Containers.size()) || !ws.Containers[i].IsFeed) return;
    ws.platform.setClipboardText(QString());
    ws.platform.setClipboardText(Feeds(ws).Reader(ws.Containers[i].FeedIndex).FeedURL);
}

void mnuRSSOpenWebsite_Click(Workspace& ws) {
    const int i = ws.SelectedContainer;
    if (i < 0 || i >= static_cast<int>(ws.Containers.size()) || !ws.Containers[i].IsFeed) return;
    PostLaunch(ws, false);
    ws.platform.openUrl(Feeds(ws).Reader(ws.Containers[i].FeedIndex).FeedURL);
    PostLaunch(ws, true);
}

void mnuRSSResetIcon_Click(Workspace& ws) {
    const int i = ws.SelectedContainer;
    if (i < 0 || i >= static_cast<int>(ws.Containers.size()) || !ws.Containers[i].IsFeed) return;
    ws.Containers[i].IconPath = QStringLiteral("favicon.ico");
    AddRSSShrinkIcon(ws, Feeds(ws).Reader(ws.Containers[i].FeedIndex).FeedURL, i);
}

void mnuRSSSetProxy_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const QString answer = AskInput(ws, QStringLiteral("Proxy Server:"), ws.ProxyServer);
    if (!TrimBlanks(answer).isEmpty()) {
        ws.menus["mnuRSSSetProxy"].setChecked(true);
        ws.ProxyServer = answer;
    } else {
        ws.ProxyServer.clear();
        ws.menus["mnuRSSSetProxy"].setChecked(false);
    }
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

void PicRSSRefreshALL_MouseDown(Workspace& ws, int Button) {
    // The view inverts the picture while the button is down.
    if (Button == 1) ws.PicRSSRefreshALL(0).BorderStyle = 1;
}

QString PicRSSRefreshALL_MouseUp(Workspace& ws, int Button) {
    if (Button != 1) return {};
    ws.PicRSSRefreshALL(0).BorderStyle = 0;
    return QStringLiteral("mnuRSSNewsFeeds");
}

QString FeedTitleTooltip(Workspace& ws, int i) {
    if (i < 0 || i >= static_cast<int>(ws.Containers.size()) || !ws.Containers[i].IsFeed) return {};
    FeedsState& f = Feeds(ws);
    const int n = ws.Containers[i].FeedIndex;
    if (!f.HasReader(n)) return {};
    const auto feed = f.Reader(n).NewsFeed();
    QString text = QStringLiteral("\r\n\r\nFirst few headlines:\r\n");
    bool appended = false;
    if (feed->Count() >= 1) {
        // The last record is left out: a one-record feed lists nothing.
        for (int k = 1; k <= feed->Count() - 1; ++k) {
            text += QStringLiteral("\r\n- ") + feed->Item(k).HeadLine;
            appended = true;
            if (text.size() > 200) break;
        }
    }
    return appended ? text : QString();
}

void FeedTitle_MouseMove(Workspace& ws, int i) {
    Feeds(ws).HoverFeedContainer = static_cast<int16_t>(i);
    ShowRSSRefresh(ws);
    ws.lblName(i).ToolTipText = FeedTitleTooltip(ws, i);
}

void lblRSSLastUpdate_MouseMove(Workspace& ws, int n) {
    if (!ws.lblRSSLastUpdate.exists(n)) return;
    const QString last = Feeds(ws).HasReader(n) ? Feeds(ws).Reader(n).LastUpdate : QString();
    ws.lblRSSLastUpdate(n).ToolTipText = FormatUpdateAge(ws, last);
}

QString FeedLastUpdateAge(Workspace& ws, int i) {
    if (i < 0 || i >= static_cast<int>(ws.Containers.size())) return FormatUpdateAge(ws, {});
    const int n = ws.Containers[i].FeedIndex;
    return FormatUpdateAge(ws, Feeds(ws).HasReader(n) ? Feeds(ws).Reader(n).LastUpdate : QString());
}

void FeedContainerDeleted(Workspace& ws, int i) {
    if (i < 0 || i >= static_cast<int>(ws.Containers.size()) || !ws.Containers[i].IsFeed) return;
    FeedsState& f = Feeds(ws);
    if (f.HasReader(ws.Containers[i].FeedIndex)) f.Reader(ws.Containers[i].FeedIndex).Clear();
}

void FeedPanelResized(Workspace& ws, int n) {
    UserControl1& p = Feeds(ws).Panel(n);
    p.RSS_Resize();
    const int v = p.VScrollVal(), h = p.HScrollVal();
    p.setVScrollVal(v + 10);
    p.setVScrollVal(v);
    p.setHScrollVal(h + 10);
    p.setHScrollVal(h);
}

void SetFeedMenuEntries(Workspace& ws, int i) {
    const bool feed = i >= 0 && i < static_cast<int>(ws.Containers.size()) && ws.Containers[i].IsFeed;
    for (const char* name : {"mnuSepRSS", "mnuRSSOpenWebsite", "mnuRSSCopyURL", "mnuRSSResetIcon"})
        if (ws.menus.has(QString::fromLatin1(name))) ws.menus[QString::fromLatin1(name)].setVisible(feed);
}

} // namespace pd
