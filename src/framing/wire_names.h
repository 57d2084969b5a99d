// Literals of the wire, laid out so that they are copied in wide steps.
#pragma once

#include <cstddef>

// Of functions and of lambdas. The words that write a message are small and called from everywhere; inlined
// into one another they keep their place in the message in a register.
#define VELTO_INLINE [[gnu::always_inline]] inline
#define VELTO_INLINED __attribute__((always_inline))
#define VELTO_LIKELY(condition) __builtin_expect((condition), true)

namespace veltoprotocol {

// Bytes whose number the compiler knows, with room behind them up to a whole step.
template <std::size_t Size>
struct Wide {
    static constexpr std::size_t step = 16;
    char bytes[(Size + step - 1) / step * step] = {};
};

template <std::size_t Size>
constexpr Wide<Size> blanks = [] {
    Wide<Size> made;
    for (char& blank : made.bytes) blank = ' ';
    return made;
}();

// What an attribute and an element's tags look like around a name.
template <std::size_t N>
struct Name {
    const char (&text)[N];
    Wide<N + 2> attribute; //  Name="
    Wide<N + 1> opening;   // <Name>
    Wide<N + 3> closing;   // </Name>, and the line's end

    constexpr explicit Name(const char (&name)[N]) : text(name) {
        attribute.bytes[0] = ' ';
        opening.bytes[0] = '<';
        closing.bytes[0] = '<';
        closing.bytes[1] = '/';
        for (std::size_t i = 0; i + 1 < N; ++i) {
            attribute.bytes[i + 1] = name[i];
            opening.bytes[i + 1] = name[i];
            closing.bytes[i + 2] = name[i];
        }
        attribute.bytes[N] = '=';
        attribute.bytes[N + 1] = '"';
        opening.bytes[N] = '>';
        closing.bytes[N + 1] = '>';
        closing.bytes[N + 2] = '\n';
    }
};

} // namespace veltoprotocol
