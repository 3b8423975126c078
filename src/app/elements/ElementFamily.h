#pragma once
// An indexed family of elements (`Group`, `Link`, `PicIcon` ...). Member 0 exists from the start, as a
// design-time member; later members are loaded on demand and never unloaded during a run.

#include "app/elements/Element.h"

#include <memory>
#include <vector>

namespace pd {

class ElementFamily {
public:
    // `indexed` false makes a single element such as `picBack`, whose Index() is -1.
    ElementFamily(QString name, ElementSink** sink, bool indexed = true);
    ElementFamily(const ElementFamily&) = delete;
    ElementFamily& operator=(const ElementFamily&) = delete;

    const QString& name() const { return name_; }
    bool indexed() const { return indexed_; }

    // The member at `i`; member 0 always exists. Asking for a member not loaded is a programming error
    // of the caller, answered with member 0 so that a bad index cannot crash a running workspace.
    Element& operator()(int i);
    const Element& operator()(int i) const;
    bool exists(int i) const { return i >= 0 && i < static_cast<int>(members_.size()) && members_[i]; }

    // Loads member `i` (copying member 0's design) if it is not there yet; returns it.
    Element& Load(int i);
    // Removes member `i` (never member 0). Families of objects keep their members for the whole run;
    // only helper elements such as the grid's lines come and go.
    void Unload(int i);
    // One past the highest member loaded: loops run from 0 to Count() - 1 and skip gaps.
    int Count() const { return static_cast<int>(members_.size()); }
    int UBound() const { return Count() - 1; }

    ElementSink* sink() const { return sink_ ? *sink_ : nullptr; }

private:
    QString name_;
    ElementSink** sink_;
    bool indexed_;
    std::vector<std::unique_ptr<Element>> members_;
};

} // namespace pd
