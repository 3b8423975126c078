#pragma once
// One member of an element family: the state that the routines read and write (positions in twips,
// colours as 0x00BBGGRR, captions, flags). The element is the source of truth; the view mirrors it
// into a real widget and is told of every change through the family's sink.

#include <QString>
#include <cstdint>

namespace pd {

class Element;
class ElementFamily;

// The point size a font is shown and measured at: a stored size may be anything a file held, but a
// font is drawn between 1 and 1638 points (the largest size the stored files' own fonts knew).
inline float ShownFontSize(float size) {
    if (!(size >= 1)) return size > 0 ? 1.0f : 8.0f; // also catches NaN
    return size > 1638 ? 1638.0f : size;
}

// Every property that a view may have to mirror.
enum class Prop : uint8_t {
    Left,
    Top,
    Width,
    Height,
    Visible,
    Enabled,
    Caption,
    Text,
    ToolTipText,
    ForeColor,
    BackColor,
    TextBackColor,
    FontBold,
    FontSize,
    FontName,
    FontUnderline,
    Picture,
    WindowState,
    Stretch,
    BackStyle,
    AutoSize,
    CornerRadius,
    MousePointer,
    BorderStyle,
    Parent,
    ZOrder,
};

// Receives every change of every element; the view implements it.
class ElementSink {
public:
    virtual ~ElementSink() = default;
    virtual void elementLoaded(Element& e) = 0;
    virtual void elementChanged(Element& e, Prop p) = 0;
    // A member is about to go (only short-lived members such as grid lines are ever unloaded).
    virtual void elementUnloading(Element& e) { (void)e; }
};

// A property value that tells its element when it changes, so that `Group(i).Left = 300;` reads as
// the routines are written and still reaches the widget.
template <typename T> class Property {
public:
    Property(Element* owner, Prop id, T value = T{}) : owner_(owner), id_(id), value_(std::move(value)) {}
    Property(const Property&) = delete;

    operator const T&() const { return value_; }
    const T& get() const { return value_; }
    Property& operator=(const T& v);
    Property& operator=(const Property& o) { return *this = o.value_; }
    // Sets the value without telling the view: used by the view itself when the window manager or the
    // user moved the real widget, so that the facade follows without echoing the change back.
    void setFromView(const T& v) { value_ = v; }

private:
    Element* owner_;
    Prop id_;
    T value_;
};

class Element {
public:
    Element(ElementFamily* family, int index);
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    // The family name ("Group", "picBack") and the member index; -1 for an element that is no array.
    const QString& Name() const;
    int Index() const { return index_; }
    ElementFamily* family() const { return family_; }

    // The element this one sits in; null for a top-level window.
    Element* Container() const { return parent_; }
    void setContainer(Element* parent);
    // Bring to the front (0) or send to the back (1) among its siblings.
    void ZOrder(int position = 0);
    int64_t zValue() const { return z_; }
    // Whether this element was the last brought to the front (or made) of all elements.
    bool isFrontmost() const;

    void Move(float left, float top);
    void Move(float left, float top, float width, float height);

    Property<float> Left{this, Prop::Left};
    Property<float> Top{this, Prop::Top};
    Property<float> Width{this, Prop::Width};
    Property<float> Height{this, Prop::Height};
    Property<bool> Visible{this, Prop::Visible, true};
    Property<bool> Enabled{this, Prop::Enabled, true};
    Property<QString> Caption{this, Prop::Caption};
    Property<QString> Text{this, Prop::Text};
    Property<QString> ToolTipText{this, Prop::ToolTipText};
    Property<int32_t> ForeColor{this, Prop::ForeColor, 0};
    Property<int32_t> BackColor{this, Prop::BackColor, 0xFFFFFF};
    Property<int32_t> TextBackColor{this, Prop::TextBackColor, 0xFFFFFF};
    Property<bool> FontBold{this, Prop::FontBold};
    Property<float> FontSize{this, Prop::FontSize, 8};
    Property<QString> FontName{this, Prop::FontName, QStringLiteral("Verdana")};
    Property<bool> FontUnderline{this, Prop::FontUnderline};
    // The image file the element shows, empty for none.
    Property<QString> Picture{this, Prop::Picture};
    // The picture fills the element (true) or shows at its natural size from the top left.
    Property<bool> Stretch{this, Prop::Stretch};
    // 1 paints BackColor behind the element; 0 leaves it transparent (labels).
    Property<int> BackStyle{this, Prop::BackStyle, 1};
    // A label that sizes itself to its caption: Width and Height follow the text and the font.
    Property<bool> AutoSize{this, Prop::AutoSize};
    // A rounded outline of this radius in pixels; 0 for square corners.
    Property<int> CornerRadius{this, Prop::CornerRadius};
    // The pointer over the element: 0 the default arrow, 11 the hourglass, 99 the element's own
    // pointer picture (PicClick, or PicDrag while the left button is down).
    Property<int> MousePointer{this, Prop::MousePointer, 0};
    // 1 draws a thin frame around a label (a shortcut's launch mark); 0 none.
    Property<int> BorderStyle{this, Prop::BorderStyle, 0};
    // For windows: 0 normal, 1 minimised, 2 maximised.
    Property<int> WindowState{this, Prop::WindowState, 0};

    // Copies the design-time properties of another member (as loading a new family member does);
    // the copy starts hidden.
    void copyDesignFrom(const Element& other);

    void notify(Prop p);

    // The view's own handle for this element (its widget); the core never reads it.
    void* viewHandle = nullptr;

private:
    ElementFamily* family_;
    int index_;
    Element* parent_ = nullptr;
    int64_t z_ = 0;
};

template <typename T> Property<T>& Property<T>::operator=(const T& v) {
    if (!(value_ == v)) {
        value_ = v;
        owner_->notify(id_);
    }
    return *this;
}

} // namespace pd
