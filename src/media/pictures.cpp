// Downloading and uploading pictures.
#include "framing/message.h"
#include "media/record_fields.h"
#include "veltoprotocol/emap.h"

#include <tinyxml.h>

namespace veltoprotocol {
namespace {

using Map = __tagVtEMapInfo;

constexpr auto mapPictureFields = attributes("PictureParam", field("guid", &Map::MapInfoGuid),
                                             field("PictureUrl", &Map::CustomizeImagePath));

constexpr std::size_t guidLength = 36; // a GUID in its text form, without a terminator

// Two words of the caller's, the picture's GUID, the image; the words as they lie in memory.
int assemblePicture(const Head& head, int param1, int param2, const char* guid, const char* data, int len,
                    char* out, int size) {
    const Text image = payload(data, len);
    if (!guid || image.absent()) return -1;
    const int words[] = {param1, param2};
    const Text prefix{reinterpret_cast<const char*>(words), sizeof words};
    return assemble(head, {prefix, {guid, guidLength}, image}, out, size);
}

} // namespace

int GetDownloadPictureReqEncode(const char* host, const char* token, unsigned int seqnum,
                                const RecordElement* items, int count, char* out, int size) {
    if (count < 1 || !items) return -1;
    const auto tree = [&](auto x) {
        x.list("PictureItem", entries(items, count), [](auto item, auto& record) {
            item.value("ChannelGuid", record.ChannelGuid);
            item.element("PictureParam", pictureParamFields(record));
        });
    };
    return Request("DownloadPicture", seqnum, Token{token})
        .counter(count)
        .post(commandPath, host, tree, out, size);
}

int GetDownloadEMapPictureReqEncode(const char* host, const char* token, unsigned int seqnum, const Map* maps,
                                    int count, char* out, int size) {
    if (count < 1 || !maps) return -1;
    const auto tree = [&](auto x) {
        x.list("PictureItem", entries(maps, count),
               [](auto item, auto& map) { item.element("PictureParam", mapPictureFields(map)); });
    };
    return Request("DownloadEMapPicture", seqnum, Token{token})
        .counter(count)
        .post(commandPath, host, tree, out, size);
}

int GetDownloadPictureDataEncode(int param1, int param2, const char* guid, const char* data, int len,
                                 char* out, int size) {
    const Head head = Head::response(keepAlive).withContentType("image/jpg");
    return assemblePicture(head, param1, param2, guid, data, len, out, size);
}

int GetDownloadEMapPictureDataEncode(int param1, int param2, const char* guid, const char* data, int len,
                                     char* out, int size) {
    const Head head = Head::response(keepAlive).withContentType("image/map");
    return assemblePicture(head, param1, param2, guid, data, len, out, size);
}

int GetUploadPictureDataEncode(const char* host, int param1, int param2, const char* guid,
                               const char* contentType, const char* data, int len, char* out, int size) {
    // kept: the charset stands behind any content type, an image's too
    const Head head = Head::request(commandPath, host, keepAlive).withUploadedType(contentType);
    return assemblePicture(head, param1, param2, guid, data, len, out, size);
}

RecordElement GetPictureParamDecode(TiXmlElement* pictureItem, int* error) {
    report(error, pictureItem ? 0 : -1);
    RecordElement record = RecordElement();
    if (!pictureItem) return record;
    GetStringValue(pictureItem, "PictureItem", "ChannelGuid", record.ChannelGuid, sizeof record.ChannelGuid);
    if (TiXmlElement* const param = pictureItem->FirstChildElement("PictureParam"))
        readFields(param, pictureParamFields, record);
    return record;
}

} // namespace veltoprotocol
