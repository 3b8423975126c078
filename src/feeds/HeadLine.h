#pragma once
// One item of a feed as it came from the document (tags and entities still in its texts), and the
// ordered list a reader keeps of them.

#include <QString>

#include <vector>

namespace pd {

struct clsHeadLine {
    // The item's title.
    QString HeadLine;
    // The item's body.
    QString Description;
    // The address of the article.
    QString ArticleLink;
};

// Headlines in document order, without keys. Positions are 1-based, as the panels count them: row r of a
// panel is position r + 1.
class HeadLineCollection {
public:
    int Count() const { return static_cast<int>(items_.size()); }
    // Throws std::out_of_range for a position outside 1..Count().
    const clsHeadLine& Item(int position) const { return items_.at(static_cast<size_t>(position) - 1); }
    clsHeadLine& Item(int position) { return items_.at(static_cast<size_t>(position) - 1); }
    void Add(clsHeadLine item) { items_.push_back(std::move(item)); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<clsHeadLine> items_;
};

} // namespace pd
