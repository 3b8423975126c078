#include "feeds/FeedSearch.h"

#include "app/files/Values.h"
#include "app/workspace/Workspace.h"
#include "desk/Lock.h"
#include "feeds/FeedsState.h"
#include "feeds/StripHtmlTags.h"
#include "window/AutoHide.h"
#include "window/Docking.h"

namespace pd {

namespace {

const QString kItem = QStringLiteral("mnuRSSSearchItem");
const QString kSearchWindow = QStringLiteral("frmRSSSearch");

void Changed(FrmRSSSearch& f) {
    if (f.onChanged) f.onChanged();
}

void OpenSearch(Workspace& ws, const QString* term) {
    // A locked workspace opens for a short spell, and locks again by itself ten seconds later.
    UnlockBriefly(ws);
    EnableDisableTimerHide(ws, false);
    FrmRSSSearch form;
    RSSSearch_Load(ws, form);
    SetOnTop(ws, kSearchWindow, true, false);
    if (term) {
        form.txtSearch = *term;
        txtSearch_Change(ws, form);
    }
    if (Feeds(ws).showSearch) Feeds(ws).showSearch(form);
    RSSSearch_Unload(ws, form);
    EnableDisableTimerHide(ws, true);
}

} // namespace

int RecentTermCount(Workspace& ws) {
    int n = 1;
    while (n < 10 && ws.menus.has(kItem, n) && ws.menus(kItem, n).Visible())
        ++n;
    return n;
}

void mnuRSSSearch_Click(Workspace& ws) {
    OpenSearch(ws, nullptr);
}

void mnuRSSSearchItem_Click(Workspace& ws, int index) {
    if (!ws.menus.has(kItem, index)) return;
    const QString caption = ws.menus(kItem, index).Caption();
    if (caption == QLatin1String(kNoRecentSearch)) return;
    OpenSearch(ws, &caption);
}

void mnuClearRecentSearchTerms_Click(Workspace& ws) {
    if (ws.platform.messageBox(QStringLiteral("Clear the Recent Search Terms list?"), MsgStyle::YesNoQuestion,
                               QStringLiteral("Perchdock")) != MsgAnswer::Yes)
        return;
    // Members above 0 go; they stay declared, hidden, so that the menu can show them again.
    for (int n = 1; n < 10; ++n)
        if (ws.menus.has(kItem, n)) {
            ws.menus(kItem, n).setVisible(false);
            ws.menus(kItem, n).setCaption(QString());
        }
    ws.menus(kItem, 0).setCaption(QString::fromLatin1(kNoRecentSearch));
}

void RSSSearch_Load(Workspace& ws, FrmRSSSearch& f) {
    f.chkFull = ws.RSSchkFullValue == 1;
    f.chkHeadline = ws.RSSchkHeadlineValue == 1;
}

void txtSearch_Change(Workspace& ws, FrmRSSSearch& f) {
    if (f.txtSearch.isEmpty()) {
        f.Caption = QStringLiteral("Search RSS");
        Changed(f);
        return;
    }
    f.txtRSS.clear();
    f.Results = 0;
    FeedsState& feeds = Feeds(ws);
    const QString term = f.txtSearch.toLower();
    for (int k = 0; k < ws.LstRSS.Count(); ++k) {
        if (!feeds.HasReader(k) || feeds.Reader(k).Count() <= 0) continue;
        clsReader& reader = feeds.Reader(k);
        f.txtRSS += QStringLiteral("\r\n*** ") + reader.ChannelTitle() + QStringLiteral(" ***\r\n");
        const auto feed = reader.NewsFeed();
        // The last record of a feed is not searched.
        for (int j = 1; j <= feed->Count() - 1; ++j) {
            const clsHeadLine& item = feed->Item(j);
            bool found = false;
            auto add = [&] {
                f.txtRSS += QStringLiteral("\r\n[") + Cleaned(item.HeadLine) + QStringLiteral("]\r\n");
                f.txtRSS += QStringLiteral("\r\n") + Cleaned(item.Description) + QStringLiteral("\r\n");
                ++f.Results;
            };
            if (f.chkHeadline && item.HeadLine.toLower().contains(term)) {
                add();
                found = true;
            }
            if (f.chkFull && item.Description.toLower().contains(term) && !found) add();
        }
    }
    f.Caption = QStringLiteral("Results: ") + QString::number(f.Results);
    Changed(f);
}

void RSSSearch_CheckClick(Workspace& ws, FrmRSSSearch& f) {
    txtSearch_Change(ws, f);
}

void RSSSearch_Unload(Workspace& ws, FrmRSSSearch& f) {
    ws.RSSchkFullValue = f.chkFull ? 1 : 0;
    ws.RSSchkHeadlineValue = f.chkHeadline ? 1 : 0;
    auto& list = ws.TopmostWindows;
    list.erase(std::remove(list.begin(), list.end(), kSearchWindow), list.end());
    const QString text = TrimBlanks(f.txtSearch);
    f.txtSearch = text;
    if (text.isEmpty()) return;
    const int count = RecentTermCount(ws);
    for (int n = 0; n < count; ++n)
        if (ws.menus(kItem, n).Caption() == text) return;
    if (count >= 10) {
        // The oldest term goes: each member takes the next one's caption, the last the new term.
        for (int n = 0; n < count - 1; ++n)
            ws.menus(kItem, n).setCaption(ws.menus(kItem, n + 1).Caption());
        ws.menus(kItem, count - 1).setCaption(text);
        return;
    }
    int last = count - 1;
    if (ws.menus(kItem, 0).Caption() != QLatin1String(kNoRecentSearch)) last = count;
    MenuEntry& m = ws.menus.add(kItem, QString(), QStringLiteral("mnuRSSRecentSearches"), last);
    m.setCaption(text);
    m.setVisible(true);
}

} // namespace pd
