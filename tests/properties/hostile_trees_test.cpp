// Records in which elements and attributes are missing, doubled and in another order, at every level.
#include "properties/changed_trees.h"
#include "properties/hostile_messages.h"
#include "support/muted.h"

#include <LibVeltoProtocol.h>

#include <cstddef>
#include <functional>

namespace {

using namespace veltoprotocol;

struct Changed {
    std::string reader;
    std::string element; // the changed one
    const TiXmlElement& root;
    Told was, is;
    std::string where;
};

// Runs over the records and their elements.
std::size_t editedRecords(Faults& faults, const Edit& edit,
                          const std::function<void(const Changed& changed)>& check) {
    std::size_t made = 0;
    const Muted quiet;
    for (const OwnElement& own : ownElements()) {
        const Document doc = parsed(own.xml);
        const std::string name = own.reader->name;
        const Told was = told(faults, *own.reader, doc->RootElement(), name);
        made +=
            edited(doc, edit, [&](TiXmlDocument& copy, const std::string& element, const std::string& at) {
                TiXmlElement* const root = copy.RootElement();
                if (!root) return;
                const Told is = told(faults, *own.reader, root, name + ", " + at);
                check({name, element, *root, was, is, name + ", " + at});
            });
    }
    return made;
}

// Reads a list as well, whose entries have a test of their own.
const std::string ownList = "GetPlayBackParamDecode";

// A record with one member's bytes, and a list of none.
std::string without(const std::string& record, std::size_t place, std::string bytes, std::size_t size) {
    bytes.resize(size, '\0');
    return std::string(record).replace(place, size, bytes);
}
std::string emptyList(const std::string& playback) { return playback + "[0 of none]"; }

// What a record is without one of its children.
std::string wanted(const Changed& changed) {
    const std::string& was = changed.was.text;
    if (changed.reader == "GetStorageParamDecode" && changed.element == "ArchivePathNonUNC") {
        // Two paths share a field: the other one shows.
        const TiXmlElement* const other = changed.root.FirstChildElement("DatabasePathNonUNC");
        return without(was, offsetof(__tagVtStorageInfo, PathNonUNC), other->GetText(),
                       sizeof __tagVtStorageInfo::PathNonUNC);
    }
    if (changed.reader != ownList) return "";
    if (changed.element == "PlaybackParam") return emptyList(std::string(sizeof(__tagVtPlayBackParam), '\0'));
    const std::string alone = was.substr(0, sizeof(__tagVtPlayBackParam));
    if (changed.element == "RecordCounter")
        return emptyList(without(alone, offsetof(__tagVtPlayBackParam, RecordCounter), "", sizeof(int)));
    return "";
}

TEST(ChangedTrees, MissingChildrenOfRecordsLeaveTheirFieldsZero) {
    Faults faults;
    std::size_t changes = 0, others = 0;
    const auto remove = [](TiXmlElement* element) {
        const bool child = element->Parent()->ToElement() != nullptr;
        if (child) edits::remove(element);
        return child;
    };
    editedRecords(faults, remove, [&](const Changed& changed) {
        const bool nothing = changed.reader == ownList && changed.element == "PlaybackParam";
        faults.expect(changed.is.error == (nothing ? -1 : 0), changed.where, "has another error");
        const std::string want = wanted(changed);
        faults.expect(want.empty() ? sameOrZeroes(changed.was.text, changed.is.text)
                                   : changed.is.text == want,
                      changed.where, "changes other fields");
        changes += changed.is.text != changed.was.text;
        others += !want.empty();
    });
    EXPECT_EQ(faults.text(), "");
    EXPECT_GE(changes, 90u);
    EXPECT_EQ(others, 3u);
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
        editedRecords(faults, remove, [&](const Changed& now) {
            faults.expect(now.is.error == 0, now.where, "is an error");
            faults.expect(sameOrZeroes(now.was.text, now.is.text), now.where, "changes other fields");
            changed += now.is.text != now.was.text;
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
        const std::size_t made = editedRecords(faults, ofChild, [&](const Changed& changed) {
            faults.expect(changed.is.error == 0, changed.where, "is an error");
            if (changed.reader == ownList && changed.element == "RecordParam") return; // an entry
            faults.expect(changed.is == changed.was, changed.where, "reads the second child");
        });
        EXPECT_GE(made, 100u);
    }
    EXPECT_EQ(faults.text(), "");
}

TEST(ChangedTrees, OrderMeansNothingInARecord) {
    Faults faults;
    const auto same = [&](const Changed& changed) {
        faults.expect(changed.is == changed.was && changed.is.error == 0, changed.where,
                      "is read by its order");
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

} // namespace
