// Export of every item as quality-100 JPEG, on the worker, measured in one process on the
// offscreen platform: files per second from the command to the end report, and how long the
// main thread went without turning its event loop (a 2 ms heartbeat) or without moving the
// progress bar while the export ran.
// Usage: lumivex_export_bench [N] [target-parent]   (default 2000 and /dev/shm; the camera
// folder is kept in build/.../bench-export-N so later runs find it in the page cache).
#include <QApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "BenchWindow.h"
#include "browser/ExportController.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ScanWorker.h"
#include "core/HeapTuning.h"
#include "exif/ExifReader.h"

namespace {

namespace fs = std::filesystem;

// The items as a scan leaves them, read here untimed.
std::vector<lumivex::ItemRecord> Items(const fs::path& card) {
    std::vector<fs::path> files;
    for (const auto& e : fs::directory_iterator(card))
        files.push_back(e.path());
    std::sort(files.begin(), files.end());
    std::vector<lumivex::ItemRecord> items;
    lumivex::ExifReader reader;
    reader.ReadAllTags = false;
    reader.Orientation = true;
    for (const auto& f : files) {
        reader.fitem = f;
        reader.GetThumbNail();
        if (!reader.ret) continue;
        lumivex::ItemRecord item;
        item.fname = f.filename().string();
        item.path = f.string();
        item.thumb = reader.Stored;
        item.rotate = reader.Rotate;
        item.w = reader.Thumbnail.Width();
        item.h = reader.Thumbnail.Height();
        items.push_back(std::move(item));
    }
    return items;
}

// Answers the folder dialog with the target; anything else is a fault.
class FolderPrompter : public bench::NoPrompter {
  public:
    explicit FolderPrompter(QString folder) : folder_(std::move(folder)) {}
    std::optional<QString> ChooseFolder(QWidget*, const QString&) override { return folder_; }

  private:
    QString folder_;
};

// The longest time between two events of one kind while the export runs.
class GapMeter {
  public:
    void Start() {
        clock_.start();
        last_ = 0;
    }
    void Tick() {
        const qint64 now = clock_.nsecsElapsed();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }
    double LongestMs() const { return static_cast<double>(longest_) / 1e6; }

  private:
    QElapsedTimer clock_;
    qint64 last_ = 0;
    qint64 longest_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    lumivex::TuneHeapForScans();
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    const int n = argc > 1 ? std::max(1, std::atoi(argv[1])) : 2000;
    const fs::path parent = argc > 2 ? fs::path(argv[2]) : fs::path("/dev/shm");
    const std::vector<lumivex::ItemRecord> items = Items(bench::CameraFolder("bench-export", n));
    std::string pattern = (parent / "lumivex-export-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) return 1;
    const fs::path target = pattern;

    lumivex::Settings prefs;
    prefs.InitAll();
    FolderPrompter prompter(QString::fromStdString(target.string()));
    lumivex::ScanWorker worker;
    lumivex::ScanProgressStrip strip;
    strip.resize(300, 20);
    strip.show();
    lumivex::ExportController ctl(prefs, prompter, worker, strip, items, &strip);
    // The window has shown its strip for the scan before; its first paint (fonts and all) is
    // not the export's.
    strip.ShowJob(QStringLiteral("読み込み中..."), 0);
    strip.repaint();
    strip.HideJob();

    GapMeter loop, progress;
    QTimer heartbeat;
    heartbeat.setInterval(2);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] { loop.Tick(); });
    QObject::connect(strip.ProgressBar1, &QProgressBar::valueChanged, [&] { progress.Tick(); });
    QSignalSpy done(&ctl, &lumivex::ExportController::exportFinished);
    QElapsedTimer t;
    QTimer::singleShot(0, [&] {
        loop.Start();
        progress.Start();
        heartbeat.start();
        t.start();
        if (!ctl.ExportThumbNailAll()) QCoreApplication::exit(1);
    });
    if (!done.wait(300000)) return 1;
    const double seconds = static_cast<double>(t.nsecsElapsed()) / 1e9;
    heartbeat.stop();
    const auto written = static_cast<std::size_t>(
        std::distance(fs::directory_iterator(target), fs::directory_iterator{}));
    std::printf("export-all of %zu items (%zu files written) to %s: %.3f s, %.0f files/s\n",
                items.size(), written, parent.c_str(), seconds,
                static_cast<double>(written) / seconds);
    std::printf("main thread: longest pause %.1f ms; progress bar: longest time unmoved %.1f ms\n",
                loop.LongestMs(), progress.LongestMs());
    std::error_code ec;
    fs::remove_all(target, ec);
    return written == items.size() ? 0 : 1;
}
