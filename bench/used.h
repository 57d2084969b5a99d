// What a call uses of the machine, and what it prints.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <time.h>
#include <unistd.h>

namespace bench {

inline double now() {
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

// The most that the process had resident since forgetPeak(), as Linux tells it.
inline void forgetPeak() { std::ofstream("/proc/self/clear_refs") << "5" << std::flush; }
inline double megabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, 6, "VmHWM:") == 0) return std::stod(line.substr(6)) * 1024 / 1e6;
    std::abort();
}

// Standard output in a file while it lives.
class Printed {
  public:
    Printed() : saved_(dup(STDOUT_FILENO)), file_(std::tmpfile()) {
        std::fflush(stdout);
        if (saved_ < 0 || !file_ || dup2(fileno(file_), STDOUT_FILENO) < 0) std::abort();
    }
    Printed(const Printed&) = delete;
    Printed& operator=(const Printed&) = delete;
    ~Printed() { std::fclose(file_); }

    // Standard output is itself again afterwards.
    void end(std::string& first, long& lines) {
        std::fflush(stdout);
        dup2(saved_, STDOUT_FILENO);
        close(saved_);
        std::rewind(file_);
        for (int c; (c = std::fgetc(file_)) != EOF;) {
            if (c == '\n')
                ++lines;
            else if (lines == 0)
                first.push_back(static_cast<char>(c));
        }
    }

  private:
    int saved_;
    std::FILE* file_;
};

} // namespace bench
