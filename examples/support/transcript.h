// Shows messages to people: head lines and XML, indented and wrapped, without passwords and tokens. Video,
// pictures and compressed blocks are counted.
#ifndef EXAMPLES_TRANSCRIPT_H
#define EXAMPLES_TRANSCRIPT_H

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace example {

// Text from the network with control characters made visible, since a terminal might obey them.
inline std::string printable(std::string_view text) {
    std::string shown(text);
    for (char& c : shown)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
    return shown;
}

// "1 chunk", "2 chunks".
inline std::string counted(std::size_t number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

// Replaces what stands between each `before` and the next `behind`.
inline std::string masked(std::string_view line, std::string_view before, char behind) {
    std::string shown;
    for (;;) {
        const std::size_t found = line.find(before);
        if (found == std::string_view::npos) return shown.append(line);
        shown += line.substr(0, found + before.size());
        line.remove_prefix(found + before.size());
        const std::size_t secret = std::min(line.find(behind), line.size());
        if (secret > 0) shown += "********";
        line.remove_prefix(secret);
    }
}

// A line of a message without its secrets: credentials, tokens, the devices' passwords.
inline std::string withoutSecrets(std::string_view line) {
    std::string name(line.substr(0, line.find(':')));
    std::transform(name.begin(), name.end(), name.begin(), [](unsigned char c) { return std::tolower(c); });
    if (name == "authorization") return std::string(line.substr(0, line.rfind(' '))) + " ********";
    std::string shown = masked(line, "<Token>", '<');
    for (const char quote : {'"', '\''})
        for (const std::string attribute : {" Token=", " Password="})
            shown = masked(shown, attribute + quote, quote);
    return shown;
}

// Where a line can be broken: the last blank within `width` that stands outside of quotes, if there is one.
inline std::size_t lastBreak(std::string_view line, std::size_t width) {
    std::size_t last = std::string_view::npos;
    char quote = '\0';
    for (std::size_t i = 0; i < line.size() && i <= width; ++i) {
        if (line[i] == quote)
            quote = '\0';
        else if (quote == '\0' && (line[i] == '"' || line[i] == '\''))
            quote = line[i];
        else if (quote == '\0' && line[i] == ' ')
            last = i;
    }
    return last;
}

class Transcript {
  public:
    // `prefix` stands before every line. Long bodies are shortened unless `full` is wanted.
    Transcript(std::ostream& out, std::string prefix, bool full)
        : out_(out), prefix_(std::move(prefix)), longestBody_(full ? std::string::npos : 24) {}

    void sent(std::string_view message, std::size_t chunks) {
        line("--> " + counted(message.size(), "byte") + " in " + counted(chunks, "chunk"));
        show(message);
    }

    // Several messages that went out as one row of bytes, cut without regard to where one ends.
    void sent(const std::vector<std::string>& messages, std::size_t chunks) {
        if (messages.size() == 1) return sent(messages.front(), chunks);
        std::size_t bytes = 0;
        for (const std::string& message : messages) bytes += message.size();
        line("--> " + counted(messages.size(), "message") + ", " + counted(bytes, "byte") + " in " +
             counted(chunks, "chunk"));
        for (const std::string& message : messages) show(message);
    }

    void received(std::string_view message) {
        line("<-- " + counted(message.size(), "byte"));
        show(message);
    }

    void line(std::string_view text) { out_ << prefix_ << text << std::endl; }

  private:
    // The head and the XML behind it; of other bytes it only says how many there are.
    static std::size_t textLength(std::string_view message) {
        constexpr std::string_view end = "</servercommandservice>\n";
        const std::size_t body = message.find("\r\n\r\n");
        if (body == std::string_view::npos) return message.size();
        const std::size_t found = message.find(end, body);
        if (found != std::string_view::npos) return found + end.size();
        const bool xml = message.size() > body + 4 && message[body + 4] == '<';
        return xml ? message.size() : body + 4;
    }

    void show(std::string_view message) {
        const std::size_t others = message.size() - textLength(message);
        message.remove_suffix(others);
        std::size_t bodyLines = 0;
        std::size_t hidden = 0;
        bool inBody = false;
        while (!message.empty()) {
            const std::size_t length = std::min(message.find('\n'), message.size());
            std::string_view text = message.substr(0, length);
            message.remove_prefix(std::min(length + 1, message.size()));
            if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
            if (inBody && ++bodyLines > longestBody_)
                ++hidden;
            else
                wrap(printable(withoutSecrets(text)));
            if (text.empty()) inBody = true;
        }
        if (hidden > 0) line("    | ... and " + counted(hidden, "line") + " more");
        if (others > 0) line("    | ... and " + counted(others, "byte") + " that are no text");
    }

    // Breaks a line at blanks, since a device's element is several hundred characters long.
    void wrap(std::string_view text) {
        constexpr std::size_t width = 108;
        constexpr std::size_t longest = 4096;
        const bool cut = text.size() > longest;
        if (cut) text = text.substr(0, longest);
        const std::string indent(std::min(text.find_first_not_of(' '), text.size()) % width, ' ');
        std::string start = "    | ";
        while (text.size() > width) {
            const std::size_t blank = lastBreak(text, width);
            if (blank == std::string_view::npos || blank <= indent.size()) break;
            line(start + std::string(text.substr(0, blank)));
            text.remove_prefix(blank + 1);
            start = "    |     " + indent;
        }
        line(start + std::string(text) + (cut ? " ..." : ""));
    }

    std::ostream& out_;
    std::string prefix_;
    std::size_t longestBody_;
};

} // namespace example

#endif
