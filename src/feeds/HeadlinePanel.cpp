#include "feeds/HeadlinePanel.h"

#include "app/workspace/Workspace.h"
#include "containers/Shrinking.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedViewer.h"
#include "feeds/FeedsState.h"
#include "feeds/StripHtmlTags.h"
#include "window/AutoHide.h"
#include "window/Docking.h"
#include "window/FeedTooltip.h"

#include <algorithm>
#include <cmath>

namespace pd {

namespace {

// The rows' font size: the rich label's design size.
constexpr float kRowFontSize = 8;
// The scroll bars' thickness: the toolkit's 17 pixels.
constexpr float kBarPixels = 17;
constexpr int32_t kReadColor = 0xC0C0C0;

bool Fits16(double v) {
    return v >= -32768 && v <= 32767;
}

} // namespace

UserControl1::UserControl1(Workspace& w, int index) : ws(w), Index(index) {
    Rows.resize(1);
    Rows[0].Loaded = true;
    VScroll1.Width = kBarPixels * ws.TwipsPerPixelX();
    HScroll1.Height = kBarPixels * ws.TwipsPerPixelY();
    VScroll1.LargeChange = 80;
    HScroll1.LargeChange = 100;
}

const QString& UserControl1::RowText(int row) const {
    static const QString none;
    return RowExists(row) ? Rows[row].Text : none;
}

int UserControl1::LastRow() const {
    for (int r = static_cast<int>(Rows.size()) - 1; r > 0; --r)
        if (Rows[r].Loaded) return r;
    return 0;
}

HeadlineRow& UserControl1::Load(int row) {
    if (static_cast<int>(Rows.size()) <= row) Rows.resize(static_cast<size_t>(row) + 1);
    HeadlineRow& r = Rows[row];
    if (!r.Loaded) {
        // A new member takes member 0's properties, hidden.
        r = Rows[0];
        r.Visible = false;
        r.SepVisible = false;
        r.BulletVisible = false;
        r.Loaded = true;
    }
    return r;
}

void UserControl1::SetLabelText(HeadlineRow& r, const QString& text) {
    r.Text = text;
    // The label sizes itself to its text (AutoSize).
    const QSize px = ws.platform.textExtent(text, r.FontName, kRowFontSize, false);
    r.Width = px.width() * ws.TwipsPerPixelX();
    r.Height = px.height() * ws.TwipsPerPixelY();
}

void UserControl1::AddHeadLine(const QString& text, int row) {
    if (row < 0) return;
    if (row > 0) {
        HeadlineRow& r = Load(row);
        const float h = r.Height;
        const float t = Rows[row - 1].Loaded ? Rows[row - 1].Top : Rows[0].Top;
        r.Left = 400;
        r.Top = t + 2 * h;
        r.SepY1 = r.SepY2 = r.Top + r.Height + 100;
        r.BulletTop = r.Top + 80;
    }
    HeadlineRow& r = Rows[row];
    r.Transparent = false;
    r.BackColor = FeedBackColorValue;
    r.ForeColor = ws.txtNote(0).ForeColor;
    r.SepVisible = true;
    r.BulletVisible = true;
    r.FontName = FontName.isEmpty() ? r.FontName : FontName;
    SetLabelText(r, text);
    r.Visible = true;
    changed();
}

void UserControl1::ChangeHeadLine(const QString& text, int row) {
    if (!RowExists(row)) return;
    SetLabelText(Rows[row], text);
    changed();
}

void UserControl1::Clear() {
    Rows[0].Visible = false;
    Rows[0].SepVisible = false;
    Rows[0].BulletVisible = false;
    Rows.resize(1);
    changed();
}

int32_t UserControl1::ForeColor(int row) const {
    return RowExists(row) ? Rows[row].ForeColor : 0;
}

void UserControl1::setForeColor(int row, int32_t colour) {
    if (!RowExists(row)) return;
    Rows[row].ForeColor = colour;
    changed();
}

void UserControl1::setFeedBackColor(int32_t colour) {
    FeedBackColorValue = colour;
    changed();
}

void UserControl1::ChangeHeadlinesFontName(const QString& name) {
    for (HeadlineRow& r : Rows)
        if (r.Loaded) {
            r.FontName = name;
            SetLabelText(r, r.Text);
        }
    changed();
}

void UserControl1::ChangeHeadlinesForeColor(int32_t colour) {
    for (HeadlineRow& r : Rows)
        if (r.Loaded) {
            r.ForeColor = colour;
            r.BackColor = FeedBackColorValue;
        }
    changed();
}

void UserControl1::SetRead(int row) {
    // Row 30, the last a panel can show, never greys.
    if (row < 30 && RowExists(row)) {
        Rows[row].ForeColor = kReadColor;
        changed();
    }
}

int UserControl1::FindLongestHeadline() const {
    int best = 0;
    int longest = -1;
    for (int r = 0; r < static_cast<int>(Rows.size()); ++r) {
        if (!Rows[r].Loaded) continue;
        if (static_cast<int>(Rows[r].Text.size()) > longest) {
            longest = static_cast<int>(Rows[r].Text.size());
            best = r;
        }
    }
    return best;
}

void UserControl1::RSS_Resize() {
    const Element& box = ws.LstRSS(Index);
    const float W = box.Width, H = box.Height;
    VScroll1.Left = W - VScroll1.Width;
    VScroll1.Top = 0;
    VScroll1.Height = H - HScroll1.Height;
    HScroll1.Left = 0;
    HScroll1.Top = H - HScroll1.Height;
    HScroll1.Width = W - VScroll1.Width;
    picBack = {0, 0, W - VScroll1.Width, H - HScroll1.Height};
    PicFeed = {0, 0, picBack.Width, picBack.Height + 150};
    const int k = FindLongestHeadline();
    if (Rows[k].Width + 1000 > picBack.Width) PicFeed.Width = Rows[k].Width + 1000;
    const HeadlineRow& last = Rows[LastRow()];
    if (last.Top > PicFeed.Height) PicFeed.Height = last.Top + 3 * last.Height;
    for (HeadlineRow& r : Rows)
        if (r.Loaded) r.SepX2 = picBack.Width - 150;
    changed();
}

bool UserControl1::SetScrollValue(PanelScrollBar& bar, int v) {
    // The element refuses a value outside its range.
    if (v < std::min(bar.Min, bar.Max) || v > std::max(bar.Min, bar.Max)) return false;
    if (bar.Value == v) return false;
    bar.Value = v;
    return true;
}

void UserControl1::setVScrollVal(int v) {
    if (SetScrollValue(VScroll1, v)) VScroll1_Change();
}

void UserControl1::setHScrollVal(int v) {
    if (SetScrollValue(HScroll1, v)) HScroll1_Change();
}

void UserControl1::VScroll1_Change() {
    PicFeed.Top = static_cast<float>(100 - VScroll1.Value);
    changed();
}

void UserControl1::HScroll1_Change() {
    PicFeed.Left = static_cast<float>(100 - HScroll1.Value);
    changed();
}

void UserControl1::SetScrolls() {
    HScroll1.Enabled = PicFeed.Width > picBack.Width;
    VScroll1.Enabled = PicFeed.Height > picBack.Height + 150;
    // A Max beyond 16 bits is refused and the bar keeps its old range.
    const double vmax = std::round(PicFeed.Height - picBack.Height);
    const double hmax = std::round(PicFeed.Width - picBack.Width);
    if (Fits16(vmax)) VScroll1.Max = static_cast<int>(vmax);
    if (Fits16(hmax)) HScroll1.Max = static_cast<int>(hmax);
    const double n = std::round((PicFeed.Height - picBack.Height) / 40.0);
    const double m = std::round((PicFeed.Width - picBack.Width) / 40.0);
    // A step below 1 (or beyond 16 bits) is refused, leaving the old one.
    auto step = [](int& field, double v) {
        if (v >= 1 && v <= 32767) field = static_cast<int>(v);
    };
    step(VScroll1.LargeChange, 4 * n);
    step(VScroll1.SmallChange, n);
    step(HScroll1.LargeChange, 4 * m);
    step(HScroll1.SmallChange, m);
    // A value left beyond a narrowed range comes back into it.
    VScroll1.Value = std::clamp(VScroll1.Value, std::min(VScroll1.Min, VScroll1.Max),
                                std::max(VScroll1.Min, VScroll1.Max));
    HScroll1.Value = std::clamp(HScroll1.Value, std::min(HScroll1.Min, HScroll1.Max),
                                std::max(HScroll1.Min, HScroll1.Max));
    setVScrollVal(VScroll1.Min);
    setHScrollVal(HScroll1.Min);
    changed();
}

void UserControl1::MouseWheel(int turn) {
    if (VScrollEnabled()) {
        if (turn < 0)
            setVScrollVal(std::min(VScrollVal() + VScrollLargeChange(), VScrollMax()));
        else if (turn > 0)
            setVScrollVal(std::max(VScrollVal() - VScrollLargeChange(), VScrollMin()));
    } else {
        if (turn < 0)
            setHScrollVal(std::min(HScrollVal() + HScrollLargeChange(), HScrollMax()));
        else if (turn > 0)
            setHScrollVal(std::max(HScrollVal() - HScrollLargeChange(), HScrollMin()));
    }
}

void UserControl1::ActivatePanelContainer() {
    FeedsState& f = Feeds(ws);
    f.HoverFeedContainer = GroupIndex;
    if (ws.Group.exists(GroupIndex)) ws.Group(GroupIndex).ZOrder(0);
    ShowRSSRefresh(ws);
}

void UserControl1::Scroll_Drag() {
    ActivatePanelContainer();
}

void UserControl1::LblHeadline_MouseDown(int) {
    ActivatePanelContainer();
}

void UserControl1::LblHeadline_MouseMove(int row) {
    if (!RowExists(row)) return;
    FeedsState& f = Feeds(ws);
    PicFeedPointer = 99;
    f.OverHeadline = true;
    const HeadlineRow& r = Rows[row];
    if (!UnderlineVisible && ws.lblRSSRefresh(0).Caption.get() != QLatin1String(",")) {
        UnderX1 = r.Left;
        UnderX2 = r.Width + 400;
        UnderY1 = UnderY2 = r.Top + r.Height;
        UnderlineVisible = true;
    }
    RowUnderPointer = static_cast<int16_t>(row);
    if (FeedReaderIndex != -1 && f.HasReader(FeedReaderIndex) && f.Reader(FeedReaderIndex).Count() != 0) {
        if (row != LastTooltipRow || !HeadlineTip(ws).Loaded) {
            LastTooltipRow = static_cast<int16_t>(row);
            const auto feed = f.Reader(FeedReaderIndex).NewsFeed();
            if (row + 1 <= feed->Count()) ShowHeadlineTooltip(Cleaned(feed->Item(row + 1).Description));
        }
    }
    changed();
}

void UserControl1::LblHeadline_MouseLeave() {
    UnderlineVisible = false;
    Feeds(ws).OverHeadline = false;
    changed();
}

void UserControl1::LblHeadline_MouseUp(int row, int Button, int Shift) {
    if (Button != 1) {
        // The view pops up mnuRightClick.
        RowUnderPointer = static_cast<int16_t>(row);
        return;
    }
    if (RowText(RowUnderPointer) == QLatin1String(kClickToDownload)) {
        UnderlineVisible = false;
        ChangeHeadLine(QString::fromLatin1(kDownloading), 0);
        lblRSSRefresh_MouseUp(ws, 1);
        return;
    }
    if (HeadlineTip(ws).Loaded) UnloadFeedTooltip(HeadlineTip(ws));
    if ((Shift & 7) == 1) {
        OpenHeadline(RowUnderPointer, true);
        LblHeadline_MouseLeave();
    } else {
        OpenHeadline(row, false);
    }
}

void UserControl1::mnuOpenInBrowser_Click() {
    EnableDisableTimerHide(ws, false);
    LblHeadline_MouseUp(RowUnderPointer, 1, 1);
    EnableDisableTimerHide(ws, true);
}

void UserControl1::OpenHeadline(int row, bool forceSite) {
    FeedsState& f = Feeds(ws);
    if (FeedReaderIndex == -1 || !f.HasReader(FeedReaderIndex) || f.Reader(FeedReaderIndex).Count() == 0)
        return;
    SetRead(row);
    const auto feed = f.Reader(FeedReaderIndex).NewsFeed();
    if (row + 1 < 1 || row + 1 > feed->Count()) return;
    const clsHeadLine item = feed->Item(row + 1);
    if (!ws.menus["mnuRSSOpenDirectly"].Checked() && !forceSite) {
        ShowRSSViewer(ws, item);
    } else {
        PostLaunch(ws, false);
        ws.platform.openUrl(item.ArticleLink);
        PostLaunch(ws, true);
    }
}

void UserControl1::ShowHeadlineTooltip(const QString& description) {
    FeedsState& f = Feeds(ws);
    const QPoint at = ws.platform.cursorPos();
    const float x = at.x() * ws.TwipsPerPixelX(), y = at.y() * ws.TwipsPerPixelY();
    QString text = description;
    if (text.trimmed().isEmpty()) text = QStringLiteral("No Description");
    f.TipAlignment = text.size() > 35 ? 0 : 2;
    QString shown = text.left(255);
    if (text.size() >= 255) shown += QStringLiteral("...");
    // The window is as wide as its longest line, up to 400 pixels: centred under the pointer.
    int widest = 0;
    for (const QString& line : shown.split(QLatin1Char('\n')))
        widest = std::max(widest,
                          ws.platform.textExtent(line, QStringLiteral("Arial"), kRowFontSize, false).width());
    const float width = std::min(400, widest + 10) * ws.TwipsPerPixelX();
    HeadlineTip(ws).Alignment = f.TipAlignment;
    ShowFeedTooltip(HeadlineTip(ws), shown, x - width / 2, y + 600);
}

void UserControl1::Back_MouseMove() {
    PicFeedPointer = 0;
    ActivatePanelContainer();
    if (ws.ExpandedContainer >= 0 && ws.ExpandedContainer != GroupIndex) ShrinkBackContainer(ws);
}

void UserControl1::Back_MouseDown(int Button) {
    if (Button != 2) return;
    ws.AutoExpandSuspended = true;
    ws.TimerSuspendAutoExpand.setEnabled(false);
    ws.TimerSuspendAutoExpand.setEnabled(true);
    ShrinkBackContainer(ws);
}

void UserControl1::Back_DblClick() {
    Back_MouseDown(2);
    ws.DblClickLabelDelay = true;
    ws.TimerDblClickLabelDelay.setEnabled(false);
    ws.TimerDblClickLabelDelay.setEnabled(true);
    ws.platform.flushMouseEvents();
}

} // namespace pd
