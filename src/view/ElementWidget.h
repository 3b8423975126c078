#pragma once
// The widget that shows one element: its back colour (unless transparent), its picture, its caption.
// Elements that take typed text (a container's rename field, a note) hold a real editor inside.

#include "platform/qt/HiDpiPictures.h"

#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <functional>

class QLineEdit;
class QPlainTextEdit;

namespace pd {

class Element;
enum class Prop : uint8_t;

class ElementWidget : public QWidget {
    Q_OBJECT
public:
    ElementWidget(Element& e, QWidget* parent);
    ~ElementWidget() override;
    Element& element() const { return e_; }
    // Rebuilds the cached picture after the element's Picture changed.
    void reloadPicture();
    // A rounded outline of the given radius in pixels; 0 for a plain rectangle.
    void setCornerRadius(int px);
    // Shows a change of the element's look (text, colours, font).
    void mirror(Prop p);
    // Gives the editor, if any, the keyboard focus with its whole text selected.
    void focusEditor();
    bool hasEditor() const { return line_ || note_; }

    // Mouse events, with the pointer in the widget's pixels.
    std::function<void(ElementWidget&, QMouseEvent&)> onPress;
    std::function<void(ElementWidget&, QMouseEvent&)> onRelease;
    std::function<void(ElementWidget&, QMouseEvent&)> onMove;
    std::function<void(ElementWidget&, QMouseEvent&)> onDoubleClick;
    // The editor's text was changed by the user; Enter was pressed in a one-line editor; the editor
    // lost the keyboard focus.
    std::function<void(ElementWidget&)> onTextEdited;
    std::function<void(ElementWidget&)> onReturn;
    std::function<void(ElementWidget&)> onFocusLost;
    // Drags from other programs (enter, move, leave, drop), for widgets that accept drops.
    std::function<void(ElementWidget&, QEvent&)> onDrag;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseReleaseEvent(QMouseEvent* ev) override;
    void mouseMoveEvent(QMouseEvent* ev) override;
    void mouseDoubleClickEvent(QMouseEvent* ev) override;
    void dragEnterEvent(QDragEnterEvent* ev) override;
    void dragMoveEvent(QDragMoveEvent* ev) override;
    void dragLeaveEvent(QDragLeaveEvent* ev) override;
    void dropEvent(QDropEvent* ev) override;
    void resizeEvent(QResizeEvent* ev) override;
    bool eventFilter(QObject* watched, QEvent* ev) override;

private:
    // The guides of a shortcut drag: the line to a swap partner and the outlines.
    void paintGuide(QPainter& p);
    void syncEditor();

    Element& e_;
    // The element's image file, at the device pixel ratio of the widget's screen.
    ScreenPicture picture_;
    int radius_ = 0;
    QLineEdit* line_ = nullptr;
    QPlainTextEdit* note_ = nullptr;
    bool syncing_ = false;
};

// 0x00BBGGRR as a colour.
QColor ToQColor(int32_t bgr);

} // namespace pd
