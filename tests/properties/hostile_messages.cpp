#include "properties/hostile_messages.h"

#include "properties/every_encoder.h"
#include "support/captured.h"
#include "support/read_back.h"
#include "views/layouts.h"

#include <algorithm>
#include <map>
#include <set>

using namespace veltoprotocol;

namespace {

constexpr std::size_t notLong = 2000;

// Two entries at every level.
std::string layout() {
    using namespace layouts;
    const auto two = [](const char* name, const char* wrapper, const std::string& inner) {
        return counter(name, "2") + wrapped(wrapper, inner) + wrapped(wrapper, inner);
    };
    const std::string carousels = two("CarouselsCounter", "Carousels", carousel("k"));
    const std::string items = two("ViewitemsCounter", "Viewitems", item("i", "5", info("f", carousels)));
    return two("GroupsCounter", "Groups", group("g", two("ViewsCounter", "Views", view("v", items))));
}

std::string withChildren(const std::string& name, const std::vector<std::string>& children,
                         const char* text = "7") {
    std::string xml = "<" + name + ">";
    for (const std::string& child : children) xml += "<" + child + ">" + text + "</" + child + ">";
    return xml + "</" + name + ">";
}

std::string alarm(const char* text) {
    return withChildren("AlarmData",
                        {"AlarmGuid", "AlarmNo", "ChannelGuid", "DeviceGuid", "NodeID", "AlarmFlag",
                         "AlarmType", "AlarmLevel", "AlarmSubTypeCode", "AlarmState", "BeginTime", "EndTime",
                         "AlarmContent", "AlarmSource", "ConfirmMessage", "Confirmer", "ConfirmTime"},
                        text);
}

// The kinds of events, of which an encoder writes one at a time.
std::string events() {
    const std::vector<std::string> message = {"DeviceGuid", "ChannelGuid", "MessageType"};
    return layouts::answer(
        withChildren("RecordingStatus", {"StatusGuid", "ChannelGuid", "DeviceGuid", "RecordType",
                                         "OccurredTime", "MessageDesc", "ErrorCode", "Status"}) +
        withChildren("OnlineStatus", message) + withChildren("ChannelDisabled", message) +
        withChildren("ChannelDeleted", message));
}

// With the picture's values where its decoder looks for them.
std::string playback() {
    const std::string record =
        R"(<RecordParam><Index>1</Index><RecordInfo guid="r" StartTime="1" EndTime="2")"
        R"( RecordType="3" RecordMode="4" RecordSize="5" RecordName="n" PictureUrl="u")"
        R"( PictureSize="6" /><PictureInfo /></RecordParam>)";
    return layouts::request(R"(<PlaybackParam StartTime="1" EndTime="2" PlaybackMode="3" RecordType="4")"
                            R"( Speed="5" /><RecordCounter>2</RecordCounter>)" +
                            record + record);
}

std::string maps() {
    const std::string map =
        withChildren("EMapInfo", {"MapInfoGuid", "ParentMapGuid", "MapType", "GisCenterCityName", "GisPosX",
                                  "GisPosY", "GisZoom", "CustomizeImagePath", "CustomizeImageSize",
                                  "CustomizeImageType", "MapName", "Status", "LastTime"});
    const std::string item =
        withChildren("EMapItem", {"MapItemGuid", "MapInfoGuid", "ItemContentGuid", "ItemType", "DisplayName",
                                  "Discription", "PosX", "PosY", "Status"});
    return "<UserGuid>u</UserGuid><EMapInfos count=\"2\">" + map + map +
           "</EMapInfos><EMapItems count=\"2\">" + item + item + "</EMapItems>";
}

// What no encoder writes as its decoder wants it, or only in long messages.
std::vector<std::string> fromOtherPeers() {
    return {
        events(),
        layouts::request(maps()),
        layouts::answer(maps()),
        playback(),
        layouts::decoders[0].message(layout()),
        layouts::decoders[1].message(layout()),
        layouts::request(R"(<Channels count="2"><ChannelGuid>c-1</ChannelGuid><ChannelGuid>c-2)"
                         R"(</ChannelGuid></Channels><SearchParam BeginTime="1" EndTime="2" AlarmFlag="3")"
                         R"( AlarmType="4" AlarmLevel="5" BeginIndex="6" EndIndex="7" />)"),
        layouts::answer(R"(0<AlarmInfos SearchCount="9" CurCount="2">)" + alarm("1") + alarm("2") +
                        "</AlarmInfos>"),
        R"(<Viewitems><Viewitem id="i" displayname="d" type="5" /><Iteminfo cameraid="c" displayname="n" />)"
        "</Viewitems>"};
}

// One that has what everybody looks for, twice, and comments, sections and declarations between.
const char motley[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<!-- \xC3\xA4 --><servercommandservice>"
    "<seqnum>4294967295</seqnum><version>1.0.0</version><Token>&lt;t&#x41;&gt;</Token>"
    "<request name=\"N&quot;\"><DeviceGuid><![CDATA[d<]]></DeviceGuid><ChannelGuid>\xE2\x82\xAC</ChannelGuid>"
    "<StreamType>-3</StreamType><PlaybackGuid> p  g </PlaybackGuid></request><!-- - -->"
    "<response name='R'><Result>0x10</Result><Token>\xF0\x9F\x98\x80</Token></response>"
    "</servercommandservice>";

bool better(const std::string& one, const std::string& other) {
    const bool fits = one.size() <= notLong, otherFits = other.size() <= notLong;
    return fits != otherFits ? fits : fits == (one.size() > other.size());
}

// The text of an element alone.
std::string printed(const TiXmlElement& element) {
    TiXmlPrinter printer;
    printer.SetStreamPrinting();
    element.Accept(&printer);
    return printer.Str();
}

// How much each reader prints of each element; the least is best.
class BestElements {
  public:
    void look(TiXmlElement* element) {
        for (const ElementReader& reader : recordReaders) {
            int error = 7;
            const long before = std::ftell(stdout);
            reader.read(element, &error);
            if (error != 0) continue;
            const long lines = std::ftell(stdout) - before;
            const std::string xml = printed(*element);
            const auto known = found_.find(&reader);
            if (known == found_.end() || lines < known->second.lines ||
                (lines == known->second.lines && better(xml, known->second.xml)))
                found_[&reader] = {lines, xml};
        }
        for (TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement())
            look(child);
    }
    std::vector<OwnElement> silent() const {
        std::vector<OwnElement> own;
        for (const auto& [reader, best] : found_)
            if (best.lines == 0) own.push_back({reader, best.xml});
        return own;
    }

  private:
    struct Best {
        long lines;
        std::string xml;
    };
    std::map<const ElementReader*, Best> found_;
};

WholeMessage whole(const std::string& name, const std::string& bytes) {
    const std::size_t blank = bytes.find("\r\n\r\n");
    return {name, bytes, blank == std::string::npos ? bytes : bytes.substr(blank + 4)};
}

bool isDocument(const WholeMessage& message) { return message.body.compare(0, 5, "<?xml") == 0; }

// The encoder, the status of a response, whether its result is 0, and which tags there are, each of them once
// or more often.
std::string shapeOf(const WholeMessage& message) {
    const std::string xml = message.body.substr(0, message.body.rfind("</servercommandservice>"));
    std::map<std::string, int> times;
    for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
        int& known = times[xml.substr(at, xml.find_first_of(" />", at + 1) - at)];
        known = std::min(known + 1, 2);
    }
    std::string shape = message.name;
    if (message.bytes.compare(0, 5, "HTTP/") == 0) shape += message.bytes.substr(8, 4);
    if (xml.find("<Result>0<") != std::string::npos) shape += ", well";
    for (const auto& [tag, count] : times) shape += tag + std::to_string(count);
    return shape;
}

} // namespace

