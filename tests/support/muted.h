// Standard output goes nowhere while it lives, for tests whose inputs make the library print millions of
// lines. As with Captured, nothing may be asserted meanwhile.
#pragma once

#include <cstdio>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

class Muted {
  public:
    Muted() : saved_(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        if (saved_ < 0 || nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0)
            throw std::runtime_error("cannot silence standard output");
        close(nowhere);
    }
    Muted(const Muted&) = delete;
    Muted& operator=(const Muted&) = delete;
    ~Muted() {
        std::fflush(stdout);
        dup2(saved_, STDOUT_FILENO);
        close(saved_);
    }

  private:
    int saved_;
};
