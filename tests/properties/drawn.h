// Arguments that a seed decides: the same on every machine, and more awkward than careful callers would send.
// A fuzzer decides them by its bytes.
#pragma once

#include "properties/every_encoder.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

// A text as the functions take it: NUL-terminated, or null.
struct PointedText {
    std::string text;
    bool null = false;
    operator const char*() const { return null ? nullptr : text.c_str(); }
};

// An array and its count, which may be null, or say less than there is.
template <class Entry>
struct Array {
    std::vector<Entry> entries;
    bool null = false;
    int count = 0;
    const Entry* data() const { return null ? nullptr : entries.data(); }
};

// While this lives, each new Draw of its thread draws from these bytes, and from its seed when it has used
// them up.
class DrawnBytes {
  public:
    explicit DrawnBytes(std::string_view bytes) { current_ = bytes; }
    DrawnBytes(const DrawnBytes&) = delete;
    DrawnBytes& operator=(const DrawnBytes&) = delete;
    ~DrawnBytes() { current_ = {}; }

    static std::string_view current() { return current_; }

  private:
    inline static thread_local std::string_view current_;
};

class Draw {
  public:
    Draw(unsigned seed, Texts texts)
        : random_(seed),
          given_(DrawnBytes::current()),
          fuzzed_(!given_.empty()),
          printable_(texts == Texts::printable) {}

    unsigned below(std::size_t bound) {
        return word(static_cast<unsigned>(bound)) % static_cast<unsigned>(bound);
    }
    bool oneIn(unsigned bound) { return below(bound) == 0; }
    // Something that an encoder refuses, or has a rule of its own for.
    bool missing() { return !printable_ && oneIn(8); }

    template <class Integer>
    Integer number() {
        constexpr int picked[] = {0, 1, -1, 2, 9, 10, -10, INT_MAX, INT_MIN, 1000000};
        return static_cast<Integer>(oneIn(2) ? picked[below(10)] : static_cast<int>(word(UINT_MAX)));
    }
    // 0 is what most encoders have a rule for.
    int code() { return oneIn(2) ? 0 : number<int>(); }

    // Without a NUL, at most `longest` bytes.
    std::string text(std::size_t longest) {
        if (fuzzed_ && !printable_) {
            if (!given_.empty()) return givenText(longest);
            if (!oneIn(8)) return std::string(oneIn(3) ? longest : below(longest + 1), 'x'); // cheap
        }
        const std::size_t length = oneIn(3) ? longest : below(longest + 1);
        std::string text;
        while (text.size() < length) {
            const std::string more = piece();
            text += text.size() + more.size() <= length ? more : "x";
        }
        return text;
    }

    PointedText pointedText() { return {text(oneIn(16) ? 3000 : 40), missing()}; }

    // For an HTTP head, now and then with a line end that must not get into it.
    PointedText headText() {
        PointedText head{printable_ ? plain(below(30)) : text(30), missing()};
        if (printable_) return head;
        for (char& byte : head.text)
            if (byte == '\r' || byte == '\n') byte = '.';
        if (oneIn(8)) head.text.insert(below(head.text.size() + 1), 1, "\r\n"[below(2)]);
        return head;
    }
    PointedText path() {
        if (!printable_) return headText();
        return {"/" + plain(below(30)), false};
    }

    // For the wrappers, which take bodies as they come.
    Array<char> body() {
        if (fuzzed_ && !printable_) return array(givenText(1200));
        std::string bytes = "<body>" + plain(below(1200)) + "</body>\n";
        if (!printable_)
            for (char& byte : bytes) byte = static_cast<char>(below(256));
        return array(bytes);
    }

    template <class DrawEntry>
    auto array(const DrawEntry& drawEntry, unsigned fewest = 0, unsigned more = 3)
        -> Array<decltype(drawEntry(*this))> {
        std::vector<decltype(drawEntry(*this))> entries;
        for (unsigned count = fewest + below(more + 1); entries.size() < count;)
            entries.push_back(drawEntry(*this));
        return array(entries);
    }

    template <class Record>
    Record noise() {
        static_assert(std::is_trivially_copyable_v<Record>, "a record is plain bytes");
        unsigned char bytes[sizeof(Record)];
        if (fuzzed_ && sizeof bytes > 64) // neither worth the fuzzer's bytes nor its time
            std::memset(bytes, static_cast<int>(1 + random_() % 255), sizeof bytes);
        else
            for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(below(256));
        Record record = Record();
        std::memcpy(static_cast<void*>(&record), bytes, sizeof record);
        return record;
    }

    template <class... Members>
    void fill(Members&... members) {
        (fillOne(members), ...);
    }

  private:
    // Takes as many of the given bytes as a number below `bound` needs.
    unsigned word(unsigned bound) {
        if (given_.empty()) return static_cast<unsigned>(random_());
        unsigned number = 0;
        for (unsigned most = bound - 1; most > 0 && !given_.empty(); most >>= 8) {
            number = number << 8 | static_cast<unsigned char>(given_.front());
            given_.remove_prefix(1);
        }
        return number;
    }
    // Given bytes, now and then at the end of a text as long as it may be. Whatever the length they leave
    // some for the texts that follow.
    std::string givenText(std::size_t longest) {
        std::string text(given_.substr(0, below(std::min<std::size_t>(longest, 40) + 1)));
        given_.remove_prefix(text.size());
        for (char& byte : text)
            if (byte == '\0') byte = '0';
        if (oneIn(4)) text.insert(0, longest - text.size(), 'x');
        return text;
    }

    template <std::size_t N>
    void fillOne(char (&field)[N]) {
        const std::string value = text(N);
        std::memcpy(field, value.data(), value.size());
        if (value.size() < N) field[value.size()] = '\0'; // the noise behind it stays
    }
    void fillOne(bool& flag) { flag = oneIn(2); }
    template <class Integer>
    void fillOne(Integer& value) {
        value = number<Integer>();
    }

    template <class Entries>
    Array<typename Entries::value_type> array(const Entries& entries) {
        Array<typename Entries::value_type> array;
        array.entries.assign(entries.begin(), entries.end());
        array.null = missing();
        array.count = missing()   ? static_cast<int>(0x80000000u | word(UINT_MAX))
                      : missing() ? 0
                                  : static_cast<int>(entries.size());
        return array;
    }

    std::string piece() {
        if (oneIn(3)) return plain(1 + below(20));
        // What is escaped, and what only looks as if it were.
        static const std::string alike[] = {
            "\"", "'",  "&",  "<",    ">",        "&#x41;",       "&amp;",           "]]>",
            "\t", "\n", "\r", "\x7F", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"};
        if (printable_ || oneIn(2)) return alike[below(std::size(alike))];
        std::string run; // every byte but NUL; most runs are invalid as UTF-8
        for (unsigned from = below(255), i = 0; i < 16; ++i) run += static_cast<char>(1 + (from + i) % 255);
        return run;
    }

    std::string plain(unsigned length) {
        static const char letters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._:/";
        std::string text;
        while (text.size() < length) text += letters[below(sizeof letters - 1)];
        return text;
    }

    std::mt19937 random_;
    std::string_view given_;
    bool fuzzed_;
    bool printable_;
};
