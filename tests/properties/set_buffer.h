// The arguments of an encoder, made without knowing it, get the buffer that it is to write to.
#pragma once

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

// The size follows the buffer.
template <class... Arguments>
void setBuffer(std::tuple<Arguments...>& arguments, char* out, int size) {
    bool next = false;
    const auto set = [&](auto& argument) {
        using Argument = std::remove_reference_t<decltype(argument)>;
        if constexpr (std::is_same_v<Argument, int>)
            if (next) argument = size;
        next = std::is_same_v<Argument, char*>;
        if constexpr (std::is_same_v<Argument, char*>) argument = out;
    };
    std::apply([&](auto&... each) { (set(each), ...); }, arguments);
}
