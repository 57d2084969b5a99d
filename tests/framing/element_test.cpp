// The words that a message tree is written with. Each tree is counted, written and built of the XML library's
// nodes; written() checks that the three agree.
#include "framing/element.h"

#include "framing/written.h"

#include <climits>
#include <cstring>

namespace {

using namespace veltoprotocol;

struct Point {
    int x;
    unsigned int y;
    char label[4];
};
constexpr auto pointAttributes =
    attributes("Point", field("x", &Point::x), field("y", &Point::y), field("label", &Point::label));
constexpr auto pointElements =
    elements("Point", field("x", &Point::x), field("y", &Point::y), field("label", &Point::label));
const Point point = {-1, 4294967295u, {'a', '<', 'b', 'c'}};

enum Kind : int { firstKind = 7, lastKind = -7 };

constexpr const char* noText = nullptr;

TEST(Value, IsAnElementWithAText) {
    EXPECT_EQ(written([](auto x) { x.value("Name", "text"); }), "<Name>text</Name>\n");
}

TEST(Value, IsSelfClosingForANullText) {
    EXPECT_EQ(written([](auto x) { x.value("Name", noText); }), "<Name />\n");
    EXPECT_EQ(written([](auto x) { x.value("Name", Text()); }), "<Name />\n");
}

TEST(Value, HasBothTagsForAnEmptyText) {
    EXPECT_EQ(written([](auto x) { x.value("Name", ""); }), "<Name></Name>\n");
}

TEST(Value, EndsAtTheNulOrTheWidthOfAField) {
    const char full[4] = {'f', 'u', 'l', 'l'};
    const char shorter[8] = "ab\0cde";
    const char empty[4] = "";
    EXPECT_EQ(written([&](auto x) { x.value("Name", full); }), "<Name>full</Name>\n");
    EXPECT_EQ(written([&](auto x) { x.value("Name", shorter); }), "<Name>ab</Name>\n");
    EXPECT_EQ(written([&](auto x) { x.value("Name", empty); }), "<Name></Name>\n");
}

TEST(Value, IsAPointersWholeText) {
    const std::string text(3000, 'y');
    const char* const pointer = text.c_str();
    EXPECT_EQ(written([&](auto x) { x.value("Name", pointer); }), "<Name>" + text + "</Name>\n");
}

TEST(Value, EscapesText) {
    EXPECT_EQ(written([](auto x) { x.value("Name", "<&>\"'\n"); }),
              "<Name>&lt;&amp;&gt;&quot;&apos;&#x0A;</Name>\n");
}

TEST(Value, IsDecimalForNumbers) {
    const auto of = [](auto number) { return written([&](auto x) { x.value("N", number); }); };
    EXPECT_EQ(of(0), "<N>0</N>\n");
    EXPECT_EQ(of(-5), "<N>-5</N>\n");
    EXPECT_EQ(of(INT_MIN), "<N>-2147483648</N>\n");
    EXPECT_EQ(of(INT_MAX), "<N>2147483647</N>\n");
    EXPECT_EQ(of(4294967295u), "<N>4294967295</N>\n");
    EXPECT_EQ(of(static_cast<unsigned short>(65535)), "<N>65535</N>\n");
    EXPECT_EQ(of(lastKind), "<N>-7</N>\n");
}

TEST(Value, IsOneOrZeroForAFlag) {
    EXPECT_EQ(written([](auto x) { x.value("Flag", true); }), "<Flag>1</Flag>\n");
    EXPECT_EQ(written([](auto x) { x.value("Flag", false); }), "<Flag>0</Flag>\n");
    // A record filled by a careless caller may hold any byte.
    struct Careless {
        bool flag;
    } careless;
    std::memset(static_cast<void*>(&careless), 7, sizeof careless);
    EXPECT_EQ(written([&](auto x) { x.value("Flag", careless.flag); }), "<Flag>1</Flag>\n");
}

TEST(Element, IsSelfClosingWithoutParts) {
    EXPECT_EQ(written([](auto x) { x.element("Name"); }), "<Name />\n");
}

TEST(Element, HasAttributesInTheOrderGiven) {
    EXPECT_EQ(written([](auto x) { x.element("Name", attribute("b", 2), attribute("a", "1")); }),
              "<Name b=\"2\" a=\"1\" />\n");
}

TEST(Element, LeavesOutAnAttributeWithANullText) {
    EXPECT_EQ(written([](auto x) { x.element("Name", attribute("name", noText), attribute("n", 1)); }),
              "<Name n=\"1\" />\n");
    EXPECT_EQ(written([](auto x) { x.element("Name", attribute("name", "")); }), "<Name name=\"\" />\n");
}

TEST(Element, PutsAValueWithADoubleQuoteBetweenApostrophes) {
    EXPECT_EQ(written([](auto x) { x.element("Name", attribute("a", "say \"x\"")); }),
              "<Name a='say &quot;x&quot;' />\n");
    EXPECT_EQ(written([](auto x) { x.element("Name", attribute("a", "it's")); }),
              "<Name a=\"it&apos;s\" />\n");
    EXPECT_EQ(written([](auto x) { x.element("Name", attribute("a", "\"'"), attribute("b", "c")); }),
              "<Name a='&quot;&apos;' b=\"c\" />\n");
    // wherever in a long value the quote stands
    for (const std::size_t at : {0, 1, 7, 8, 15, 16, 17, 31, 32, 99}) {
        std::string text(100, 'a'), shown(text);
        text[at] = '"';
        shown.replace(at, 1, "&quot;");
        EXPECT_EQ(written([&](auto x) { x.element("Name", attribute("a", text.c_str())); }),
                  "<Name a='" + shown + "' />\n");
    }
}

TEST(Element, LooksForTheQuoteOnlyWithinTheField) {
    struct Pair {
        char text[4], next[4];
    };
    const Pair pair = {{'a', 'b', 'c', 'd'}, {'"', '"', '"', '"'}};
    const Pair cut = {{'a', '\0', '"', '"'}, {'"', '"', '"', '"'}};
    EXPECT_EQ(written([&](auto x) { x.element("Name", attribute("a", pair.text)); }),
              "<Name a=\"abcd\" />\n");
    EXPECT_EQ(written([&](auto x) { x.element("Name", attribute("a", cut.text)); }), "<Name a=\"a\" />\n");
}

TEST(Element, HoldsWhatItsTreeAdds) {
    EXPECT_EQ(written([](auto x) {
                  x.element("Outer", attribute("n", 1), [](auto outer) {
                      outer.value("First", 1);
                      outer.element("Inner", [](auto inner) { inner.value("Second", 2); });
                  });
                  x.value("Third", 3);
              }),
              "<Outer n=\"1\">\n"
              "    <First>1</First>\n"
              "    <Inner>\n"
              "        <Second>2</Second>\n"
              "    </Inner>\n"
              "</Outer>\n"
              "<Third>3</Third>\n");
}

TEST(Element, IsSelfClosingIfItsTreeAddsNothing) {
    const auto nothing = [](auto) {};
    EXPECT_EQ(written(nothing), "");
    EXPECT_EQ(written([&](auto x) { x.element("Name", nothing); }), "<Name />\n");
    EXPECT_EQ(written([&](auto x) { x.element("Name", attribute("n", 1), nothing); }), "<Name n=\"1\" />\n");
    EXPECT_EQ(written([&](auto x) { x.element("Outer", [&](auto y) { y.element("Inner", nothing); }); }),
              "<Outer>\n    <Inner />\n</Outer>\n");
}

TEST(Element, TakesSeveralTreesOneAfterAnother) {
    EXPECT_EQ(
        written([](auto x) {
            x.element(
                "Name", [](auto y) { y.value("A", 1); }, [](auto) {}, pointElements(point));
        }),
        "<Name>\n    <A>1</A>\n    <x>-1</x>\n    <y>4294967295</y>\n    <label>a&lt;bc</label>\n</Name>\n");
}

TEST(Element, CarriesARecordByAttributes) {
    EXPECT_EQ(written([](auto x) { x.element("Point", pointAttributes(point)); }),
              "<Point x=\"-1\" y=\"4294967295\" label=\"a&lt;bc\" />\n");
    EXPECT_EQ(
        written([](auto x) {
            x.element("Point", attribute("n", 1), pointAttributes(point), attribute("m", 2),
                      [](auto y) { y.value("A", "b"); });
        }),
        "<Point n=\"1\" x=\"-1\" y=\"4294967295\" label=\"a&lt;bc\" m=\"2\">\n    <A>b</A>\n</Point>\n");
}

TEST(Element, CarriesARecordByElements) {
    EXPECT_EQ(written([](auto x) { x.element("Point", attribute("n", 1), pointElements(point)); }),
              "<Point n=\"1\">\n"
              "    <x>-1</x>\n"
              "    <y>4294967295</y>\n"
              "    <label>a&lt;bc</label>\n"
              "</Point>\n");
}

TEST(Element, KeepsATrailingBlankOfItsName) {
    EXPECT_EQ(written([](auto x) { x.element("Channels ", attribute("count", 1)); }),
              "<Channels  count=\"1\" />\n");
    EXPECT_EQ(written([](auto x) {
                  x.element("Channels ", attribute("count", 1), [](auto y) { y.value("Guid ", "g"); });
              }),
              "<Channels  count=\"1\">\n    <Guid >g</Guid >\n</Channels >\n");
    EXPECT_EQ(written([](auto x) { x.value("Guid ", noText); }), "<Guid  />\n");
}

TEST(List, IsAnElementForEachEntry) {
    const Point points[] = {{1, 2, "a"}, {3, 4, "b"}};
    const auto tree = [](auto x, auto& entry) { x.element("Point", pointAttributes(entry)); };
    EXPECT_EQ(written([&](auto x) { x.list("Points", entries(points, 2), tree); }),
              "<Points>\n    <Point x=\"1\" y=\"2\" label=\"a\" />\n</Points>\n"
              "<Points>\n    <Point x=\"3\" y=\"4\" label=\"b\" />\n</Points>\n");
    EXPECT_EQ(written([&](auto x) { x.list("Points", entries(points, 1), tree); }),
              "<Points>\n    <Point x=\"1\" y=\"2\" label=\"a\" />\n</Points>\n");
}

TEST(List, IsNothingForANullArrayOrACountBelowOne) {
    const Point points[] = {{1, 2, "a"}};
    const Point* const none = nullptr;
    const auto tree = [](auto x, auto& entry) { x.value("x", entry.x); };
    for (const int count : {0, -1, INT_MIN})
        EXPECT_EQ(written([&](auto x) { x.list("Points", entries(points, count), tree); }), "");
    for (const int count : {0, 1, INT_MAX})
        EXPECT_EQ(written([&](auto x) { x.list("Points", entries(none, count), tree); }), "");
}

TEST(List, HasSelfClosingElementsIfItsTreeAddsNothing) {
    const int numbers[] = {1, 2};
    EXPECT_EQ(written([&](auto x) { x.list("Entry", entries(numbers, 2), [](auto, auto&) {}); }),
              "<Entry />\n<Entry />\n");
}

TEST(Entries, AreWhatAnArrayHolds) {
    const int numbers[] = {10, 20, 30};
    int sum = 0;
    for (const int number : entries(numbers, 2)) sum += number;
    EXPECT_EQ(sum, 30);
    for (const int number : entries(numbers, -3)) sum += number;
    EXPECT_EQ(sum, 30);
}

TEST(Declaration, IsTheFirstLine) {
    std::string out(100, '#');
    Write to(&out[0]);
    Element<Write, 0>(to).declaration();
    EXPECT_EQ(out.substr(0, out.find('#')), "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n");
    Count count;
    Element<Count, 0>(count).declaration();
    EXPECT_EQ(count.bytes(), 40u);
}

} // namespace
