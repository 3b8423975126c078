#pragma once
// The feed document through pugixml, with the node operations the feed parser uses: loading a text
// (refusing any document type declaration before anything is built), the text of a node, its local name,
// its serialised form, and the lookup of a child by its plain name.

#include <QString>

#include <pugixml.hpp>

#include <string_view>
#include <vector>

namespace pd {

// Loads `text` into `doc`. False for a text that is not a well-formed document: no single root element,
// a bare "&" or an unknown entity, an XML declaration elsewhere than at the start, broken markup. A
// document type declaration is refused at once, so no entity is ever defined, let alone expanded.
// Whitespace-only text between elements is dropped; comments and processing instructions are kept as
// nodes, so that positions among a node's children count them.
bool LoadFeedXml(const QString& text, pugi::xml_document& doc);
// The same over UTF-8 bytes (the encoding of the bytes is taken as UTF-8 whatever a declaration says).
bool LoadFeedXml(std::string_view utf8, pugi::xml_document& doc);

// The text of a node: for an element, its text and CDATA descendants joined in document order; for a
// text, CDATA, comment or processing-instruction node, its own value.
QString NodeText(pugi::xml_node node);

// The local name of an element or the target of a processing instruction, without its prefix; empty for
// other nodes.
std::string_view BaseName(pugi::xml_node node);

// The node serialised: attributes in document order in double quotes, an empty element closed by "/>",
// no indentation or line breaks added.
QString NodeXml(pugi::xml_node node);

// The first child element named exactly `name` (so without prefix) that lies in no namespace; a null node
// when there is none.
pugi::xml_node PlainChild(pugi::xml_node parent, const char* name);
// Every such child, in document order.
std::vector<pugi::xml_node> PlainChildren(pugi::xml_node parent, const char* name);

// The child node at `index` from 0, of every kind; a null node past the end.
pugi::xml_node ChildAt(pugi::xml_node parent, int index);

// The number of child nodes of every kind.
int ChildCount(pugi::xml_node parent);

} // namespace pd
