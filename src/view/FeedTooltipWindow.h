#pragma once
// The window of a feed headline's tip (frmTooltip): a rich label on a frameless window above the
// others, drawn at 240 of 255 opacity. It mirrors the tip's state; a pointer move or a press on it
// closes it, and a wheel turned over it goes on to the headline panel beneath.

#include <QWidget>

namespace pd {

struct FeedTooltip;
class RichLabel;

class FeedTooltipWindow : public QWidget {
public:
    // The widest a tip is drawn, in pixels; a longer text wraps.
    static constexpr int kMaxWidth = 400;

    FeedTooltipWindow(FeedTooltip& tip, float twipsPerPixelX, float twipsPerPixelY);
    // Shows, moves and fills the window as the tip's state says, or hides it.
    void sync();
    RichLabel& label() { return *label_; }

protected:
    void mouseMoveEvent(QMouseEvent* ev) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void wheelEvent(QWheelEvent* ev) override;
    bool eventFilter(QObject* watched, QEvent* ev) override;

private:
    FeedTooltip& tip_;
    RichLabel* label_;
    float tx_, ty_;
};

} // namespace pd
