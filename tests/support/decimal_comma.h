// A process whose numbers have a decimal comma and dots between thousands, as in many countries, while it
// lives: what a peer reads and writes must not change with it.
#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <locale>
#include <string>

#include <unistd.h>

class DecimalComma {
  public:
    DecimalComma() : before_(std::locale::global(std::locale(std::locale(), new Comma))) {
        if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) useOneOfOurOwn();
    }
    DecimalComma(const DecimalComma&) = delete;
    DecimalComma& operator=(const DecimalComma&) = delete;
    ~DecimalComma() {
        std::setlocale(LC_NUMERIC, "C");
        std::locale::global(before_);
        unsetenv("LOCPATH");
        if (!directory_.empty()) std::filesystem::remove_all(directory_);
    }

    // False where the C library has no such locale and cannot be given one; then a test proves nothing.
    explicit operator bool() const { return *std::localeconv()->decimal_point == ','; }

  private:
    // The same for what the C++ library formats; it needs no locale of the system.
    struct Comma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    void useOneOfOurOwn() {
        std::string directory = (std::filesystem::temp_directory_path() / "decimal_comma_XXXXXX").string();
        if (!mkdtemp(&directory[0])) return;
        directory_ = directory;
        std::ofstream(directory + "/source") << "LC_NUMERIC\n"
                                                "decimal_point \",\"\n"
                                                "thousands_sep \".\"\n"
                                                "grouping 3;3\n"
                                                "END LC_NUMERIC\n";
        // It complains of the categories that are not there; what counts is whether the locale can be used.
        const std::string command = "localedef -c -i " + directory + "/source " + directory + "/comma";
        if (std::system((command + " >/dev/null 2>&1").c_str()) < 0) return;
        setenv("LOCPATH", directory.c_str(), 1);
        std::setlocale(LC_NUMERIC, "comma");
    }

    std::locale before_;
    std::string directory_;
};
