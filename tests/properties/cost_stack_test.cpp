// Everything gets by with a small stack, so it may be called on a small thread.
#include "properties/cost_families.h"
#include "properties/declared.h"
#include "properties/every_encoder.h"
#include "properties/hostile_messages.h"
#include "properties/single_readers.h"
#include "properties/tree_edits.h"
#include "properties/zip_bomb.h"
#include "support/muted.h"
#include "support/read_back.h"

#include <LibVeltoProtocol.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>
#include <stdexcept>

#include <pthread.h>
#include <sys/mman.h>

namespace {

using namespace veltoprotocol;

// Frames grow under a sanitizer.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define COST_SANITIZED
#endif
#endif
#ifdef COST_SANITIZED
constexpr std::size_t promised = 256 << 10;
#else
constexpr std::size_t promised = 64 << 10;
#endif

// A thread's stack, larger than it needs to be, so that it can be told how much of it was used.
class PaintedStack {
  public:
    PaintedStack() {
        void* const start = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (start == MAP_FAILED) throw std::bad_alloc();
        start_ = static_cast<unsigned char*>(start);
        mprotect(start_, guard, PROT_NONE);
    }
    PaintedStack(const PaintedStack&) = delete;
    PaintedStack& operator=(const PaintedStack&) = delete;
    ~PaintedStack() { munmap(start_, size); }

    // How many bytes of it a thread touches that does the work, what the thread itself needs included.
    std::size_t used(std::function<void()> work) {
        unsigned char *const lowest = start_ + guard, *const end = start_ + size;
        std::memset(lowest, paint, size - guard);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstack(&attributes, lowest, size - guard);
        pthread_t thread;
        const auto run = [](void* of) -> void* {
            (*static_cast<std::function<void()>*>(of))();
            return nullptr;
        };
        const int failed = pthread_create(&thread, &attributes, run, &work);
        pthread_attr_destroy(&attributes);
        if (failed) throw std::runtime_error("no thread");
        pthread_join(thread, nullptr);
        const std::vector<unsigned char> painted(4096, paint);
        unsigned char* at = lowest;
        while (at < end && std::memcmp(at, painted.data(), painted.size()) == 0) at += painted.size();
        while (at < end && *at == paint) ++at;
        return static_cast<std::size_t>(end - at);
    }

  private:
    static constexpr std::size_t guard = 64 << 10, size = guard + (1 << 20);
    static constexpr unsigned char paint = 0xC5;
    unsigned char* start_;
};

// Who used more than is promised, and whether anybody used anything.
class Uses {
  public:
    template <class Work>
    void note(const std::string& name, const Work& work) {
        const std::size_t used = stack_.used(work);
        if (used > promised) tooMuch_ += name + " used " + std::to_string(used) + " bytes\n";
        if (used > most_) most_ = used, mostBy_ = name;
        ++calls_;
    }
    void expectWithinThePromise(std::size_t calls) const {
        EXPECT_EQ(tooMuch_, "");
        EXPECT_GE(calls_, calls);
        testing::Test::RecordProperty("most", static_cast<int>(most_));
        testing::Test::RecordProperty("by", mostBy_);
    }

