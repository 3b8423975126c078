#pragma once
// Mirrors every element of the workspace into a widget: creates one when a member is loaded, and
// applies each property change (geometry in twips to pixels, colours, captions, parents, stacking).

#include "app/elements/Element.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <unordered_map>

namespace pd {

class Workspace;
class ElementWidget;

class ElementView : public ElementSink {
public:
    // Top-level elements (windows) are given their widgets by the caller; all others are made here.
    ElementView(Workspace& ws, std::unordered_map<const Element*, QWidget*> windows);
    ~ElementView() override;

    // Creates widgets for all members loaded so far and starts following changes.
    void attach();
    QWidget* widget(const Element& e) const;

    void elementLoaded(Element& e) override;
    void elementChanged(Element& e, Prop p) override;
    void elementUnloading(Element& e) override;

    // Changes of a window's element, for the window to apply itself.
    std::function<void(Element&, Prop)> onWindowChanged;
    // What a new widget gets for its mouse presses.
    std::function<void(ElementWidget&)> onWidgetCreated;
    // Every change of an element that has a widget, after the widget has shown it: for what the view
    // adds over an element's own drawing.
    std::function<void(Element&, Prop)> onElementChanged;

private:
    void create(Element& e);
    void applyAll(Element& e);
    void applyGeometry(Element& e, QWidget& w);
    void applyParent(Element& e, QWidget& w);
    void restack(Element& e);

    Workspace& ws_;
    // Widgets whose element has no container wait here, hidden, so that none becomes a window of its own.
    QWidget parking_;
    std::unordered_map<const Element*, QWidget*> windows_;
};

} // namespace pd
