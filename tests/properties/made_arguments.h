// Arguments for an encoder, made from the types of its parameters: texts and records that end directly before
// a page that nobody may touch, without a NUL in any field; or null.
#pragma once

#include "properties/full_records.h"
#include "properties/set_buffer.h"

#include <LibVeltoProtocol.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

class MadeArguments {
  public:
    enum Texts { full, empty, null };
    enum Records { complete, withoutArrays, missing };
    struct Choice {
        Texts texts = full;
        Records records = complete;
        veltoprotocol::__enumVtMessageType event = veltoprotocol::VtMessageAlarm;
        bool lengths = true; // of texts, where an int follows one
        int otherAt = -1;    // which of the texts, counted from 0, is this one instead
        std::string other;   // at most 48 bytes
    };
    static constexpr int entries = 2; // of each array

    explicit MadeArguments(Choice choice) : choice_(choice) {}

    // The encoder, to be called with any buffer as long as this lives.
    template <class... Parameters>
    std::function<int(char*, int)> bound(int (*encode)(Parameters...)) {
        previous_ = Previous::other;
        std::tuple<Parameters...> arguments{make(Type<Parameters>())...}; // in their order
        return [=](char* out, int size) mutable {
            setBuffer(arguments, out, size);
            return std::apply(encode, arguments);
        };
    }
    // A writer of an element's attributes and children.
    template <class Second>
    std::function<int(TiXmlElement*)> bound(int (*encode)(TiXmlElement*, Second)) {
        const Second second = make(Type<Second>());
        return [=](TiXmlElement* element) { return encode(element, second); };
    }

    // Whether a record may be null among those that were made.
    bool hasRecords() const { return hasRecords_; }
    // How many texts were made.
    int texts() const { return texts_; }

  private:
    template <class Parameter>
    struct Type {};
    enum class Previous { text, record, other };

    const char* make(Type<const char*>) {
        previous_ = Previous::text;
        const bool other = texts_++ == choice_.otherAt;
        if (choice_.texts == null && !other) return nullptr;
        // As long as the longest identity; a picture's is read without looking for a NUL.
        std::string text = other ? choice_.other : std::string(choice_.texts == full ? 48 : 0, 't');
        text.resize(49, '\0');
        const auto page = std::make_shared<GuardedPage>(text);
        kept_.push_back(page);
        return page->data();
    }
    int make(Type<int>) {
        const Previous before = std::exchange(previous_, Previous::other);
        if (before == Previous::record) return entries;
        return before == Previous::text && choice_.lengths ? 48 : 0; // results are 0
    }
    template <class Record>
    const Record* make(Type<const Record*>) {
        previous_ = Previous::record;
        hasRecords_ = true;
        return choice_.records == missing ? nullptr : filled<Record>();
    }
    const void* make(Type<const void*>) {
        using namespace veltoprotocol;
        hasRecords_ = true;
        if (choice_.records == missing) return nullptr;
        if (choice_.event == VtMessageAlarm) return filled<__tagVtAlarmData>();
        if (choice_.event == VtMessageRecordStatus) return filled<__tagVtRecordStatus>();
        return filled<__tagVtMessageParam>();
    }
    template <class Record>
    const Record& make(Type<const Record&>) {
        previous_ = Previous::other;
        return *filled<Record>();
    }
    char* make(Type<char*>) { return nullptr; }
    unsigned int make(Type<unsigned int>) { return previous_ = Previous::other, 7u; }
    bool make(Type<bool>) { return true; }
    veltoprotocol::__enumVtMessageType make(Type<veltoprotocol::__enumVtMessageType>) {
        return choice_.event;
    }
    veltoprotocol::__enumVtDeviceReqType make(Type<veltoprotocol::__enumVtDeviceReqType>) {
        return veltoprotocol::VtDeviceReqAdd;
    }

    template <class Record>
    Record* filled() {
        const auto records = std::make_shared<FullRecords<Record>>(entries);
        kept_.push_back(records);
        for (int i = 0; i < entries; ++i) finish(records->records()[i]);
        return records->records();
    }

    template <class Entry, class Count>
    void attach(Entry*& array, Count& count) {
        array = choice_.records == withoutArrays ? nullptr : filled<Entry>();
        count = entries;
    }
    // Pointers cannot stay as they are, and flags are 0 or 1.
    template <class Record>
    void finish(Record& record) {
        makeValid(record);
    }
    void finish(veltoprotocol::__tagVtStorageInfo& storage) {
        storage.EnableDbPreSecs = storage.EnableDbPostSecs = true;
        storage.SaveOnEvent = storage.SaveOnMotion = true;
    }
    void finish(veltoprotocol::__tagVtDataParam& payload) {
        payload.Data = choice_.records == withoutArrays ? nullptr : filled<char>();
        payload.DataLength = entries;
    }
    void finish(veltoprotocol::__tagVtRecordParam& found) { attach(found.Records, found.Counter); }
    void finish(veltoprotocol::__tagVtPlayBackParam& playback) {
        attach(playback.Records, playback.RecordCounter);
    }
    void finish(veltoprotocol::__tagVtSearchAlarmParam& search) {
        attach(search.channels, search.channelcount);
    }
    void finish(veltoprotocol::__tagVtSearchAlarmResult& found) { attach(found.alarms, found.CurCount); }
    void finish(veltoprotocol::__tagVtUserEMapInfo& user) {
        attach(user.EMapInfos, user.EMapInfoCount);
        attach(user.EMapItems, user.EMapItemCount);
    }
    void finish(veltoprotocol::__tagVtViewGroupData& layout) { attach(layout.groups, layout.groupcount); }
    void finish(veltoprotocol::__tagVtGroupItem& group) { attach(group.views, group.viewcount); }
    void finish(veltoprotocol::__tagVtViewInfo& view) { attach(view.items, view.itemcount); }
    void finish(veltoprotocol::__tagVtViewItem& item) {
        item.type = 5; // its carousels are written
        finish(item.iteminfo);
    }
    void finish(veltoprotocol::__tagVtViewItemInfo& info) { attach(info.carousels, info.carouselcount); }

    Choice choice_;
    Previous previous_ = Previous::other;
    bool hasRecords_ = false;
    int texts_ = 0;
    std::vector<std::shared_ptr<void>> kept_;
};
