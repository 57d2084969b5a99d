#include "framing/walk.h"

#include "support/read_back.h"

namespace {

using namespace veltoprotocol;

const std::string tree = "<a><b><c><d><e><f>six</f></e></d></c></b><b2/></a>";

// What a way down the tree leaves: the element's name ("" for none), the error code, the lines.
struct Way {
    std::string element;
    int error;
    std::string printed;
};

template <class Steps>
Way go(const Steps& steps) {
    const auto got = readBackDocument(tree, [&](TiXmlDocument* doc, int* error) {
        const TiXmlElement* const element = steps(Walk(doc, error)).element();
        return element ? element->ValueStr() : std::string();
    });
    return {got.record, got.error, got.printed};
}

void expectWay(const Way& got, const std::string& element, int error, const std::string& printed) {
    EXPECT_EQ(got.element, element);
    EXPECT_EQ(got.error, error);
    EXPECT_EQ(got.printed, printed);
}

TEST(Walk, SetsTheErrorTo0AtADocument) {
    expectWay(go([](const Walk& walk) { return walk; }), "", 0, "");
}

TEST(Walk, SetsTheErrorToMinus1WithoutALineForANullDocument) {
    int error = 7;
    Captured captured;
    const Walk walk(nullptr, &error);
    const Walk further = walk.required("a").expected("b").optional("c");
    EXPECT_EQ(captured.text(), "");
    EXPECT_FALSE(walk);
    EXPECT_FALSE(further);
    EXPECT_EQ(further.element(), nullptr);
    EXPECT_EQ(error, -1);
}

TEST(Walk, GoesDownInSilenceWhileItFindsChildren) {
    expectWay(go([](const Walk& walk) { return walk.required("a"); }), "a", 0, "");
    expectWay(go([](const Walk& walk) { return walk.required("a").expected("b").optional("c"); }), "c", 0,
              "");
}

TEST(Walk, GoesToTheFirstChildOfThatName) {
    const auto got = readBackDocument("<a><x>0</x><b>1</b><b>2</b></a>", [](TiXmlDocument* doc, int* error) {
        return GetInt(Walk(doc, error).required("a").required("b").element());
    });
    EXPECT_EQ(got.record, 1);
}

TEST(Walk, ConvertsToWhetherItArrived) {
    readBackDocument(tree, [](TiXmlDocument* doc, int* error) {
        EXPECT_TRUE(Walk(doc, error));
        EXPECT_TRUE(Walk(doc, error).required("a"));
        EXPECT_TRUE(Walk(doc, error).required("a").optional("b2"));
        EXPECT_FALSE(Walk(doc, error).optional("b"));
        EXPECT_FALSE(Walk(doc, error).required("a").optional("c"));
        return 0;
    });
}

TEST(required, PrintsALineAndSetsTheError) {
    expectWay(go([](const Walk& walk) { return walk.required("x"); }), "", -1,
              "xml file x element not find!\n");
    expectWay(go([](const Walk& walk) { return walk.required("a").required("x"); }), "", -1,
              "xml file a-x element not find!\n");
}

TEST(expected, PrintsALineAndLeavesTheError) {
    expectWay(go([](const Walk& walk) { return walk.expected("x"); }), "", 0,
              "xml file x element not find!\n");
    expectWay(go([](const Walk& walk) { return walk.required("a").expected("x"); }), "", 0,
              "xml file a-x element not find!\n");
}

TEST(optional, IsSilentAndLeavesTheError) {
    expectWay(go([](const Walk& walk) { return walk.optional("x"); }), "", 0, "");
    expectWay(go([](const Walk& walk) { return walk.required("a").optional("x"); }), "", 0, "");
}

TEST(Walk, IsSilentAfterAFailedStep) {
    const auto further = [](const Walk& walk) {
        return walk.required("b").expected("c").optional("d").required("e");
    };
    expectWay(go([&](const Walk& walk) { return further(walk.required("x")); }), "", -1,
              "xml file x element not find!\n");
    expectWay(go([&](const Walk& walk) { return further(walk.expected("x")); }), "", 0,
              "xml file x element not find!\n");
    expectWay(go([&](const Walk& walk) { return further(walk.optional("x")); }), "", 0, "");
}

TEST(Walk, NamesEveryStepFromTheRootWhateverItMeant) {
    const auto five = [](const Walk& walk) {
        return walk.required("a").optional("b").expected("c").required("d").optional("e");
    };
    expectWay(go([&](const Walk& walk) { return five(walk).required("f"); }), "f", 0, "");
    expectWay(go([&](const Walk& walk) { return five(walk).required("x"); }), "", -1,
              "xml file a-b-c-d-e-x element not find!\n");
    expectWay(go([&](const Walk& walk) { return five(walk).expected("x"); }), "", 0,
              "xml file a-b-c-d-e-x element not find!\n");
}

TEST(Walk, BranchesWithoutMixingTheNames) {
    expectWay(go([](const Walk& walk) {
                  const Walk a = walk.required("a");
                  a.expected("x");
                  a.expected("b").expected("y");
                  a.expected("b2").expected("z");
                  return a;
              }),
              "a", 0,
              "xml file a-x element not find!\n"
              "xml file a-b-y element not find!\n"
              "xml file a-b2-z element not find!\n");
}

TEST(Walk, KeepsTheErrorWhenAnotherBranchArrives) {
    expectWay(go([](const Walk& walk) {
                  const Walk a = walk.required("a");
                  a.required("x");
                  a.expected("y");
                  a.optional("z");
                  return a.required("b");
              }),
              "b", -1, "xml file a-x element not find!\nxml file a-y element not find!\n");
}

TEST(Walk, NeedsNoPlaceForTheError) {
    const auto got = readBackDocument(tree, [](TiXmlDocument* doc, int*) {
        return Walk(doc, nullptr).required("a").required("x").element() == nullptr;
    });
    EXPECT_TRUE(got.record);
    EXPECT_EQ(got.error, 7);
    EXPECT_EQ(got.printed, "xml file a-x element not find!\n");
}

TEST(Walk, TakesANullNameForAMissingChild) {
    expectWay(go([](const Walk& walk) { return walk.required("a").required(nullptr); }), "", -1,
              "xml file a- element not find!\n");
}

} // namespace
