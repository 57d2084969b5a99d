// What the requests that configure recording have in common: they are posted to the manager and carry no
// token.
#pragma once

#include "admin/messages.h"

#include <string>

// The XML of request 7. `attributes` stands behind the word "request", `inside` is what the request holds.
inline std::string requestXml(const std::string& attributes, const std::string& inside) {
    return enveloped("    <request" + attributes + ">\n" + inside + "    </request>\n");
}

inline std::string requestWire(const std::string& attributes, const std::string& inside) {
    return wire(manageHead + requestXml(attributes, inside));
}
