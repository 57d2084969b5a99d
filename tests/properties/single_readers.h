// Every public function that reads what was received, each to be called alone. What one makes is told as
// text, contents of arrays included, and released.
#pragma once

#include <new>
#include <string>
#include <vector>

class TiXmlDocument;
class TiXmlElement;

// HTTP messages and parts of them, Base64 texts, record blocks.
struct BytesReader {
    const char* name;
    std::string (*read)(const char* buf, int len);
};
// `error` is left alone by those that have none.
struct DocumentReader {
    const char* name;
    std::string (*read)(TiXmlDocument* doc, int* error);
};
struct ElementReader {
    const char* name;
    std::string (*read)(TiXmlElement* element, int* error);
};

extern const std::vector<BytesReader> bytesReaders;
extern const std::vector<DocumentReader> documentReaders;
extern const std::vector<ElementReader> recordReaders; // tell the bytes of one record
extern const std::vector<ElementReader> valueReaders;  // tell what they make of an element or its first child

// A call that throws std::bad_alloc makes nothing.
extern const char exhausted[];

template <class Call>
std::string unlessExhausted(const Call& call) {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return exhausted;
    }
}

// What runs directly before and directly after a thread's calls of the library, also after one that throws:
// what the readers do besides, such as telling, is outside.
class AroundCalls {
  public:
    virtual void before() = 0;
    virtual void after() = 0;

  protected:
    ~AroundCalls() = default;
};
inline thread_local AroundCalls* aroundCalls = nullptr;

template <class Call>
auto libraryCall(const Call& call) {
    const struct Around {
        Around() {
            if (aroundCalls) aroundCalls->before();
        }
        Around(const Around&) = delete;
        Around& operator=(const Around&) = delete;
        ~Around() {
            if (aroundCalls) aroundCalls->after();
        }
    } around;
    return call();
}
