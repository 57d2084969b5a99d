// fuzz_seeds FOLDER: writes a first corpus to FOLDER/TARGET/, a message of each encoder or what calls it.
// They are inputs only: nothing is expected of them but what holds for any input. What lies in fuzz/corpus/
// came of these, of a long run and of its merge into few files.
#include "framing/random_documents.h"
#include "properties/every_encoder.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

void write(const std::filesystem::path& folder, const std::string& name, const std::string& bytes) {
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

// The targets of documents take some bytes in front of the text.
void writeMessage(const std::filesystem::path& folder, const std::string& name, const std::string& bytes) {
    write(folder / "http_inspectors", name, '\0' + bytes);
    const std::size_t blank = bytes.find("\r\n\r\n");
    if (blank == std::string::npos) return;
    const std::string body = bytes.substr(blank + 4);
    write(folder / "document", name, '\0' + body);
    write(folder / "document", name + ".spelt", '\1' + body); // whatever steps these are
    write(folder / "document_limits", name, std::string(3, '\0') + body);
    write(folder / "decoders", name, std::string(1, name.back()) + body);
    if (name.back() == '1') write(folder / "decoders", name + ".all", '\xFF' + body);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: fuzz_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::freopen("/dev/null", "w", stdout); // some encoders print their XML
    for (const unsigned seed : {1u, 2u, 3u})
        for (const NamedMessage& message : veltoprotocol::everyEncoder(seed, Texts::printable))
            if (message.returned > 0)
                writeMessage(folder, message.name + std::to_string(seed), message.bytes);

    limits::RandomDocuments random(1);
    for (int i = 0; i < 200; ++i)
        writeMessage(folder, "random" + std::to_string(i),
                     "\r\n\r\n" + random.prologue() + random.element(4));

    for (char room = 0; room < 7; ++room)
        for (char pick = 0; pick < 8; ++pick)
            write(folder / "encoders", std::to_string(room) + '.' + std::to_string(pick),
                  std::string{room, pick, 1} + "any bytes");
    for (char trip = 0; trip < 32; ++trip)
        write(folder / "round_trip", std::to_string(trip), std::string{trip} + "any bytes");
    for (char kind = 0; kind < 4; ++kind)
        for (char counter = 0; counter < 4; ++counter)
            write(folder / "record_block", std::to_string(kind) + '.' + std::to_string(counter),
                  std::string{kind, 0} + std::string(48, 'g') + std::string("\1\0\0\0", 4) +
                      std::string{counter, 0, 0, 0} + std::string(200, 'r'));
    for (const char* text : {"YWRtaW46c2VjcmV0", "YQ==YWI=YWJj", "YWJ", "Y*Jj", "\xFF\xFE\xFD"})
        write(folder / "base64", std::to_string(std::strlen(text)) + text[1], '\0' + std::string(text));
    return 0;
}
