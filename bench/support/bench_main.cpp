#include "bench_main.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <memory>

namespace est::bench {

int runBenchmarks(int argc, char **argv, App app, const Hooks &hooks)
{
    if (app != App::Core && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::unique_ptr<QCoreApplication> application;
    if (app == App::Widgets)
        application = std::make_unique<QApplication>(argc, argv);
    else if (app == App::Gui)
        application = std::make_unique<QGuiApplication>(argc, argv);
    else
        application = std::make_unique<QCoreApplication>(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (hooks.prepare && !hooks.prepare())
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    if (hooks.finish)
        hooks.finish();
    benchmark::Shutdown();
    return 0;
}

long peakKb()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

} // namespace est::bench
