// The command element of a request, and the GUIDs that stand in it.
#ifndef EXAMPLES_REQUEST_H
#define EXAMPLES_REQUEST_H

#include "support/received_message.h"
#include "support/text_fields.h"

#include <LibVeltoProtocol.h>
#include <tinyxml.h>

#include <string>

namespace example {

// There is one: the command's name was read from it.
inline TiXmlElement* requestOf(const ReceivedMessage& message) {
    return message.document()->FirstChildElement("servercommandservice")->FirstChildElement("request");
}

// The text of a child of the request; empty if there is none.
inline std::string guidIn(const ReceivedMessage& message, const char* child) {
    char guid[48] = {};
    veltoprotocol::GetStringValue(requestOf(message), "request", child, guid, sizeof guid);
    return text(guid);
}

} // namespace example

#endif
