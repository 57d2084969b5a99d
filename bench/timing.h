// How everything is timed.
#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace bench {

// A benchmark of `call`, whose result is not thrown away. `bytes` is the length of the message.
template <class Call>
void timed(const std::string& name, std::size_t bytes, Call call) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(call());
            benchmark::ClobberMemory();
        }
        state.counters["bytes"] = static_cast<double>(bytes);
    });
}

// Room to write to, shared by the variants of a benchmark.
using Buffer = std::shared_ptr<std::string>;
inline Buffer buffer(std::size_t size) { return std::make_shared<std::string>(size, '\1'); }

void registerEncoding();
void registerDecoding();
void registerReading();
void registerFraming();
void registerRecordList();
void registerSizes();

} // namespace bench
