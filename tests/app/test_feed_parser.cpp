// The feed parser through LoadFromCache: RSS documents (plain-name lookups, the first item deciding for
// all, abandonment keeping what was read), every other root (local names, the shared loop index, the
// Atom link cut out of the serialised element), and the document loading underneath.

#include "feeds/FeedReader.h"
#include "feeds/FeedXml.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

using namespace pd;

namespace {

QString S(const char* utf8) { return QString::fromUtf8(utf8); }

struct Parsed {
    pd::test::FakePlatform platform;
    clsReader reader{platform};
    explicit Parsed(const char* xml) { reader.LoadFromCache(S(xml)); }
    const clsHeadLine& at(int position) const { return reader.NewsFeed()->Item(position); }
};

} // namespace

// ---------------------------------------------------------------- road A: an "rss" root

TEST(FeedParserRss, ChannelAndItems) {
    Parsed p(R"(<?xml version="1.0"?>
<rss version="2.0"><channel>
  <title>Liftoff News</title><link>http://liftoff.test/</link>
  <description>Liftoff to Space Exploration.</description>
  <image><url>http://liftoff.test/logo.png</url><title>x</title></image>
  <item><title>Star City</title><link>http://liftoff.test/1</link><description>How do &lt;b&gt;Americans</description></item>
  <item><title>Sky watchers</title><link>http://liftoff.test/2</link><description><![CDATA[<p>Eclipse</p>]]></description></item>
</channel></rss>)");
    EXPECT_EQ(p.reader.ChannelTitle(), S("Liftoff News"));
    EXPECT_EQ(p.reader.ChannelDescription(), S("Liftoff to Space Exploration."));
    EXPECT_EQ(p.reader.ImageURL(), S("http://liftoff.test/logo.png"));
    ASSERT_EQ(p.reader.Count(), 2);
    EXPECT_EQ(p.at(1).HeadLine, S("Star City"));
    EXPECT_EQ(p.at(1).ArticleLink, S("http://liftoff.test/1"));
    // Texts stay raw: entities are decoded by the XML reading only, tags stay.
    EXPECT_EQ(p.at(1).Description, S("How do <b>Americans"));
    EXPECT_EQ(p.at(2).Description, S("<p>Eclipse</p>"));
    EXPECT_THROW(p.reader.NewsFeed()->Item(3), std::out_of_range);
    EXPECT_THROW(p.reader.NewsFeed()->Item(0), std::out_of_range);
}

TEST(FeedParserRss, FirstItemWithDescriptionButNoTitle) {
    // Every headline is its own item's description, even where the item has a title.
    Parsed p(R"(<rss><channel>
  <item><link>L1</link><description>D1</description></item>
  <item><title>T2</title><link>L2</link><description>D2</description></item>
</channel></rss>)");
    ASSERT_EQ(p.reader.Count(), 2);
    EXPECT_EQ(p.at(1).HeadLine, S("D1"));
    EXPECT_EQ(p.at(1).Description, S("D1"));
    EXPECT_EQ(p.at(2).HeadLine, S("D2"));
}

TEST(FeedParserRss, FirstItemWithoutDescriptionLeavesAllDescriptionsEmpty) {
    Parsed p(R"(<rss><channel>
  <item><title>T1</title><link>L1</link></item>
  <item><title>T2</title><link>L2</link><description>D2</description></item>
</channel></rss>)");
    ASSERT_EQ(p.reader.Count(), 2);
    EXPECT_EQ(p.at(2).HeadLine, S("T2"));
    EXPECT_EQ(p.at(2).Description, QString());
}

TEST(FeedParserRss, PrefixedTitlesAreNotFound) {
    // With descriptions the description takes the title's place...
    Parsed withDesc(R"(<rss xmlns:dc="http://purl.org/dc/elements/1.1/"><channel>
  <item><dc:title>T1</dc:title><link>L1</link><description>D1</description></item>
  <item><dc:title>T2</dc:title><link>L2</link><description>D2</description></item>
</channel></rss>)");
    ASSERT_EQ(withDesc.reader.Count(), 2);
    EXPECT_EQ(withDesc.at(1).HeadLine, S("D1"));
    EXPECT_EQ(withDesc.at(2).HeadLine, S("D2"));
    // ...without them the title stays empty.
    Parsed without(R"(<rss xmlns:dc="http://purl.org/dc/elements/1.1/"><channel>
  <item><dc:title>T1</dc:title><link>L1</link></item>
  <item><dc:title>T2</dc:title><link>L2</link></item>
</channel></rss>)");
    ASSERT_EQ(without.reader.Count(), 2);
    EXPECT_EQ(without.at(1).HeadLine, QString());
    EXPECT_EQ(without.at(2).HeadLine, QString());
    EXPECT_EQ(without.at(2).ArticleLink, S("L2"));
}

