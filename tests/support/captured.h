// Standard output while it lives: what the library prints is part of what it promises.
#pragma once

#include <cstdio>
#include <stdexcept>
#include <string>

#include <unistd.h>

class Captured {
  public:
    Captured() {
        std::fflush(stdout);
        saved_ = dup(STDOUT_FILENO);
        file_ = std::tmpfile();
        if (saved_ < 0 || !file_ || dup2(fileno(file_), STDOUT_FILENO) < 0)
            throw std::runtime_error("cannot redirect standard output");
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;
    ~Captured() {
        restore();
        std::fclose(file_);
    }

    // What was printed so far; standard output is itself again afterwards.
    std::string text() {
        restore();
        std::string text;
        std::rewind(file_);
        for (int c; (c = std::fgetc(file_)) != EOF;) text.push_back(static_cast<char>(c));
        return text;
    }

  private:
    void restore() {
        if (saved_ < 0) return;
        std::fflush(stdout);
        dup2(saved_, STDOUT_FILENO);
        close(saved_);
        saved_ = -1;
    }

    int saved_ = -1;
    std::FILE* file_ = nullptr;
};
