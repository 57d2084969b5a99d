// Every inspector of HTTP against the plain transcription of the rules.
#pragma once

#include "framing/inspecting.h"
#include "framing/inspection_rules.h"

#include <gtest/gtest.h>

// What the inspectors say of a buffer, and what they must say. Returns the lines that must be printed.
inline std::string expectInspectedByTheRules(const char* buf, int len) {
    using namespace veltoprotocol;
    EXPECT_EQ(CheckHttp(buf, len), rules::checkHttp(buf, len));
    EXPECT_EQ(GetHttpLength(buf, len), rules::httpLength(buf, len));
    EXPECT_EQ(GetContentLen(buf, len), rules::contentLen(buf, len));
    EXPECT_EQ(GetHttpPacketLength(buf, len), rules::packetLength(buf, len));
    EXPECT_EQ(GetContentType(buf, len), rules::contentType(buf, len));
    EXPECT_EQ(GetAuthorization(buf, len), rules::authorization(buf, len));
    EXPECT_EQ(GetAuthorizationDecode(buf, len), rules::authorizationDecode(buf, len));
    std::string value;
    const bool found = rules::firstValue(buf, len, value);
    EXPECT_EQ(GetHttpFirstValue(buf, len), value);
    EXPECT_EQ(GetUri(buf, len), value);
    EXPECT_EQ(GetHttpStatus(buf, len), rules::httpStatus(buf, len));
    return found ? "" : noUriThrice;
}
