// Calls in processes of their own, for the memory that they take in all.
#pragma once

#include "support/muted.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace cost {

constexpr long gibibyte = 1L << 30;

// What a call does in a process of its own, and the most memory that this had.
struct Outcome {
    std::string what;
    long resident;
};
inline Outcome alone(const std::function<const char*()>& call) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const Muted quiet;
        const char* what = "nothing";
        try {
            what = call();
        } catch (const std::bad_alloc&) {
            what = "std::bad_alloc";
        }
        const ssize_t written = write(ends[1], what, std::strlen(what));
        _exit(written > 0 ? 0 : 1);
    }
    close(ends[1]);
    char what[64] = {};
    const ssize_t got = read(ends[0], what, sizeof what - 1);
    close(ends[0]);
    int status = 0;
    rusage usage = {};
    wait4(child, &status, 0, &usage);
    return {got > 0 && status == 0 ? what : "died", usage.ru_maxrss * 1024};
}

} // namespace cost
