// What the tests of the HTTP inspectors have in common.
#pragma once

#include "support/captured.h"
#include "support/guarded_page.h"
#include "veltoprotocol/framing.h"

#include <string>
#include <string_view>

// Every inspector sees its bytes flush against a protected page.
template <class Result>
Result inspect(Result (*inspector)(const char*, int), std::string_view bytes) {
    const GuardedPage page(bytes);
    return inspector(page.data(), page.length());
}

// An inspector's answer together with what it printed.
template <class Result>
struct Answer {
    Result value;
    std::string printed;
};
template <class Result>
Answer<Result> heard(Result (*inspector)(const char*, int), std::string_view bytes) {
    Captured captured;
    Result value = inspect(inspector, bytes);
    return {value, captured.text()};
}

inline const std::string noUri = "not found http uri!\n";
inline const std::string noUriThrice = noUri + noUri + noUri;

// A head that announces a body of ten bytes.
inline const std::string head10 =
    "POST /servercommandservice HTTP/1.1\r\nHost: h\r\nContent-Length: 10\r\n\r\n";

inline const std::string login = "POST /servercommandservice HTTP/1.1\r\n"
                                 "Host: 10.0.0.1:8080\r\n"
                                 "Connection: keep-alive\r\n"
                                 "Authorization: Basic YWRtaW46c2VjcmV0\r\n"
                                 "Content-Type: text/xml; charset=utf-8\r\n"
                                 "Content-Length: 17\r\n"
                                 "\r\n"
                                 "<login a=\"1 2\" />";
