#include "app/elements/Element.h"

#include "app/elements/ElementFamily.h"

namespace pd {

namespace {
// Front and back of the stacking order; every ZOrder call takes the next value at its end, so the
// latest brought forward is on top, as in a toolkit's sibling list.
int64_t g_front = 0;
int64_t g_back = 0;
} // namespace

Element::Element(ElementFamily* family, int index) : family_(family), index_(index), z_(++g_front) {}

bool Element::isFrontmost() const { return z_ == g_front; }

const QString& Element::Name() const { return family_->name(); }

void Element::setContainer(Element* parent) {
    if (parent == this || parent_ == parent) return;
    parent_ = parent;
    notify(Prop::Parent);
}

void Element::ZOrder(int position) {
    z_ = position == 0 ? ++g_front : --g_back;
    notify(Prop::ZOrder);
}

void Element::Move(float left, float top) {
    Left = left;
    Top = top;
}

void Element::Move(float left, float top, float width, float height) {
    Left = left;
    Top = top;
    Width = width;
    Height = height;
}

void Element::copyDesignFrom(const Element& o) {
    Left = o.Left.get();
    Top = o.Top.get();
    Width = o.Width.get();
    Height = o.Height.get();
    Enabled = o.Enabled.get();
    Caption = o.Caption.get();
    Text = o.Text.get();
    ToolTipText = o.ToolTipText.get();
    ForeColor = o.ForeColor.get();
    BackColor = o.BackColor.get();
    TextBackColor = o.TextBackColor.get();
    FontBold = o.FontBold.get();
    FontSize = o.FontSize.get();
    FontName = o.FontName.get();
    FontUnderline = o.FontUnderline.get();
    Picture = o.Picture.get();
    Stretch = o.Stretch.get();
    BackStyle = o.BackStyle.get();
    AutoSize = o.AutoSize.get();
    CornerRadius = o.CornerRadius.get();
    MousePointer = o.MousePointer.get();
    BorderStyle = o.BorderStyle.get();
    Visible = false;
    setContainer(o.Container());
}

void Element::notify(Prop p) {
    if (ElementSink* s = family_->sink()) s->elementChanged(*this, p);
}

} // namespace pd
