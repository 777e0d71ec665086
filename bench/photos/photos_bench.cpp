// Photos: reading 20 camera photos of 12 megapixels into an estimate (target: under 3 s),
// a 100-megapixel photo read scaled (its peak memory, reported as a counter: the process's
// peak resident size, so that benchmark runs first), and saving and opening an estimate with
// 20 stored photos (target: under 150 ms each).

#include "bench_main.h"
#include "photos/photo_album.h"
#include "sample_estimate.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "workbook/estimate_files.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace est;

namespace {

// A photo-like picture: a gradient with fine noise, which JPEG cannot squeeze away.
QImage photoLike(int width, int height, quint32 seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const int n = int(random.bounded(24));
            line[x] = qRgb((x * 255 / width + n) & 0xFF, (y * 255 / height + n) & 0xFF, (128 + n) & 0xFF);
        }
    }
    return image;
}

const QTemporaryDir &photoFolder()
{
    static QTemporaryDir dir;
    return dir;
}

// Twenty 4000 x 3000 JPEG files, made once.
const QStringList &cameraPhotos()
{
    static const QStringList paths = [] {
        QStringList made;
        const QImage image = photoLike(4000, 3000, 7);
        for (int i = 0; i < 20; ++i) {
            const QString path = QDir(photoFolder().path()).filePath(QStringLiteral("IMG_%1.jpg").arg(i));
            image.save(path, "JPEG", 92);
            made.append(path);
        }
        return made;
    }();
    return paths;
}

// Made in a child process, so that making it does not count in this process's peak.
QString hundredMegapixelPhoto()
{
    const QString path = QDir(photoFolder().path()).filePath(QStringLiteral("large.jpg"));
    const pid_t child = fork();
    if (child == 0) {
        QImage image(11547, 8660, QImage::Format_Grayscale8);
        image.fill(90);
        for (int y = 0; y < image.height(); y += 7)
            std::fill_n(image.scanLine(y), image.width(), uchar(200));
        _exit(image.save(path, "JPEG", 85) ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return path;
}

void BM_AddHundredMegapixelPhoto(benchmark::State &state)
{
    const QString path = hundredMegapixelPhoto();
    const long before = est::bench::peakKb();
    for (auto _ : state) {
        QList<EstimatePhoto> photos;
        photos::addPhotos(photos, {path});
        if (photos.size() != 1)
            state.SkipWithError("the photo was not read");
    }
    state.counters["peakMB"] = double(est::bench::peakKb()) / 1024;
    state.counters["peakBeforeMB"] = double(before) / 1024;
}
BENCHMARK(BM_AddHundredMegapixelPhoto)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_AddTwentyPhotos(benchmark::State &state)
{
    const QStringList &paths = cameraPhotos();
    for (auto _ : state) {
        QList<EstimatePhoto> photos;
        int steps = 0;
        photos::addPhotos(photos, paths, [&steps](int, int) { ++steps; });
        benchmark::DoNotOptimize(steps);
        if (photos.size() != 20)
            state.SkipWithError("photos were not read");
    }
}
BENCHMARK(BM_AddTwentyPhotos)->Unit(benchmark::kMillisecond)->Iterations(3);

Session estimateWithPhotos()
{
    Session s = test::fullEstimate();
    QList<EstimatePhoto> photos;
    photos::addPhotos(photos, cameraPhotos());
    s.photos = photos;
    s.fileName = QStringLiteral("240105写真.xlsx");
    s.editExisting = true;
    return s;
}

void BM_SaveEstimateWithTwentyPhotos(benchmark::State &state)
{
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    Session s = estimateWithPhotos();
    qint64 bytes = 0;
    for (const EstimatePhoto &p : s.photos)
        bytes += p.image.size();
    for (auto _ : state)
        if (!workbook::saveEstimateWorkbook(s, messages, folder.path()))
            state.SkipWithError("not saved");
    state.counters["photoKB"] = double(bytes) / 1024 / 20;
    state.counters["workbookMB"] = double(QFileInfo(s.workbookPath).size()) / 1024 / 1024;
}
BENCHMARK(BM_SaveEstimateWithTwentyPhotos)->Unit(benchmark::kMillisecond);

void BM_OpenEstimateWithTwentyPhotos(benchmark::State &state)
{
    test::TempAppFolder folder;
    test::ScriptedMessages messages;
    Session s = estimateWithPhotos();
    workbook::saveEstimateWorkbook(s, messages, folder.path());
    for (auto _ : state) {
        Session read;
        if (!workbook::openEstimateWorkbook(read, messages, folder.path(), s.fileName) || read.photos.size() != 20)
            state.SkipWithError("not opened");
    }
}
BENCHMARK(BM_OpenEstimateWithTwentyPhotos)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return est::bench::runBenchmarks(argc, argv, est::bench::App::Gui);
}