TEST(FeedParserRss, ElementsInADefaultNamespaceAreNotFound) {
    Parsed rootNs(R"(<rss xmlns="http://backend.userland.com/rss2"><channel><title>T</title>
  <item><title>a</title><link>b</link></item></channel></rss>)");
    EXPECT_EQ(rootNs.reader.Count(), 0);
    EXPECT_EQ(rootNs.reader.ChannelTitle(), QString());
    // A namespace on an item hides that item's link: the parse ends there.
    Parsed itemNs(R"(<rss><channel>
  <item><title>a</title><link>b</link></item>
  <item xmlns="urn:x"><title>c</title><link>d</link></item>
  <item><title>e</title><link>f</link></item></channel></rss>)");
    // The second item is in the namespace, so it is no "item" of the channel at all.
    ASSERT_EQ(itemNs.reader.Count(), 2);
    EXPECT_EQ(itemNs.at(2).HeadLine, S("e"));
    // xmlns="" brings an element back to no namespace.
    Parsed reset(R"(<rss xmlns="urn:x"><channel xmlns=""><item><title>a</title><link>b</link></item></channel></rss>)");
    EXPECT_EQ(reset.reader.Count(), 1);
}

TEST(FeedParserRss, NoChannelGivesNothing) {
    Parsed p("<rss><item><title>a</title><link>b</link></item></rss>");
    EXPECT_EQ(p.reader.Count(), 0);
}

TEST(FeedParserRss, ChannelWithoutItemsSetsTheChannelTexts) {
    Parsed p("<rss><channel><title>Only</title><image><title>no url</title></image></channel></rss>");
    EXPECT_EQ(p.reader.Count(), 0);
    EXPECT_EQ(p.reader.ChannelTitle(), S("Only"));
    EXPECT_EQ(p.reader.ImageURL(), QString());
}

TEST(FeedParserRss, MissingChannelChildrenKeepEarlierValues) {
    pd::test::FakePlatform platform;
    clsReader r(platform);
    r.LoadFromCache(S("<rss><channel><title>A</title><description>B</description><image><url>C</url></image></channel></rss>"));
    r.LoadFromCache(S("<rss><channel><item><title>t</title><link>l</link></item></channel></rss>"));
    EXPECT_EQ(r.ChannelTitle(), S("A"));
    EXPECT_EQ(r.ChannelDescription(), S("B"));
    EXPECT_EQ(r.ImageURL(), S("C"));
    // Loading adds: the collection is not cleared.
    r.LoadFromCache(S("<rss><channel><item><title>u</title><link>m</link></item></channel></rss>"));
    EXPECT_EQ(r.Count(), 2);
}

TEST(FeedParserRss, ALaterItemWithoutLinkEndsTheParse) {
    Parsed p(R"(<rss><channel><title>Before</title>
  <item><title>1</title><link>a</link></item>
  <item><title>2</title></item>
  <item><title>3</title><link>c</link></item></channel></rss>)");
    ASSERT_EQ(p.reader.Count(), 1);
    EXPECT_EQ(p.at(1).HeadLine, S("1"));
    EXPECT_EQ(p.reader.ChannelTitle(), S("Before"));
}

TEST(FeedParserRss, ALaterItemWithoutTheFirstItemsTitleOrDescriptionEndsTheParse) {
    Parsed noTitle(R"(<rss><channel>
  <item><title>1</title><link>a</link></item>
  <item><title>2</title><link>b</link></item>
  <item><link>c</link><description>x</description></item>
  <item><title>4</title><link>d</link></item></channel></rss>)");
    EXPECT_EQ(noTitle.reader.Count(), 2);
    Parsed noDesc(R"(<rss><channel>
  <item><title>1</title><link>a</link><description>x</description></item>
  <item><title>2</title><link>b</link></item>
  <item><title>3</title><link>c</link><description>y</description></item></channel></rss>)");
    EXPECT_EQ(noDesc.reader.Count(), 1);
}

