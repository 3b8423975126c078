#include "app/elements/ElementFamily.h"

namespace pd {

ElementFamily::ElementFamily(QString name, ElementSink** sink, bool indexed)
    : name_(std::move(name)), sink_(sink), indexed_(indexed) {
    members_.push_back(std::make_unique<Element>(this, indexed ? 0 : -1));
}

Element& ElementFamily::operator()(int i) { return exists(i) ? *members_[i] : *members_[0]; }

const Element& ElementFamily::operator()(int i) const { return exists(i) ? *members_[i] : *members_[0]; }

Element& ElementFamily::Load(int i) {
    if (exists(i) || i < 0) return (*this)(i);
    if (i >= Count()) members_.resize(static_cast<size_t>(i) + 1);
    members_[i] = std::make_unique<Element>(this, i);
    Element& e = *members_[i];
    if (ElementSink* s = sink()) s->elementLoaded(e);
    e.copyDesignFrom(*members_[0]);
    return e;
}

void ElementFamily::Unload(int i) {
    if (i <= 0 || !exists(i)) return;
    if (ElementSink* s = sink()) s->elementUnloading(*members_[i]);
    members_[i].reset();
    while (members_.size() > 1 && !members_.back()) members_.pop_back();
}

} // namespace pd
