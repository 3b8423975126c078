#pragma once
// An outline over the whole screen: a frameless, input-transparent top-level window shaped to a ring,
// so that it shows on any desktop without a compositor and never takes a mouse event. It stands for
// the ghost of a rim drag (drawn a second time at the same place it goes away, as an XOR outline does)
// and for the outline of an element carried to another owner.

#include <QColor>
#include <QRect>
#include <QWidget>

namespace pd {

class GhostFrame : public QWidget {
public:
    explicit GhostFrame(const QString& name);
    // The outline of `rect` (screen pixels) shows; the same rectangle again takes it away.
    void toggle(const QRect& rect);
    // Shows the outline of `rect`, wherever it was.
    void showOutline(const QRect& rect);
    void hideOutline();
    bool shown() const { return shown_; }
    const QRect& outline() const { return rect_; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QRect rect_;
    bool shown_ = false;
};

} // namespace pd
