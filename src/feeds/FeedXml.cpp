#include "feeds/FeedXml.h"

#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace pd {

namespace {

constexpr unsigned kParseOptions = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol |
                                   pugi::parse_wconv_attribute | pugi::parse_comments | pugi::parse_pi;

bool StartsWith(std::string_view s, size_t at, std::string_view what) {
    return at <= s.size() && s.size() - at >= what.size() && s.compare(at, what.size(), what) == 0;
}

bool StartsWithNoCase(std::string_view s, size_t at, std::string_view what) {
    if (at > s.size() || s.size() - at < what.size()) return false;
    for (size_t i = 0; i < what.size(); ++i) {
        char c = s[at + i];
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
        if (c != what[i]) return false;
    }
    return true;
}

bool IsXmlChar(unsigned long c) {
    return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
           (c >= 0x10000 && c <= 0x10FFFF);
}

// Whether the reference that starts with the "&" at `at` is one of the five predefined entities or a
// character reference to a character XML allows.
bool ValidReference(std::string_view s, size_t at) {
    size_t i = at + 1;
    if (i >= s.size()) return false;
    // Picked by the first letter: a reference stands at almost every quote and bracket of escaped markup.
    switch (s[i]) {
    case 'l': return StartsWith(s, i, "lt;");
    case 'g': return StartsWith(s, i, "gt;");
    case 'a': return StartsWith(s, i, "amp;") || StartsWith(s, i, "apos;");
    case 'q': return StartsWith(s, i, "quot;");
    case '#': break;
    default: return false;
    }
    ++i;
    const bool hex = i < s.size() && s[i] == 'x';
    if (hex) ++i;
    unsigned long value = 0;
    size_t digits = 0;
    for (; i < s.size() && s[i] != ';'; ++i, ++digits) {
        const char c = s[i];
        int d;
        if (c >= '0' && c <= '9') d = c - '0';
        else if (hex && c >= 'a' && c <= 'f') d = c - 'a' + 10;
        else if (hex && c >= 'A' && c <= 'F') d = c - 'A' + 10;
        else return false;
        value = value * (hex ? 16 : 10) + static_cast<unsigned long>(d);
        if (value > 0x10FFFF) return false;
    }
    return i < s.size() && digits > 0 && IsXmlChar(value);
}

// Bytes that need a look in the scan: markup, references and control characters XML does not allow.
const std::array<bool, 256>& SpecialBytes() {
    static const std::array<bool, 256> table = [] {
        std::array<bool, 256> t{};
        for (int c = 0; c < 0x20; ++c) t[static_cast<size_t>(c)] = c != '\t' && c != '\n' && c != '\r';
        t['<'] = true;
        t['&'] = true;
        return t;
    }();
    return table;
}

// The checks pugixml leaves out, in one pass over the text before anything is built. A document type
// declaration ends the scan at once: it is refused, whatever follows.
bool CheckMarkup(std::string_view s) {
    const auto& special = SpecialBytes();
    const size_t n = s.size();
    size_t i = 0;
    while (true) {
        // Eight bytes at a time past plain text: a word without "<", "&" or a byte below 0x20 is
        // skipped whole. A word with one (or a false alarm above it) goes byte by byte.
        while (i + 8 <= n) {
            std::uint64_t w;
            std::memcpy(&w, s.data() + i, 8);
            constexpr std::uint64_t ones = 0x0101010101010101ULL;
            constexpr std::uint64_t highs = 0x8080808080808080ULL;
            const std::uint64_t lt = w ^ (ones * '<');
            const std::uint64_t amp = w ^ (ones * '&');
            const std::uint64_t hit =
                ((lt - ones) & ~lt) | ((amp - ones) & ~amp) | ((w - ones * 0x20) & ~w);
            if (hit & highs) break;
            i += 8;
        }
        for (const size_t stop = std::min(n, i + 8); i < stop && !special[static_cast<unsigned char>(s[i])];) ++i;
        if (i < n && !special[static_cast<unsigned char>(s[i])]) continue;
        if (i >= n) return true;
        const char c = s[i];
        if (c == '&') {
            if (!ValidReference(s, i)) return false;
            ++i;
        } else if (c != '<') {
            return false;
        } else if (i + 1 < n && s[i + 1] != '!' && s[i + 1] != '?') {
            ++i; // a start or end tag, by far the most common
        } else if (StartsWith(s, i, "<!--")) {
            const size_t end = s.find("-->", i + 4);
            if (end == std::string_view::npos) return false;
            i = end + 3;
        } else if (StartsWith(s, i, "<![CDATA[")) {
            const size_t end = s.find("]]>", i + 9);
            if (end == std::string_view::npos) return false;
            i = end + 3;
        } else if (StartsWith(s, i, "<!") && StartsWithNoCase(s, i + 2, "DOCTYPE")) {
            return false;
        } else if (StartsWith(s, i, "<?")) {
            // The declaration belongs at the very start; a later one makes the document ill-formed.
            if (i != 0 && StartsWith(s, i + 2, "xml") && i + 5 < n &&
                (s[i + 5] == ' ' || s[i + 5] == '\t' || s[i + 5] == '\r' || s[i + 5] == '\n' || s[i + 5] == '?'))
                return false;
            const size_t end = s.find("?>", i + 2);
            if (end == std::string_view::npos) return false;
            i = end + 2;
        } else {
            ++i;
        }
    }
}

struct StringWriter : pugi::xml_writer {
    std::string out;
    void write(const void* data, size_t size) override { out.append(static_cast<const char*>(data), size); }
};

} // namespace

