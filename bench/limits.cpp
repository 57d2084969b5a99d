// The worst inputs that we know, each in a process of its own: what becomes of it, how long that takes and
// how much memory it needs. `limits` lists the cases, `limits CASE` prints a row of docs/limits.md.
#include "counted_lists.h"
#include "properties/cost_families.h"
#include "properties/zip_bomb.h"
#include "used.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iostream>
#include <memory>
#include <new>

#include <malloc.h>

namespace {

using namespace veltoprotocol;
using cost::times;

constexpr std::size_t megabyte = 1000000, large = 10 * megabyte;

using bench::forgetPeak, bench::megabytes, bench::now, bench::Printed;
using bench::List, bench::lists;
using Document = std::unique_ptr<TiXmlDocument, void (*)(TiXmlDocument*)>;

// Makes its input when it is called; what it returns makes the call and tells what came out of it.
using Call = std::function<std::string()>;
struct Case {
    std::string name, input, call;
    std::function<Call()> prepare;
};

Call decoding(const std::string& text) {
    return [text] {
        const Document doc(Decode(text.c_str()), ReleaseTiXmlDocument);
        return std::string(doc ? "accepted" : "refused");
    };
}
Case document(const char* name, const std::string& input, const std::function<std::string()>& text) {
    return {name, input, "`Decode`", [=] { return decoding(text()); }};
}
// The usual declaration and a root around so many bytes of one thing.
Case filled(const char* name, const std::string& input, const std::string& unit,
            const std::string& back = "</a>") {
    return document(name, input, [=] {
        return cost::Family{"", cost::By::scan, cost::usual + "<a>", unit, back}.text(large);
    });
}

Call authorizing(std::size_t length) {
    std::string head = "POST /servercommandservice HTTP/1.1\r\nAuthorization: Basic ";
    head += times(static_cast<int>(length / 4), "YWJj") + "\r\n\r\n";
    return [head] {
        const std::string value = GetAuthorization(head.data(), static_cast<int>(head.size()));
        const std::string credentials = GetAuthorizationDecode(value.data(), static_cast<int>(value.size()));
        return credentials.empty() ? "a value of " + std::to_string(value.size()) + " bytes, no credentials"
                                   : std::string("accepted");
    };
}

Call reading(std::size_t size, std::size_t plain, unsigned int counter) {
    return [block = cost::zipBomb(size, plain, counter)] {
        int error = 7;
        __tagVtRecordParam found =
            GetSearchRecordResultDecode(block.data(), static_cast<int>(block.size()), &error);
        const std::string what = found.Records ? std::to_string(found.Counter) + " records" : "no records";
        ReleaseRecordParam(&found);
        return what;
    };
}
Case block(const char* name, const std::string& input, std::size_t size, std::size_t plain,
           unsigned int counter) {
    return {name, input, "`GetSearchRecordResultDecode`", [=] { return reading(size, plain, counter); }};
}

Case counting(const List& list, const std::string& input, const std::string& count, std::size_t size,
              const std::string& name) {
    return {name, input, "`Decode`, `" + std::string(list.decoder) + "`", [&list, count, size]() -> Call {
                return [&list, text = list.text(count, size)] {
                    const Document doc(Decode(text.c_str()), ReleaseTiXmlDocument);
                    return doc ? std::to_string(list.read(doc.get())) + " entries" : "refused";
                };
            }};
}

// As high as the array may be, far more than there are entries.
Case counting(const List& list) {
    const std::string most = std::to_string((std::size_t{1} << 30) / list.size);
    return counting(list, "a count of " + std::string(list.name) + " as high as may be: " + most, most, 400,
                    "most-" + std::string(list.name));
}

// Of a document that is there already.
Case printing(const char* name, bool isMeasured, const std::string& input, const std::string& front,
              const std::string& unit, const std::string& back) {
    return {name, input, isMeasured ? "`GetXmlLength`" : "`GetXmlEncode`", [=]() -> Call {
                const std::string text = cost::Family{"", cost::By::scan, front, unit, back}.text(large);
                const std::shared_ptr<TiXmlDocument> doc(Decode(text.c_str()), ReleaseTiXmlDocument);
                return [doc, isMeasured] {
                    const std::size_t length = isMeasured ? static_cast<std::size_t>(GetXmlLength(doc.get()))
                                                          : GetXmlEncode(doc.get()).size();
                    return "a text of " + std::to_string(length) + " bytes";
                };
            }};
}

// A receiver that asks after each KiB whether the message is whole.
Case growing(const char* name, const std::string& input, const std::string& head, const std::string& unit) {
    return {name, input, "8,192 times `GetHttpPacketLength`", [=]() -> Call {
                constexpr std::size_t whole = 8 << 20, step = 1024;
                return [message = cost::Family{"", cost::By::nobody, head, unit, ""}.text(whole)] {
                    int framed = 0;
                    for (std::size_t length = step; length <= whole; length += step)
                        framed += GetHttpPacketLength(message.data(), static_cast<int>(length)) > 0 ? 1 : 0;
                    return framed > 0 ? std::string("framed at the end") : "never framed";
                };
            }};
}

std::vector<Case> cases() {
    constexpr unsigned int asManyAsFit = (1U << 30) / sizeof(__tagVtRecordElementParam);
    std::vector<Case> cases = {
        document("levels", "100,000 levels",
                 [] { return cost::usual + times(100000, "<a>") + times(100000, "</a>"); }),
        document(
            "attributes", "an element with 20,000 attributes",
            [] {
                return cost::Family{"", cost::By::nobody, cost::usual + "<a", " k@=''", "/>"}.text(200000);
            }),
        {"authorization", "an Authorization header of 100 KB", "`GetAuthorization`, `GetAuthorizationDecode`",
         [] { return authorizing(100000); }},
        block("bomb", "a 10 MB record list that inflates to 1.1 GB", large, 1100 * megabyte, 0),
        block("bomb-counter", "the same to 1 GB, its Counter 4,294,967,295", large, 1000 * megabyte,
              4294967295U),
        block("bomb-records", "the same to 1 GB, its Counter as high as may be", large, 1000 * megabyte,
              asManyAsFit),
        block("few-records", "a record list of 80 bytes, its Counter as high as may be", 80, 57, asManyAsFit),
        filled("smallest", "10 MB of `<a/>`", "<a/>"),
        filled("texts", "10 MB of `x<a/>`", "x<a/>"),
        filled("texts-parser", "the same with a comment at the end", "x<a/>", "<!----></a>"),
        filled("texts-wrong", "the same with a wrong end tag", "x<a/>", "</b>"),
        filled("deep", "10 MB, 128 levels again and again", times(127, "<b>") + times(127, "</b>")),
        filled("crowded", "10 MB of elements with 128 attributes", cost::crowded()),
        document("crowded-parser", "the same without a declaration",
                 [] {
                     return cost::Family{"", cost::By::parser, "<a>", cost::crowded(), "</a>"}.text(large);
                 }),
        filled("ampersands", "10 MB of `&`", "&"),
        filled("references", "10 MB of `&#x41;`", "&#x41;"),
        filled("text", "one text of 10 MB", "t"),
        document("name", "one name of 10 MB", [] {
            return cost::Family{"", cost::By::parser, "<", "n", "/>"}.text(large);
        })};
    cases.push_back(
        printing("print-smallest", false, "10 MB of `<a/>`", cost::usual + "<a>", "<a/>", "</a>"));
    for (const bool isMeasured : {false, true})
        cases.push_back(printing(isMeasured ? "measure-deep" : "print-deep", isMeasured,
                                 "10 MB of `x<a/>` inside 127 elements", cost::usual + times(127, "<b>"),
                                 "x<a/>", times(127, "</b>")));
    cases.push_back(growing("growing", "a message of 8 MiB that comes in steps of 1 KiB",
                            "POST / HTTP/1.1\r\nContent-Length: 8388564\r\n\r\n", "x"));
    cases.push_back(growing("growing-without", "the same without a length", "POST / HTTP/1.1\r\n\r\n", "x"));
    cases.push_back(growing("growing-names", "the same, its body made of cut off header names",
                            "POST / HTTP/1.1\r\n\r\n", "Content-Lengt\r\n"));
    for (const List& list : lists()) {
        const bool isUnsigned = std::string(list.name) == "records";
        cases.push_back(counting(
            list,
            (isUnsigned ? "a count of 4,294,967,295 " : "a count of 2,147,483,647 ") + std::string(list.name),
            isUnsigned ? "4294967295" : "2147483647", 400, "count-" + std::string(list.name)));
    }
    for (const List& list : lists()) cases.push_back(counting(list));
    // As many as there are, or as an array may have.
    for (const List& list : lists()) {
        const std::size_t count = std::min(large / list.entry.size(), (std::size_t{1} << 30) / list.size);
        cases.push_back(counting(list, "10 MB of `" + list.entry + "`", std::to_string(count), large,
                                 "list-" + std::string(list.name)));
    }
    return cases;
}

int measure(const Case& one) {
    const Call call = one.prepare();
    std::string what, first;
    long lines = 0;
    Printed printed;
    malloc_trim(0);
    forgetPeak();
    const double memoryBefore = megabytes(), before = now();
    try {
        what = call();
    } catch (const std::bad_alloc&) {
        what = "`std::bad_alloc`";
    }
    const double seconds = now() - before, memory = megabytes() - memoryBefore;
    printed.end(first, lines);
    if (lines == 1) what += ": \"" + first + "\"";
    if (lines > 1) what += ", " + std::to_string(lines) + " lines printed";
    if (seconds < 0.01)
        std::printf("| %s | %s | %s | %.2f ms", one.input.c_str(), one.call.c_str(), what.c_str(),
                    seconds * 1e3);
    else
        std::printf("| %s | %s | %s | %.0f ms", one.input.c_str(), one.call.c_str(), what.c_str(),
                    seconds * 1e3);
    std::printf(" | %.0f MB |\n", memory);
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    for (const Case& one : cases())
        if (count < 2)
            std::cout << one.name << '\n';
        else if (arguments[1] == one.name)
            return measure(one);
    return count < 2 ? 0 : 2;
}
