// Icon lookup: the icon of a file drawn into a shortcut's box, looked up through the desktop's icon
// theme and MIME database the first time (uncached) and from the kept icons after (cached), for files
// of 50 types at 16 and 32 pixels. Runs on the offscreen platform.

#include "platform/qt/FileIcons.h"

#include <QDir>
#include <QFile>
#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

std::vector<QString>& Files() {
    static QTemporaryDir dir;
    static std::vector<QString> files;
    if (files.empty()) {
        static const char* const kinds[] = {"txt", "pdf", "odt", "ods", "html", "png", "jpg", "mp3", "ogg", "zip",
                                            "tar", "gz",  "c",   "cpp", "h",    "py",  "sh",  "md",  "json", "xml",
                                            "csv", "doc", "xls", "ppt", "svg",  "gif", "bmp", "ico", "desktop", "iso",
                                            "deb", "rpm", "mkv", "mp4", "avi",  "wav", "flac", "js", "css",  "java",
                                            "rs",  "go",  "rb",  "pl",  "tex",  "epub", "ttf", "otf", "log", "conf"};
        for (const char* kind : kinds) {
            const QString path = QDir(dir.path()).filePath(QStringLiteral("sample.") + QLatin1String(kind));
            QFile f(path);
            if (f.open(QIODevice::WriteOnly)) f.write("x");
            files.push_back(path);
        }
    }
    return files;
}

void BM_IconLookupUncached(benchmark::State& state) {
    const auto& files = Files();
    for (auto _ : state) {
        pd::ClearFileIconCache();
        for (const QString& f : files) {
            benchmark::DoNotOptimize(pd::FileIconPixmap(f, 16));
            benchmark::DoNotOptimize(pd::FileIconPixmap(f, 32));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(files.size()) * 2);
}
BENCHMARK(BM_IconLookupUncached)->Unit(benchmark::kMillisecond);

void BM_IconLookupCached(benchmark::State& state) {
    const auto& files = Files();
    for (const QString& f : files) pd::FileIconPixmap(f, 16), pd::FileIconPixmap(f, 32);
    for (auto _ : state) {
        for (const QString& f : files) {
            benchmark::DoNotOptimize(pd::FileIconPixmap(f, 16));
            benchmark::DoNotOptimize(pd::FileIconPixmap(f, 32));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(files.size()) * 2);
}
BENCHMARK(BM_IconLookupCached)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The file icon provider of the widgets asks the application style for its fallback icons.
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
