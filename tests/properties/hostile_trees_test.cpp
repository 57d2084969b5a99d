// Messages in which elements and attributes are missing, doubled and in another order, at every level.
#include "properties/hostile_messages.h"
#include "properties/steady.h"
#include "properties/tree_edits.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>

#include <functional>

namespace {

using namespace veltoprotocol;

struct Told {
    std::string text;
    int error = 7;
};

template <class Reader, class From>
Told told(Faults& faults, const Reader& reader, From* from, const std::string& where) {
    Told told;
    told.text = steady(faults, where, [&] { return reader.read(from, &told.error); });
    if (told.error != 7) faults.expect(told.error == 0 || told.error == -1, where, "has an unknown error");
    return told;
}

// Each byte is as it was, or zero.
bool onlyZeroes(const std::string& was, const std::string& is) {
    if (is.size() != was.size()) return false;
    for (std::size_t i = 0; i < is.size(); ++i)
        if (is[i] != was[i] && is[i] != '\0') return false;
    return is != was;
}

// A document with one edit of one element; false if there is none such.
using Edit = std::function<bool(TiXmlElement*)>;
using Check = std::function<void(TiXmlDocument&, const std::string& where)>;

std::size_t edited(const Document& doc, const Edit& edit, const Check& check) {
    std::size_t made = 0;
    for (std::size_t i = 0; i < edits::elementsOf(*doc).size(); ++i) {
        TiXmlDocument copy(*doc);
        TiXmlElement* const element = edits::elementsOf(copy)[i];
        const std::string where = element->ValueStr() + ", element " + std::to_string(i);
        if (!edit(element)) continue;
        check(copy, where);
        ++made;
    }
    return made;
}

const std::string ownList = "GetPlayBackParamDecode";
const std::string twoPathsInOneField = "GetStorageParamDecode";

// Runs over the records; `check` gets what the reader tells of one as it was and as it is.
std::size_t editedRecords(Faults& faults, const Edit& edit,
                          const std::function<void(const std::string& name, const Told& was, const Told& is,
                                                   std::string where)>& check) {
    std::size_t made = 0;
    const Muted quiet;
    for (const OwnElement& own : ownElements()) {
        const Document doc = parsed(own.xml);
        const Told was = told(faults, *own.reader, doc->RootElement(), own.reader->name);
        made += edited(doc, edit, [&](TiXmlDocument& changed, const std::string& place) {
            const std::string where = std::string(own.reader->name) + ", " + place;
            if (!changed.RootElement()) return;
            const Told is = told(faults, *own.reader, changed.RootElement(), where);
            check(own.reader->name, was, is, where);
        });
    }
    return made;
}

TEST(ChangedTrees, MissingChildrenOfRecordsLeaveTheirFieldsZero) {
    Faults faults;
    const auto remove = [](TiXmlElement* element) {
        const bool child = element->Parent()->ToElement() != nullptr;
        if (child) edits::remove(element);
        return child;
    };
    const std::size_t made = editedRecords(
        faults, remove,
        [&](const std::string& name, const Told& was, const Told& is, const std::string& where) {
            if (name == ownList || name == twoPathsInOneField) return;
            faults.expect(is.error == 0, where, "is an error");
            faults.expect(is.text == was.text || onlyZeroes(was.text, is.text), where,
                          "changes other fields");
        });
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(made, 100u);
}

TEST(ChangedTrees, MissingAttributesOfRecordsLeaveTheirFieldsZero) {
    Faults faults;
    std::size_t changed = 0;
    for (int place = 0; place < 24; ++place) {
        const auto remove = [place](TiXmlElement* element) {
            const edits::Attributes attributes = edits::attributesOf(element);
            if (attributes.size() <= static_cast<std::size_t>(place)) return false;
            element->RemoveAttribute(attributes[static_cast<std::size_t>(place)].first.c_str());
            return true;
        };
        editedRecords(faults, remove,
                      [&](const std::string&, const Told& was, const Told& is, const std::string& where) {
                          faults.expect(is.error == 0, where, "is an error");
                          faults.expect(is.text == was.text || onlyZeroes(was.text, is.text), where,
                                        "changes other fields");
                          changed += is.text != was.text;
                      });
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(changed, 80u);
}

TEST(ChangedTrees, OnlyTheFirstOfTwoChildrenCounts) {
    Faults faults;
    for (const auto& doubled : {edits::doubleWithOtherTexts, edits::moveToTheFrontAndDoubleAtTheEnd}) {
        const auto ofChild = [&](TiXmlElement* element) {
            const bool child = element->Parent()->ToElement() != nullptr;
            if (child) doubled(element);
            return child;
        };
        const std::size_t made = editedRecords(
            faults, ofChild,
            [&](const std::string& name, const Told& was, const Told& is, const std::string& where) {
                faults.expect(is.error == 0, where, "is an error");
                faults.expect(name == ownList || is.text == was.text, where, "reads the second child");
            });
        EXPECT_GE(made, 100u);
    }
    EXPECT_EQ(faults.text(), "");
}

TEST(ChangedTrees, OrderMeansNothingInARecord) {
    Faults faults;
    const auto same = [&](const std::string&, const Told& was, const Told& is, const std::string& where) {
        faults.expect(is.error == 0 && is.text == was.text, where, "is read by its order");
    };
    const auto reverse = [](TiXmlElement* element) {
        const bool unordered = edits::holdsDifferentElements(element);
        if (unordered) edits::reverseChildren(element);
        return unordered;
    };
    const std::size_t children = editedRecords(faults, reverse, same);
    const auto reverseAttributes = [](TiXmlElement* element) {
        edits::reverseAttributes(element);
        return element->FirstAttribute() != nullptr;
    };
    const std::size_t attributes = editedRecords(faults, reverseAttributes, same);
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(children, 10u);
    EXPECT_GE(attributes, 15u);
}

// Those whose result is one text or number.
bool tellsOneValue(const std::string& reader) {
    for (const char* other :
         {"GetUserInfoParamDecode", "GetViewGroupDataParamDecode", "GetSetViewGroupData",
          "GetSearchHistoryAlarmReqDecode", "GetSearchHistoryAlarmRespDecode", "GetSetEMapInfoReqDecode",
          "GetEMapInfoRespDecode", "GetXmlLength", "GetXmlEncode"})
        if (reader == other) return false;
    return true;
}
bool tellsTheXml(const std::string& reader) { return reader == "GetXmlLength" || reader == "GetXmlEncode"; }

TEST(ChangedTrees, OfDocumentsGiveTheValueOrNothing) {
    Faults faults;
    std::size_t made = 0;
    {
        const Muted quiet;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc = parsed(xml);
            for (const DocumentReader& reader : documentReaders) {
                const Told was = told(faults, reader, doc.get(), reader.name);
                int error = 7;
                const std::string nothing = reader.read(nullptr, &error);
                const bool withResult = nothing.find(',') != std::string::npos; // two values at once
                const auto check = [&](bool mayBeNothing, bool mayChange) {
                    return [&, mayBeNothing, mayChange](TiXmlDocument& changed, const std::string& place) {
                        const std::string where = std::string(reader.name) + ", " + place;
                        const Told is = told(faults, reader, &changed, where);
                        const bool sameAsBefore = is.text == was.text && is.error == was.error;
                        if (!sameAsBefore && !mayChange)
                            faults.expect(mayBeNothing && (is.text == nothing || withResult), where,
                                          "reads something else");
                    };
                };
                const bool one = tellsOneValue(reader.name);
                const auto remove = [](TiXmlElement* element) { return edits::remove(element), true; };
                const auto twice = [](TiXmlElement* element) { return edits::doubleAsItIs(element), true; };
                const auto reverse = [](TiXmlElement* element) {
                    const bool unordered = edits::holdsDifferentElements(element);
                    if (unordered) edits::reverseChildren(element);
                    return unordered;
                };
                made += edited(doc, remove, check(true, !one));
                made += edited(doc, twice, check(false, !one));
                made += edited(doc, reverse, check(false, tellsTheXml(reader.name)));
            }
        }
    }
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(made, 20000u);
}

} // namespace
