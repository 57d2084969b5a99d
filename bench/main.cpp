// The benchmarks. First each way of writing a message proves that it writes the same message.
#include "same_content.h"
#include "timing.h"

#include <google/protobuf/stubs/common.h>
#include <pugixml.hpp>
#include <tinyxml.h>
#include <tinyxml2.h>
#include <zlib.h>

#include <cstdio>
#include <exception>

namespace {

std::string version(int major, int minor, int patch) {
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
}

// What the report says of the machine's software.
void describe() {
    benchmark::AddCustomContext("compiler", "g++ " __VERSION__);
    benchmark::AddCustomContext("flags", BENCH_FLAGS);
    benchmark::AddCustomContext("TinyXML",
                                version(TIXML_MAJOR_VERSION, TIXML_MINOR_VERSION, TIXML_PATCH_VERSION));
    benchmark::AddCustomContext(
        "pugixml", version(PUGIXML_VERSION / 1000, PUGIXML_VERSION / 10 % 100, PUGIXML_VERSION % 10));
    benchmark::AddCustomContext(
        "TinyXML-2", version(TINYXML2_MAJOR_VERSION, TINYXML2_MINOR_VERSION, TINYXML2_PATCH_VERSION));
    benchmark::AddCustomContext("protobuf",
                                google::protobuf::internal::VersionString(GOOGLE_PROTOBUF_VERSION));
    benchmark::AddCustomContext("zlib", zlibVersion());
}

} // namespace

int main(int count, char** arguments) try {
    bench::checkSameContent();
    describe();
    bench::registerEncoding();
    bench::registerDecoding();
    bench::registerReading();
    bench::registerFraming();
    bench::registerRecordList();
    bench::registerSizes();
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& problem) {
    std::fprintf(stderr, "%s\n", problem.what());
    return 1;
}
