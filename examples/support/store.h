// What the example server keeps of one kind: records by their keys.
#ifndef EXAMPLES_STORE_H
#define EXAMPLES_STORE_H

#include "support/answer.h"

#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace example {

enum class Change { none, add, update, remove };

template <class Record>
class Store {
  public:
    using KeyOf = std::string (*)(const Record&);

    Store(KeyOf keyOf, std::size_t most) : keyOf_(keyOf), most_(most) {}

    // All of the records or none of them. Refused is who adds what is there, who changes or deletes what is
    // not, who names nothing, and who names one thing twice.
    int apply(Change change, const std::vector<Record>& records) {
        const int result = refusal(change, records);
        if (result != succeeded) return result;
        for (const Record& record : records) {
            if (change == Change::remove)
                records_.erase(keyOf_(record));
            else
                records_[keyOf_(record)] = record;
        }
        return succeeded;
    }

    // Drops what does not pass the test.
    template <class Test>
    void keepOnly(Test test) {
        for (auto at = records_.begin(); at != records_.end();)
            at = test(at->first) ? std::next(at) : records_.erase(at);
    }

    std::string keyOf(const Record& record) const { return keyOf_(record); }
    bool holds(const std::string& key) const { return records_.count(key) != 0; }
    std::size_t size() const { return records_.size(); }

    // In the order of their keys.
    std::vector<Record> all() const {
        std::vector<Record> list;
        for (const auto& entry : records_) list.push_back(entry.second);
        return list;
    }

  private:
    int refusal(Change change, const std::vector<Record>& records) const {
        if (change == Change::none) return unknownCommand;
        if (records.empty()) return notWhole;
        std::set<std::string> keys;
        for (const Record& record : records) {
            const std::string key = keyOf_(record);
            if (key.empty() || !keys.insert(key).second) return notWhole;
            if (change == Change::add && holds(key)) return alreadyThere;
            if (change != Change::add && !holds(key)) return noSuchThing;
        }
        const bool full = change == Change::add && records_.size() + records.size() > most_;
        return full ? noRoom : succeeded;
    }

    KeyOf keyOf_;
    std::size_t most_;
    std::map<std::string, Record> records_;
};

} // namespace example

#endif
