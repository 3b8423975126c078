#pragma once
// The widget that draws one element: its back colour (unless transparent), its picture, its caption.

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace pd {

class Element;

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

    // Mouse presses and releases, with the button (1 left, 2 right, 4 middle) and the shift mask.
    std::function<void(ElementWidget&, QMouseEvent&)> onPress;
    std::function<void(ElementWidget&, QMouseEvent&)> onDoubleClick;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseDoubleClickEvent(QMouseEvent* ev) override;
    void resizeEvent(QResizeEvent* ev) override;

private:
    Element& e_;
    QPixmap picture_;
    int radius_ = 0;
};

// 0x00BBGGRR as a colour.
QColor ToQColor(int32_t bgr);

} // namespace pd
