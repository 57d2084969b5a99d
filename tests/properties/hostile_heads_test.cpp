// Texts that hold a line end: no caller's value adds a line to a head.
#include "properties/listed_encoders.h"
#include "properties/steady.h"
#include "support/captured.h"
#include "support/muted.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

namespace {

constexpr int much = 1 << 15;
const std::string lineEnds[] = {"\r",
                                "\n",
                                "\r\n",
                                "h\r",
                                "\nh",
                                "h\r\nInjected: 1",
                                "h\nInjected: 1",
                                "h\rInjected: 1",
                                std::string(47, 'h') + "\n",
                                std::string(47, 'h') + "\r"};

// One text of an encoder.
struct Place {
    const ListedEncoder* encoder;
    int text;

    bool operator<(const Place& other) const {
        return encoder != other.encoder ? encoder < other.encoder : text < other.text;
    }
};

struct Wrote {
    int returned;
    std::string out;
    long allocated;
};
Wrote wrote(const Place& place, const std::string& text) {
    MadeArguments::Choice choice;
    choice.otherAt = place.text;
    choice.other = text;
    MadeArguments arguments(choice);
    const auto write = place.encoder->message(arguments);
    std::string out(much, '#');
    const heap::Watch watch;
    const int returned = write(&out[0], much);
    const long allocated = watch.most();
    return {returned, std::move(out), allocated};
}

std::vector<Place> places() {
    std::vector<Place> places;
    for (const ListedEncoder& encoder : listedEncoders) {
        if (!encoder.message) continue;
        MadeArguments arguments(MadeArguments::Choice{});
        encoder.message(arguments);
        for (int text = 0; text < arguments.texts(); ++text) places.push_back({&encoder, text});
    }
    return places;
}

// As a text of the head the value is refused; anywhere else it is written, and not as a line of the head.
std::set<Place> refused(Faults& faults) {
    std::set<Place> refused;
    const Muted quiet;
    for (const Place& place : places())
        for (const std::string& text : lineEnds) {
            const std::string where = place.encoder->name + (", text " + std::to_string(place.text));
            const Wrote got = wrote(place, text);
            if (&text == lineEnds && got.returned == -1) refused.insert(place);
            faults.expect(got.returned == -1 ? refused.count(place) == 1 : !refused.count(place), where,
                          "refuses some line ends only");
            if (got.returned != -1) {
                const std::string head = got.out.substr(0, got.out.find("\r\n\r\n"));
                faults.expect(head.find("Injected") == std::string::npos, where, "adds a line");
                continue;
            }
            faults.expect(got.out == std::string(much, '#'), where, "is refused, and yet writes");
            faults.expect(got.allocated == 0, where, "is refused, and yet builds something");
        }
    return refused;
}

// The names of each function's texts, as the public headers give them.
std::map<std::string, std::vector<std::string>> namesOfTexts() {
    std::map<std::string, std::vector<std::string>> names;
    const std::regex function("\\nVELTOPROTOCOL_API[^;(]*\\b(\\w+)\\(([^;]*);"),
        text("const char\\*\\s+(\\w+)");
    const std::sregex_iterator end;
    for (const auto& file : std::filesystem::recursive_directory_iterator(VELTO_INCLUDE_DIR)) {
        if (file.path().extension() != ".h") continue;
        std::ifstream in(file.path());
        const std::string header(std::istreambuf_iterator<char>(in), {});
        for (std::sregex_iterator at(header.begin(), header.end(), function); at != end; ++at) {
            const std::string parameters = (*at)[2];
            for (std::sregex_iterator of(parameters.begin(), parameters.end(), text); of != end; ++of)
                names[(*at)[1]].push_back((*of)[1]);
        }
    }
    return names;
}

TEST(Heads, TakeNoLineEnd) {
    Faults faults;
    const std::set<Place> got = refused(faults);
    EXPECT_EQ(faults.text(), "");

    std::map<std::string, std::set<std::string>> texts; // what is refused, of each encoder
    auto names = namesOfTexts();
    for (const Place& place : got)
        texts[place.encoder->name].insert(
            names[place.encoder->name].at(static_cast<std::size_t>(place.text)));
    using Texts = std::set<std::string>;
    EXPECT_EQ(texts["HttpReqEncode"], (Texts{"path", "host", "connection"}));
    EXPECT_EQ(texts["HttpRespEncode"], (Texts{"connection"}));
    EXPECT_EQ(texts["GetRespEncode"], (Texts{"connection"}));
    EXPECT_EQ(texts["GetDataReqEncode"], (Texts{"host", "contentType"}));
    EXPECT_EQ(texts["GetUploadPictureDataEncode"], (Texts{"host", "contentType"}));
    for (const char* checked : {"HttpReqEncode", "HttpRespEncode", "GetRespEncode", "GetDataReqEncode",
                                "GetUploadPictureDataEncode"})
        texts.erase(checked);

    // All other requests have a host, and no answer has a text in its head.
    const std::set<std::string> requestsByOtherNames = {"GetDeviceEncode", "GetStorageEncode",
                                                        "GetScheduleEncode", "GetArchiveEncode"};
    for (const ListedEncoder& encoder : listedEncoders) {
        const std::string name = encoder.name;
        const bool request = name.find("ReqEncode") != std::string::npos &&
                             name != "GetNotificationContentReqEncode"; // an answer by another name
        if (name == "HttpReqEncode" || name == "GetDataReqEncode") continue;
        const bool host = request || requestsByOtherNames.count(name);
        EXPECT_EQ(texts[name], host ? Texts{"host"} : Texts()) << name;
    }
    EXPECT_EQ(got.size(), 53u + 6);
}

TEST(Heads, AreRefusedWithoutALine) {
    Faults faults;
    const std::set<Place> places = refused(faults);
    Captured captured;
    for (const Place& place : places)
        for (const std::string& text : lineEnds) wrote(place, text);
    EXPECT_EQ(captured.text(), "");
    EXPECT_GE(places.size(), 50u);
}

} // namespace