const std::vector<WholeMessage>& wholeMessages() {
    static const std::vector<WholeMessage> messages = [] {
        std::map<std::string, std::string> best;
        Captured quiet;
        for (unsigned seed = 0; seed < 12; ++seed)
            for (const NamedMessage& message : everyEncoder(seed, Texts::printable)) {
                std::string& known = best[message.name];
                if (known.empty() || better(message.bytes, known)) known = message.bytes;
            }
        quiet.text();
        std::vector<WholeMessage> messages;
        for (const auto& [name, bytes] : best) messages.push_back(whole(name, bytes));
        return messages;
    }();
    return messages;
}

const std::vector<WholeMessage>& otherShapes() {
    static const std::vector<WholeMessage> messages = [] {
        std::set<std::string> known;
        for (const WholeMessage& message : wholeMessages()) known.insert(shapeOf(message));
        std::map<std::string, WholeMessage> shortest;
        Captured quiet;
        for (unsigned seed = 0; seed < 24; ++seed)
            for (const NamedMessage& named : everyEncoder(seed, Texts::printable)) {
                const WholeMessage message = whole(named.name, named.bytes);
                if (!isDocument(message) || message.bytes.size() > 2 * notLong) continue;
                const std::string shape = shapeOf(message);
                if (known.count(shape) > 0) continue;
                WholeMessage& kept = shortest.try_emplace(shape, message).first->second;
                if (message.bytes.size() < kept.bytes.size()) kept = message;
            }
        quiet.text();
        std::vector<WholeMessage> messages;
        for (const auto& [shape, message] : shortest) messages.push_back(message);
        return messages;
    }();
    return messages;
}

const std::vector<std::string>& wholeDocuments() {
    static const std::vector<std::string> documents = [] {
        std::vector<std::string> documents = fromOtherPeers();
        documents.push_back(motley);
        for (const WholeMessage& message : wholeMessages())
            if (isDocument(message)) documents.push_back(message.body);
        return documents;
    }();
    return documents;
}

const std::vector<OwnElement>& ownElements() {
    static const std::vector<OwnElement> own = [] {
        BestElements best;
        Captured quiet;
        for (const std::string& xml : wholeDocuments()) {
            const Document doc(Decode(xml.c_str()));
            if (doc && doc->RootElement()) best.look(doc->RootElement());
        }
        quiet.text();
        return best.silent();
    }();
    return own;
}

std::vector<std::size_t> Places::oneOf(std::size_t step, std::size_t length) {
    std::vector<std::size_t> places;
    for (std::size_t at = random_() % step; at < length; at += step) places.push_back(at);
    return places;
}

std::vector<std::size_t> Places::of(std::size_t length, std::size_t dense) {
    std::vector<std::size_t> places = oneOf(oneOutOf, std::min(length, dense));
    if (length > dense)
        for (const std::size_t at : oneOf(16 * oneOutOf, length - dense)) places.push_back(dense + at);
    return places;
}