TEST(FeedParserRss, ItemsWithNeitherTitleNorDescription) {
    Parsed p("<rss><channel><item><link>a</link></item><item><link>b</link></item></channel></rss>");
    ASSERT_EQ(p.reader.Count(), 2);
    EXPECT_EQ(p.at(1).HeadLine, QString());
    EXPECT_EQ(p.at(2).HeadLine, QString());
    EXPECT_EQ(p.at(2).ArticleLink, S("b"));
}

TEST(FeedParserRss, APrefixedRootTakesTheRssRoad) {
    Parsed p(R"(<x:rss xmlns:x="urn:x"><channel><item><title>t</title><link>l</link></item></channel></x:rss>)");
    EXPECT_EQ(p.reader.Count(), 1);
}

TEST(FeedParserRss, TextJoinsTextAndCdataAndDropsWhitespaceOnlyText) {
    Parsed p(R"(<rss><channel><title>   </title>
  <item><title>Breaking: <![CDATA[<b>Big News</b>]]> today<!-- not text --></title><link>
     http://a.test/x
  </link></item></channel></rss>)");
    ASSERT_EQ(p.reader.Count(), 1);
    EXPECT_EQ(p.at(1).HeadLine, S("Breaking: <b>Big News</b> today"));
    // Text with more than blanks keeps all of it.
    EXPECT_EQ(p.at(1).ArticleLink, S("\n     http://a.test/x\n  "));
    // A title of blanks only has no text.
    EXPECT_EQ(p.reader.ChannelTitle(), QString());
}

// ---------------------------------------------------------------- road B: every other root

TEST(FeedParserOther, RdfFeed) {
    Parsed p(R"(<?xml version="1.0"?>
<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#" xmlns="http://purl.org/rss/1.0/"
         xmlns:dc="http://purl.org/dc/elements/1.1/">
  <channel rdf:about="http://r.test/"><title>RDF Site</title><link>http://r.test/</link>
    <description>An RDF feed</description></channel>
  <image rdf:about="http://r.test/i.png"><title>RDF</title><url>http://r.test/i.png</url></image>
  <item rdf:about="http://r.test/1"><title>One</title><link>http://r.test/1</link>
    <description>First</description><dc:title>One, again</dc:title></item>
  <item rdf:about="http://r.test/2"><dc:title>Two</dc:title><link>http://r.test/2</link></item>
</rdf:RDF>)");
    EXPECT_EQ(p.reader.ChannelTitle(), S("RDF Site"));
    EXPECT_EQ(p.reader.ChannelDescription(), S("An RDF feed"));
    EXPECT_EQ(p.reader.ImageURL(), S("http://r.test/i.png"));
    ASSERT_EQ(p.reader.Count(), 2);
    // A later element of the same local name overwrites, whatever its prefix.
    EXPECT_EQ(p.at(1).HeadLine, S("One, again"));
    EXPECT_EQ(p.at(1).Description, S("First"));
    // A prefixed title supplies the title.
    EXPECT_EQ(p.at(2).HeadLine, S("Two"));
    EXPECT_EQ(p.at(2).Description, QString());
    EXPECT_EQ(p.at(2).ArticleLink, S("http://r.test/2"));
}

TEST(FeedParserOther, AtomLinkWithHrefLastIsClean) {
    Parsed p(R"(<feed xmlns="http://www.w3.org/2005/Atom"><title>Atom</title>
  <entry><title>E1</title><link rel="alternate" type="text/html" href="http://a.test/1"/><content>C1</content></entry>
</feed>)");
    EXPECT_EQ(p.reader.ChannelTitle(), S("Atom"));
    ASSERT_EQ(p.reader.Count(), 1);
    EXPECT_EQ(p.at(1).ArticleLink, S("http://a.test/1"));
    EXPECT_EQ(p.at(1).Description, S("C1"));
}