namespace {
// Loads `size` bytes at `data`, which the document takes over (allocated with pugixml's allocator), or
// copies when `data` is not to be taken.
bool Load(char* data, size_t size, bool take, pugi::xml_document& doc) {
    doc.reset();
    std::string_view utf8(data, size);
    const size_t skip = StartsWith(utf8, 0, "\xEF\xBB\xBF") ? 3 : 0;
    utf8.remove_prefix(skip);
    if (!CheckMarkup(utf8)) {
        if (take) pugi::get_memory_deallocation_function()(data);
        return false;
    }
    const pugi::xml_parse_result result =
        take ? doc.load_buffer_inplace_own(data, size, kParseOptions, pugi::encoding_utf8)
             : doc.load_buffer(utf8.data(), utf8.size(), kParseOptions, pugi::encoding_utf8);
    if (!result) {
        doc.reset();
        return false;
    }
    // pugixml takes several top-level elements; a document has exactly one.
    int roots = 0;
    for (pugi::xml_node n = doc.first_child(); n; n = n.next_sibling())
        if (n.type() == pugi::node_element) ++roots;
    if (roots != 1) {
        doc.reset();
        return false;
    }
    return true;
}

} // namespace

bool LoadFeedXml(std::string_view utf8, pugi::xml_document& doc) {
    return Load(const_cast<char*>(utf8.data()), utf8.size(), false, doc);
}

bool LoadFeedXml(const QString& text, pugi::xml_document& doc) {
    // Encoded straight into a buffer the document then owns, which saves a copy of a large feed.
    QStringEncoder encoder(QStringConverter::Utf8);
    const size_t room = static_cast<size_t>(encoder.requiredSpace(text.size())) + 1;
    char* buffer = static_cast<char*>(pugi::get_memory_allocation_function()(room));
    if (!buffer) return false;
    char* end = encoder.appendToBuffer(buffer, text);
    return Load(buffer, static_cast<size_t>(end - buffer), true, doc);
}

QString NodeText(pugi::xml_node node) {
    switch (node.type()) {
    case pugi::node_pcdata:
    case pugi::node_cdata:
    case pugi::node_comment:
    case pugi::node_pi: return QString::fromUtf8(node.value());
    case pugi::node_element:
    case pugi::node_document: break;
    default: return {};
    }
    // The common case, one text child, without a copy through a buffer.
    const pugi::xml_node first = node.first_child();
    if (!first) return {};
    if (!first.next_sibling() && (first.type() == pugi::node_pcdata || first.type() == pugi::node_cdata))
        return QString::fromUtf8(first.value());

    // Depth-first without recursion, so that deep nesting cannot exhaust the stack.
    std::string out;
    pugi::xml_node cur = first;
    while (cur) {
        if (cur.type() == pugi::node_pcdata || cur.type() == pugi::node_cdata) out += cur.value();
        if (cur.first_child()) {
            cur = cur.first_child();
            continue;
        }
        while (cur != node && !cur.next_sibling()) cur = cur.parent();
        if (cur == node) break;
        cur = cur.next_sibling();
    }
    return QString::fromUtf8(out.data(), static_cast<qsizetype>(out.size()));
}

std::string_view BaseName(pugi::xml_node node) {
    if (node.type() != pugi::node_element && node.type() != pugi::node_pi) return {};
    std::string_view name = node.name();
    const size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

QString NodeXml(pugi::xml_node node) {
    StringWriter w;
    node.print(w, "", pugi::format_raw, pugi::encoding_utf8);
    return QString::fromUtf8(w.out.data(), static_cast<qsizetype>(w.out.size()));
}

namespace {
// The default namespace in force for the children of `node`: the nearest "xmlns" on it or above.
const char* InScopeDefaultNamespace(pugi::xml_node node) {
    for (pugi::xml_node n = node; n && n.type() == pugi::node_element; n = n.parent())
        if (const pugi::xml_attribute a = n.attribute("xmlns")) return a.value();
    return "";
}
} // namespace

namespace {
// Walks the children named exactly `name` that lie in no namespace; `visit` returns false to stop.
template <typename Visit> void ForPlainChildren(pugi::xml_node parent, const char* name, Visit visit) {
    const char* inherited = nullptr;
    for (pugi::xml_node c = parent.first_child(); c; c = c.next_sibling()) {
        if (c.type() != pugi::node_element || std::strcmp(c.name(), name) != 0) continue;
        const char* ns;
        if (const pugi::xml_attribute own = c.attribute("xmlns")) ns = own.value();
        else {
            if (!inherited) inherited = InScopeDefaultNamespace(parent);
            ns = inherited;
        }
        if (*ns == '\0' && !visit(c)) return;
    }
}
} // namespace

pugi::xml_node PlainChild(pugi::xml_node parent, const char* name) {
    pugi::xml_node found;
    ForPlainChildren(parent, name, [&](pugi::xml_node c) {
        found = c;
        return false;
    });
    return found;
}

std::vector<pugi::xml_node> PlainChildren(pugi::xml_node parent, const char* name) {
    std::vector<pugi::xml_node> all;
    ForPlainChildren(parent, name, [&](pugi::xml_node c) {
        all.push_back(c);
        return true;
    });
    return all;
}

pugi::xml_node ChildAt(pugi::xml_node parent, int index) {
    if (index < 0) return {};
    pugi::xml_node c = parent.first_child();
    for (int i = 0; c && i < index; ++i) c = c.next_sibling();
    return c;
}

int ChildCount(pugi::xml_node parent) {
    int n = 0;
    for (pugi::xml_node c = parent.first_child(); c; c = c.next_sibling()) ++n;
    return n;
}

} // namespace pd
