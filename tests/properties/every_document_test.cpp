// What the encoders write is read by the library's own scan, as the XML library's parser would read it.
#include "framing/usual_document.h"
#include "properties/every_encoder.h"
#include "support/captured.h"
#include "support/same_tree.h"

#include <gtest/gtest.h>

namespace {

using namespace veltoprotocol;

struct Sent {
    std::string encoder, body;
};

std::vector<Sent> bodies(unsigned seed, Texts texts) {
    std::vector<Sent> all;
    const Captured captured;
    visitEncoders(seed, texts, [&](const EncoderCall& call) {
        const bool ofTheCaller = call.name == "HttpReqEncode" || call.name == "HttpRespEncode";
        if (!call.isMessage() || !call.xmlBody || ofTheCaller) return;
        std::string bytes(1 << 18, '\0');
        const int length = call.encode(&bytes[0], static_cast<int>(bytes.size()));
        if (length < 0) return;
        bytes.resize(static_cast<std::size_t>(length));
        all.push_back({call.name, bytes.substr(bytes.find("\r\n\r\n") + 4)});
    });
    return all;
}

TEST(EveryMessage, IsTakenByTheScan) {
    for (unsigned seed = 0; seed < 20; ++seed)
        for (const auto& [encoder, body] : bodies(seed, Texts::printable))
            EXPECT_NE(usualDocument(Text(body.c_str())), nullptr) << encoder << ": " << body;
}

// Most of these are not well-formed: their texts hold any bytes.
TEST(EveryMessage, IsScannedAsTheXmlLibraryParsesIt) {
    int taken = 0;
    for (unsigned seed = 0; seed < 20; ++seed)
        for (const Texts texts : {Texts::printable, Texts::anyBytes})
            for (const auto& [encoder, body] : bodies(seed, texts)) {
                const auto scanned = usualDocument(Text(body.c_str()));
                if (!scanned) continue;
                TiXmlDocument parsed;
                parsed.Parse(body.c_str());
                ASSERT_FALSE(parsed.Error()) << encoder << ": " << body;
                ASSERT_EQ(trees::outline(*scanned), trees::outline(parsed)) << encoder << ": " << body;
                ++taken;
            }
    EXPECT_GT(taken, 2000);
}

} // namespace
