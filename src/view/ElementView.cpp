#include "view/ElementView.h"

#include "app/workspace/Workspace.h"
#include "view/Accessibility.h"
#include "view/ElementWidget.h"
#include "view/Tooltips.h"

#include <cmath>

namespace pd {

ElementView::ElementView(Workspace& ws, std::unordered_map<const Element*, QWidget*> windows)
    : ws_(ws), windows_(std::move(windows)) {
    for (auto& [e, w] : windows_) const_cast<Element*>(e)->viewHandle = w;
    // Screen readers learn each element's role and name from the workspace.
    InstallAccessibility();
    SetAccessibleWorkspace(&ws_);
}

ElementView::~ElementView() {
    if (AccessibleWorkspace() == &ws_) SetAccessibleWorkspace(nullptr);
    if (ws_.sink == this) ws_.sink = nullptr;
}

void ElementView::attach() {
    for (ElementFamily* f : ws_.families())
        for (int i = 0; i < f->Count(); ++i)
            if (f->exists(i)) create((*f)(i));
    for (ElementFamily* f : ws_.families())
        for (int i = 0; i < f->Count(); ++i)
            if (f->exists(i)) applyAll((*f)(i));
    ws_.sink = this;
}

QWidget* ElementView::widget(const Element& e) const { return static_cast<QWidget*>(e.viewHandle); }

void ElementView::create(Element& e) {
    if (e.viewHandle) return;
    auto* w = new ElementWidget(e, &parking_);
    e.viewHandle = w;
    if (onWidgetCreated) onWidgetCreated(*w);
}

void ElementView::elementLoaded(Element& e) {
    create(e);
    applyAll(e);
}

void ElementView::applyAll(Element& e) {
    QWidget* w = widget(e);
    if (!w) return;
    if (!windows_.count(&e)) applyParent(e, *w);
    applyGeometry(e, *w);
    if (auto* ew = qobject_cast<ElementWidget*>(w)) {
        ew->reloadPicture();
        ew->setCornerRadius(e.CornerRadius);
    }
    w->setToolTip(PrepareTip(e.ToolTipText.get()));
    w->setEnabled(e.Enabled);
    if (auto* ew = qobject_cast<ElementWidget*>(w)) ew->mirror(Prop::Text);
    w->setAccessibleName(e.Caption.get());
    if (!windows_.count(&e)) w->setVisible(e.Visible);
    w->update();
}

void ElementView::applyGeometry(Element& e, QWidget& w) {
    if (windows_.count(&e)) return; // windows place themselves
    const float tx = ws_.TwipsPerPixelX(), ty = ws_.TwipsPerPixelY();
    if (e.Name() == QLatin1String("LinkLine")) {
        // A line from (Left, Top) to (Left + Width, Top + Height): its size may be negative. The widget
        // covers the box between the two ends; it draws the line itself (ElementWidget).
        const QPoint a(static_cast<int>(std::lround(e.Left / tx)), static_cast<int>(std::lround(e.Top / ty)));
        const QPoint b(static_cast<int>(std::lround((e.Left + e.Width) / tx)),
                       static_cast<int>(std::lround((e.Top + e.Height) / ty)));
        w.setGeometry(QRect(a, b).normalized().adjusted(0, 0, 1, 1));
        return;
    }
    w.setGeometry(static_cast<int>(std::lround(e.Left / tx)), static_cast<int>(std::lround(e.Top / ty)),
                  std::max(0, static_cast<int>(std::lround(e.Width / tx))),
                  std::max(0, static_cast<int>(std::lround(e.Height / ty))));
}

void ElementView::applyParent(Element& e, QWidget& w) {
    QWidget* parent = e.Container() ? widget(*e.Container()) : nullptr;
    if (!parent) parent = &parking_;
    if (w.parentWidget() != parent) {
        w.setParent(parent);
        w.setVisible(e.Visible);
    }
    restack(e);
}

void ElementView::restack(Element& e) {
    // Siblings are kept in the order of their elements' stacking values.
    QWidget* w = widget(e);
    if (!w || !w->parentWidget()) return;
    // The common case, a new element or one just brought forward, needs no search of its siblings.
    if (e.isFrontmost()) {
        w->raise();
        return;
    }
    for (QObject* o : w->parentWidget()->children()) {
        auto* sib = qobject_cast<ElementWidget*>(o);
        if (!sib || sib == w) continue;
        if (sib->element().zValue() > e.zValue()) {
            w->stackUnder(sib);
            return;
        }
    }
    w->raise();
}

void ElementView::elementUnloading(Element& e) {
    if (QWidget* w = widget(e); w && !windows_.count(&e)) delete w;
    e.viewHandle = nullptr;
}

void ElementView::elementChanged(Element& e, Prop p) {
    if (windows_.count(&e)) {
        if (onWindowChanged) onWindowChanged(e, p);
        return;
    }
    QWidget* w = widget(e);
    if (!w) return;
    switch (p) {
    case Prop::Left:
    case Prop::Top:
    case Prop::Width:
    case Prop::Height: applyGeometry(e, *w); break;
    case Prop::Visible:
        if (!windows_.count(&e)) w->setVisible(e.Visible);
        break;
    case Prop::Enabled: w->setEnabled(e.Enabled); break;
    case Prop::ToolTipText: {
        // Texts keep CR LF line breaks; the tip shows them as lines, at most 400 pixels wide.
        w->setToolTip(PrepareTip(e.ToolTipText.get()));
        // A picture button is named by its tip.
        NotifyAccessibleNameChanged(w);
        break;
    }
    case Prop::Picture:
        if (auto* ew = qobject_cast<ElementWidget*>(w)) ew->reloadPicture();
        break;
    case Prop::Parent:
        if (!windows_.count(&e)) applyParent(e, *w);
        break;
    case Prop::ZOrder: restack(e); break;
    case Prop::CornerRadius:
        if (auto* ew = qobject_cast<ElementWidget*>(w)) ew->setCornerRadius(e.CornerRadius);
        break;
    default:
        if (auto* ew = qobject_cast<ElementWidget*>(w)) ew->mirror(p);
        else w->update();
        break;
    }
    if (onElementChanged) onElementChanged(e, p);
}

} // namespace pd
