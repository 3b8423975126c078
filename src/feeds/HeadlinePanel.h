#pragma once
// UserControl1, the headline panel of a feed container: one row a headline (a label, a bullet ahead of
// it and a thin rule under it) on a sheet (PicFeed) that moves inside a viewport (picBack) under two
// scroll bars. All lengths are twips. The panel's own place and size are those of its LstRSS member;
// this is the state inside it, which the view draws.

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace pd {

class Workspace;
class Element;

// A scroll bar as the toolkit's 16-bit scroll element behaves: Max, steps and Value outside their
// ranges are refused and leave the old value.
struct PanelScrollBar {
    bool Enabled = true;
    int Min = 0;
    int Max = 32767;
    int Value = 0;
    int SmallChange = 50;
    int LargeChange = 80;
    float Left = 0, Top = 0, Width = 0, Height = 0;
};

struct PanelBox {
    float Left = 0, Top = 0, Width = 0, Height = 0;
};

// One row: the members `row` of LblHeadline, SepLine and Bullet.
struct HeadlineRow {
    bool Loaded = false;
    // LblHeadline
    QString Text;
    float Left = 405, Top = 120, Width = 1545, Height = 225;
    bool Visible = false;
    int32_t ForeColor = 0;
    int32_t BackColor = 0xFFFFFF;
    bool Transparent = true;
    QString FontName = QStringLiteral("Arial");
    // SepLine
    float SepX1 = 240, SepY1 = 415, SepX2 = 2760, SepY2 = 415;
    bool SepVisible = false;
    // Bullet
    float BulletLeft = 240, BulletTop = 195, BulletSize = 75;
    bool BulletVisible = false;
};

class UserControl1 {
  public:
    UserControl1(Workspace& ws, int index);

    Workspace& ws;
    // The member of LstRSS this panel is.
    const int Index;

    // --- state fields ---
    int16_t RowUnderPointer = -1;
    int16_t LastTooltipRow = -1;
    int16_t FeedReaderIndex = -1;
    QString FontName;
    int16_t GroupIndex = 0;

    // --- elements ---
    PanelBox picBack;
    PanelBox PicFeed;
    // 0 the default pointer, 99 the hand.
    int PicFeedPointer = 0;
    int32_t FeedBackColorValue = 0xFFFFFF;
    int32_t UCBackBackColor = 0xFFFFFF;
    std::vector<HeadlineRow> Rows;
    // LineUnderline
    bool UnderlineVisible = false;
    float UnderX1 = 240, UnderY1 = 720, UnderX2 = 2760, UnderY2 = 720;
    PanelScrollBar VScroll1;
    PanelScrollBar HScroll1;

    // --- properties ---
    bool VScrollEnabled() const { return VScroll1.Enabled; }
    int VScrollLargeChange() const { return VScroll1.LargeChange; }
    int VScrollMax() const { return VScroll1.Max; }
    int VScrollMin() const { return VScroll1.Min; }
    int VScrollVal() const { return VScroll1.Value; }
    void setVScrollVal(int v);
    int HScrollLargeChange() const { return HScroll1.LargeChange; }
    int HScrollMax() const { return HScroll1.Max; }
    int HScrollMin() const { return HScroll1.Min; }
    int HScrollVal() const { return HScroll1.Value; }
    void setHScrollVal(int v);

    // --- operations ---
    void RSS_Resize();
    int32_t ForeColor(int row) const;
    void setForeColor(int row, int32_t colour);
    int32_t FeedBackColor() const { return FeedBackColorValue; }
    void setFeedBackColor(int32_t colour);
    void ChangeHeadlinesFontName(const QString& name);
    void ChangeHeadlinesForeColor(int32_t colour);
    void SetScrolls();
    void SetRead(int row);
    void Clear();
    void AddHeadLine(const QString& text, int row);
    void ChangeHeadLine(const QString& text, int row);
    // The row whose text has the most characters; the first of equals.
    int FindLongestHeadline() const;
    // The highest row loaded (0 when only member 0 exists).
    int LastRow() const;
    bool RowExists(int row) const {
        return row >= 0 && row < static_cast<int>(Rows.size()) && Rows[row].Loaded;
    }
    const QString& RowText(int row) const;

    // --- events (rows by number, pointer in twips of the sheet, Shift as the 1/2/4 mask) ---
    void LblHeadline_MouseDown(int row);
    void LblHeadline_MouseMove(int row);
    void LblHeadline_MouseLeave();
    void LblHeadline_MouseUp(int row, int Button, int Shift);
    void mnuOpenInBrowser_Click();
    // A drag of either bar's thumb, and a change of its value.
    void Scroll_Drag();
    void VScroll1_Change();
    void HScroll1_Change();
    // The empty area (picBack and PicFeed).
    void Back_MouseMove();
    void Back_MouseDown(int Button);
    void Back_DblClick();
    // The wheel over the panel: turn < 0 downward.
    void MouseWheel(int turn);

    void OpenHeadline(int row, bool forceSite);
    void ActivatePanelContainer();
    void ShowHeadlineTooltip(const QString& text);

    // Called after any change the view has to draw; set by the view.
    std::function<void()> onChanged;
    void changed() const {
        if (onChanged) onChanged();
    }

  private:
    HeadlineRow& Load(int row);
    void SetLabelText(HeadlineRow& r, const QString& text);
    bool SetScrollValue(PanelScrollBar& bar, int v);
};

// The text of the waiting line and its replacement while the first download runs.
inline const char* const kClickToDownload = "Click to download headlines";
inline const char* const kDownloading = "Downloading latest headlines...";

} // namespace pd
