#pragma once
// What every benchmark program shares: its main (a Qt application of the kind it needs, on the
// offscreen platform unless one is chosen, then Google Benchmark), and the peak memory of the
// process for the benchmarks that report it.

#include <functional>

namespace est::bench {

enum class App { Core, Gui, Widgets };

// Set-up before the benchmarks and tidying after them, both outside any timing. A false
// return of `prepare` ends the program with status 1 before any benchmark runs.
struct Hooks
{
    std::function<bool()> prepare;
    std::function<void()> finish;
};

// Runs the program's benchmarks inside a Qt application of that kind; returns the exit status.
int runBenchmarks(int argc, char **argv, App app, const Hooks &hooks = {});

// The peak resident memory of the process so far, in kilobytes.
long peakKb();

} // namespace est::bench