  private:
    PaintedStack stack_;
    std::string tooMuch_, mostBy_;
    std::size_t most_ = 0, calls_ = 0;
};

template <std::size_t size>
void touch() {
    volatile char bytes[size];
    bytes[0] = 1;
    bytes[size / 2] = bytes[0];
}

// The rest stands on this.
TEST(PaintedStack, TellsHowMuchWasUsed) {
    PaintedStack stack;
    const std::size_t none = stack.used([] {}), some = stack.used(touch<40000>);
    EXPECT_GT(none, 100u);
    EXPECT_LT(none, promised / 2);
#ifndef COST_SANITIZED // which may put arrays elsewhere
    EXPECT_GE(some, 40000u);
    EXPECT_GT(stack.used(touch<80000>), promised);
#endif
    EXPECT_LT(some, promised);
}

TEST(SmallStack, IsEnoughForEveryEncoder) {
    Uses uses;
    std::set<std::string> called;
    {
        const Muted quiet;
        std::vector<char> out(4 << 20);
        for (unsigned seed = 0; seed < 3; ++seed)
            for (const Texts texts : {Texts::anyBytes, Texts::printable})
                visitEncoders(seed, texts, [&](const EncoderCall& call) {
                    called.insert(call.name);
                    uses.note(call.name, [&] { call.encode(out.data(), static_cast<int>(out.size())); });
                });
    }
    for (const std::string& function : declaredFunctions())
        EXPECT_EQ(called.count(function), isEncoder(function) ? 1u : 0u) << function;
    uses.expectWithinThePromise(600);
}

TEST(SmallStack, IsEnoughForEveryReaderOfBytes) {
    Uses uses;
    {
        const Muted quiet;
        std::vector<std::string> messages;
        for (const WholeMessage& message : wholeMessages()) messages.push_back(message.bytes);
        messages.push_back("POST / HTTP/1.1\r\nAuthorization: Basic " + cost::times(25000, "YWJj") +
                           "\r\n\r\n");
        messages.push_back("Basic " + cost::times(25000, "YWJj"));
        messages.push_back("Basic " + cost::times(341, "YWJj"));
        messages.push_back(cost::zipBomb(20000, 1900000, 1000));
        messages.push_back(cost::zipBomb(20000, 1900000, 4294967295U));
        for (const std::string& message : messages)
            for (const BytesReader& reader : bytesReaders)
                uses.note(reader.name,
                          [&] { reader.read(message.data(), static_cast<int>(message.size())); });
    }
    uses.expectWithinThePromise(1200);
}

TEST(SmallStack, IsEnoughForEveryReaderOfXml) {
    Uses uses;
    {
        const Muted quiet;
        for (const DocumentReader& reader : documentReaders)
            uses.note(reader.name, [&] {
                int error = 7;
                for (const std::string& xml : wholeDocuments()) {
                    TiXmlDocument* const doc = Decode(xml.c_str());
                    reader.read(doc, &error);
                    ReleaseTiXmlDocument(doc);
                }
            });
        for (const OwnElement& own : ownElements()) {
            const Document doc = parsed(own.xml);
            uses.note(own.reader->name, [&] {
                int error = 7;
                own.reader->read(doc->RootElement(), &error);
            });
        }
        const Document none = parsed("<a><b>-1.5</b></a>"), some = parsed("<a k='1'>x<b>12</b></a>");
        for (const auto& readers : {recordReaders, valueReaders})
            for (const ElementReader& reader : readers)
                for (const Document* doc : {&none, &some})
                    uses.note(reader.name, [&] { // all that is missing is told
                        int error = 7;
                        reader.read((*doc)->RootElement(), &error);
                        reader.read((*doc)->RootElement()->FirstChildElement(), &error);
                    });
    }
    uses.expectWithinThePromise(130);
}

TEST(SmallStack, IsEnoughForWhatWritesATree) {
    Uses uses;
    const Document doc = parsed("<a/>");
    uses.note("SetStringValue", [&] { SetStringValue(doc->RootElement(), "Name", "&text"); });
    uses.note("SetStringValueAtt", [&] { SetStringValueAtt(doc->RootElement(), "Name", "&text"); });
    uses.note("ItoString", [] { ItoString(-2147483647 - 1); });
    uses.note("UitoString", [] { UitoString(4294967295U); });
    uses.expectWithinThePromise(4);
}

// Parsed, printed and released.
void live(const std::string& text) {
    TiXmlDocument* const doc = Decode(text.c_str());
    if (doc) GetXmlEncode(doc), GetXmlLength(doc);
    ReleaseTiXmlDocument(doc);
}

TEST(SmallStack, IsEnoughForDocumentsOfAsManyLevelsAsMayBe) {
    const std::string tag = cost::crowded(), crowd = tag.substr(2, tag.size() - 4);
    Uses uses;
    std::size_t decoded = 0;
    {
        const Muted quiet;
        for (const std::string& declaration : {cost::usual, std::string()})
            for (const std::string& open : {std::string("<a>"), "<a" + crowd + ">"})
                for (const std::string& inside :
                     {std::string(), std::string("text"), std::string("<!-- c -->")}) {
                    const std::string text =
                        declaration + cost::times(128, open) + inside + cost::times(128, "</a>");
                    decoded += Document(Decode(text.c_str())) ? 1 : 0;
                    uses.note(text.substr(0, 100) + inside, [&] { live(text); });
                }
    }
    EXPECT_EQ(decoded, 12u);
    uses.expectWithinThePromise(12);
}

TEST(SmallStack, IsEnoughForDocumentsThatAreRefused) {
    Uses uses;
    int decoded = 0;
    {
        const Muted quiet;
        for (const std::string& declaration : {cost::usual, std::string()})
            for (const int levels : {129, 250, 500, 1000, 100000}) {
                const std::string text =
                    declaration + cost::times(levels, "<a>") + cost::times(levels, "</a>");
                decoded += Document(Decode(text.c_str())) ? 1 : 0;
                uses.note(std::to_string(levels) + " levels", [&] { live(text); });
            }
        for (const cost::Family& family : cost::families()) {
            const std::string text = family.text(50000);
            uses.note(family.name, [&] { live(text); });
        }
    }
    EXPECT_EQ(decoded, 0);
    uses.expectWithinThePromise(60);
}

} // namespace