TEST(FeedParserOther, AtomLinkWithAnAttributeAfterHrefCarriesIt) {
    Parsed p(R"(<feed xmlns="http://www.w3.org/2005/Atom">
  <entry><link href="http://a.test/1" rel="alternate"/></entry>
  <entry><link href='http://a.test/2' type="text/html" hreflang="en"/></entry>
</feed>)");
    ASSERT_EQ(p.reader.Count(), 2);
    EXPECT_EQ(p.at(1).ArticleLink, S(R"(http://a.test/1" rel="alternate)"));
    // The serialised form uses double quotes whatever the document had.
    EXPECT_EQ(p.at(2).ArticleLink, S(R"(http://a.test/2" type="text/html" hreflang="en)"));
}

TEST(FeedParserOther, TheFirstAtomLinkWinsWhateverItsRel) {
    Parsed p(R"(<feed><entry>
  <link rel="self" href="http://a.test/self"/><link rel="alternate" href="http://a.test/page"/>
</entry></feed>)");
    ASSERT_EQ(p.reader.Count(), 1);
    EXPECT_EQ(p.at(1).ArticleLink, S("http://a.test/self"));
}

TEST(FeedParserOther, AtomLinkCutsOfOddElements) {
    // Escaped characters stay escaped in the serialised form.
    Parsed amp(R"(<feed><entry><link href="http://a.test/?a=1&amp;b=2"/></entry></feed>)");
    EXPECT_EQ(amp.at(1).ArticleLink, S("http://a.test/?a=1&amp;b=2"));
    // Without "href=" the cut starts at the sixth character.
    Parsed noHref(R"(<feed><entry><link rel="x"/></entry></feed>)");
    EXPECT_EQ(noHref.at(1).ArticleLink, S(R"( rel="x)"));
    // A link with content: the closing tag is cut by three characters.
    Parsed content(R"(<feed><entry><link href="x">y</link></entry></feed>)");
    EXPECT_EQ(content.at(1).ArticleLink, S(R"(x">y</li)"));
    // A prefixed link serialises with its prefix; the cut is the same.
    Parsed prefixed(R"(<a:feed xmlns:a="http://www.w3.org/2005/Atom"><a:entry><a:title>T</a:title>
      <a:link href="http://a.test/p"/></a:entry></a:feed>)");
    EXPECT_EQ(prefixed.at(1).ArticleLink, S("http://a.test/p"));
    EXPECT_EQ(prefixed.at(1).HeadLine, S("T"));
    // An empty href leaves the link empty, so the next link is cut as well.
    Parsed empty(R"(<feed><entry><link href=""/><link href="http://a.test/2"/></entry></feed>)");
    EXPECT_EQ(empty.at(1).ArticleLink, S("http://a.test/2"));
}

TEST(FeedParserOther, ALinkTooShortToCutAbandonsTheParse) {
    // "<link/>" from its sixth character is "/>", which cannot lose three characters.
    Parsed p(R"(<feed><entry><title>1</title></entry><entry><link/></entry><entry><title>3</title></entry></feed>)");
    ASSERT_EQ(p.reader.Count(), 1);
    EXPECT_EQ(p.at(1).HeadLine, S("1"));
}

TEST(FeedParserOther, AtomSummaryWithoutContentGivesAnEmptyDescription) {
    Parsed p(R"(<feed xmlns="http://www.w3.org/2005/Atom">
  <entry><title>E</title><summary>Only a summary</summary><link href="http://a.test/e"/></entry>
  <entry><title>F</title><summary>S</summary><content type="html">&lt;p&gt;Body</content></entry>
</feed>)");
    ASSERT_EQ(p.reader.Count(), 2);
    EXPECT_EQ(p.at(1).Description, QString());
    EXPECT_EQ(p.at(2).Description, S("<p>Body"));
}

TEST(FeedParserOther, AFeedTitleAfterTheEntriesEndsTheParse) {
    Parsed p(R"(<feed><entry><title>1</title><link href="a"/></entry>
  <title>Late title</title>
  <entry><title>2</title></entry></feed>)");
    // The entry left the loop index at 2, past the title's only child.
    ASSERT_EQ(p.reader.Count(), 1);
    EXPECT_EQ(p.reader.ChannelTitle(), QString());
}

TEST(FeedParserOther, TheLoopIndexPicksTheTitlesChild) {
    // An entry without children leaves the index at 0: the title after it reads its own text.
    Parsed empty(R"(<feed><entry/><title>Read</title><entry><title>2</title></entry></feed>)");
    EXPECT_EQ(empty.reader.ChannelTitle(), S("Read"));
    EXPECT_EQ(empty.reader.Count(), 2);
    // An entry of one child leaves 1: a title of text, comment and text gives its second node.
    Parsed second(R"(<feed><entry><title>1</title></entry><title>first<!--second-->third</title></feed>)");
    EXPECT_EQ(second.reader.ChannelTitle(), S("second"));
    // The channel and the image move the index too.
    Parsed channel(R"(<rdf:RDF xmlns:rdf="r"><channel><title>C</title></channel><title>X</title>
      <item><title>i</title></item></rdf:RDF>)");
    EXPECT_EQ(channel.reader.ChannelTitle(), S("C"));
    EXPECT_EQ(channel.reader.Count(), 0);
}

TEST(FeedParserOther, AnEmptyFeedTitleEndsTheParse) {
    Parsed p(R"(<feed><title/><entry><title>1</title></entry></feed>)");
    EXPECT_EQ(p.reader.Count(), 0);
    Parsed blanks(R"(<feed><title>   </title><entry><title>1</title></entry></feed>)");
    EXPECT_EQ(blanks.reader.Count(), 0);
}

TEST(FeedParserOther, OtherRootsAndChildrenAreIgnored) {
    Parsed note("<note><to>Tove</to><body>Hi</body></note>");
    EXPECT_EQ(note.reader.Count(), 0);
    Parsed empty("<feed/>");
    EXPECT_EQ(empty.reader.Count(), 0);
    // An item with nothing known in it still counts.
    Parsed bare("<feed><item><guid>g</guid></item></feed>");
    ASSERT_EQ(bare.reader.Count(), 1);
    EXPECT_EQ(bare.at(1).HeadLine, QString());
}

TEST(FeedParserOther, DeepNestingDoesNotExhaustTheStack) {
    QString xml = S("<feed><entry><content>");
    for (int i = 0; i < 200000; ++i) xml += S("<a>");
    xml += S("deep");
    for (int i = 0; i < 200000; ++i) xml += S("</a>");
    xml += S("</content><link href=\"x\">");
    for (int i = 0; i < 100000; ++i) xml += S("<b>");
    for (int i = 0; i < 100000; ++i) xml += S("</b>");
    xml += S("</link></entry></feed>");
    pd::test::FakePlatform platform;
    clsReader r(platform);
    r.LoadFromCache(xml);
    ASSERT_EQ(r.Count(), 1);
    EXPECT_EQ(r.NewsFeed()->Item(1).Description, S("deep"));
    EXPECT_TRUE(r.NewsFeed()->Item(1).ArticleLink.startsWith(S("x\"><b><b>")));
}

// ---------------------------------------------------------------- loading the document

TEST(FeedXml, NodeOperations) {
    pugi::xml_document doc;
    ASSERT_TRUE(LoadFeedXml(S(R"(<r xmlns:p="urn:p"><p:link b="1" a="&quot;2&amp;" c='3'/>
  <t>one<![CDATA[ two ]]><x>three</x><!--c--></t>   <e></e><?pi data?></r>)"), doc));
    const pugi::xml_node root = doc.document_element();
    // Whitespace-only text between elements is gone; comments and instructions are nodes.
    EXPECT_EQ(ChildCount(root), 4);
    const pugi::xml_node link = ChildAt(root, 0);
    EXPECT_EQ(BaseName(link), "link");
    EXPECT_EQ(NodeXml(link), S(R"(<p:link b="1" a="&quot;2&amp;" c="3"/>)"));
    const pugi::xml_node t = ChildAt(root, 1);
    EXPECT_EQ(NodeText(t), S("one two three"));
    EXPECT_EQ(ChildCount(t), 4);
    EXPECT_EQ(NodeText(ChildAt(t, 3)), S("c"));
    EXPECT_EQ(NodeXml(ChildAt(root, 2)), S("<e/>"));
    EXPECT_EQ(BaseName(ChildAt(root, 3)), "pi");
    EXPECT_FALSE(ChildAt(root, 4));
    EXPECT_FALSE(ChildAt(root, -1));
    EXPECT_EQ(BaseName(ChildAt(t, 0)), "");
    EXPECT_FALSE(PlainChild(root, "link"));
    EXPECT_TRUE(PlainChild(root, "t"));
}

TEST(FeedXml, IllFormedDocumentsAreRefused) {
    pugi::xml_document doc;
    const char* const bad[] = {
        "",
        "   ",
        "plain text",
        "<a>",
        "<a></b>",
        "<a/><b/>",                          // two roots
        "<a>Fish & Chips</a>",               // a bare ampersand
        "<a>&copy;</a>",                     // an entity no one declared
        "<a x='&foo;'/>",                    // in an attribute too
        "<a>&#0;</a>",                       // a character XML does not allow
        "<a>&#x110000;</a>",
        "<a>&#;</a>",
        "<a>\x01</a>",                       // a control character
        " <?xml version=\"1.0\"?><a/>",      // a declaration not at the start
        "<a><?xml version=\"1.0\"?></a>",
        "<a><!-- open</a>",
        "<a><![CDATA[ open</a>",
    };
    for (const char* text : bad) EXPECT_FALSE(LoadFeedXml(S(text), doc)) << text;
    const char* const good[] = {
        "<a/>",
        "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"windows-1251\"?><a/>",
        "<!-- <!DOCTYPE a> & --><a>&lt;&gt;&amp;&apos;&quot;&#65;&#x42;&#x10FFFF;</a>",
        "<a><![CDATA[ & <!DOCTYPE ]]><?pi & ?></a>",
        "\n\t<a/>\n",
        "<?xml-stylesheet href=\"s.xsl\"?><a/>",
    };
    for (const char* text : good) EXPECT_TRUE(LoadFeedXml(S(text), doc)) << text;
    // A bare ampersand or a control character is found wherever it stands among the bytes, also at
    // the edges of the eight-byte steps of the scan.
    for (int at = 0; at < 24; ++at) {
        for (const char* intruder : {"&", "\x02", "\x1f"}) {
            QString text = S("<a>") + QString(at, QLatin1Char('x')) + S(intruder) + QString(24 - at, QLatin1Char('y')) + S("</a>");
            EXPECT_FALSE(LoadFeedXml(text, doc)) << at << " " << int(intruder[0]);
        }
        EXPECT_TRUE(LoadFeedXml(S("<a>") + QString(at, QLatin1Char('x')) + S("\t\n&amp;</a>"), doc)) << at;
    }
    ASSERT_TRUE(LoadFeedXml(S("<a>&#65;&#x42;&lt;</a>"), doc));
    EXPECT_EQ(NodeText(doc.document_element()), S("AB<"));
}

TEST(FeedXml, ADocumentTypeDeclarationIsRefusedAtOnce) {
    // The classic entity bomb: ten levels of ten references, refused before anything is built.
    QString bomb = S("<?xml version=\"1.0\"?>\n<!DOCTYPE lolz [\n <!ENTITY lol \"lol\">\n");
    for (int i = 1; i <= 9; ++i) {
        bomb += S(" <!ENTITY lol%1 \"").arg(i);
        for (int j = 0; j < 10; ++j) bomb += S("&lol%1;").arg(i == 1 ? QString() : QString::number(i - 1));
        bomb += S("\">\n");
    }
    bomb += S("]>\n<rss><channel><title>&lol9;</title><item><title>&lol9;</title><link>x</link></item></channel></rss>");
    pugi::xml_document doc;
    EXPECT_FALSE(LoadFeedXml(bomb, doc));
    EXPECT_FALSE(doc.document_element());

    pd::test::FakePlatform platform;
    clsReader r(platform);
    r.LoadFromCache(bomb);
    EXPECT_EQ(r.Count(), 0);
    EXPECT_EQ(r.ChannelTitle(), QString());
    // An external entity, a declaration behind a comment, lower case, and an internal subset without
    // entities: all refused.
    const char* const others[] = {
        "<!DOCTYPE rss SYSTEM \"file:///etc/passwd\"><rss/>",
        "<!-- c --><!DOCTYPE rss><rss/>",
        "<?xml version=\"1.0\"?><!doctype rss><rss/>",
        "<!DOCTYPE rss [ ]><rss><channel><item><title>t</title><link>l</link></item></channel></rss>",
        "<rss><!DOCTYPE x><channel/></rss>",
    };
    for (const char* text : others) {
        EXPECT_FALSE(LoadFeedXml(S(text), doc)) << text;
        r.LoadFromCache(S(text));
        EXPECT_EQ(r.Count(), 0) << text;
    }
}
