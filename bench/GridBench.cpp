// The desktop program's grid, measured in one process on the offscreen platform:
//   selection to painted grid: SelFolder1 on a folder of N fixture pictures until the scan has
//   ended and the first paint of the pane is done;
//   one paint while scrolling: the pane repainted at scroll positions across the whole range.
// Usage: lumivex_grid_bench [N|FOLDER] [screenshot.png]   (default 5000; the folder is kept in
// build/.../bench-grid-N so later runs find it in the page cache). A folder given instead of N
// is read as it is, e.g. 50,000 files written by `lumivex-fixture realistic`.
// Peak memory (VmHWM) is printed after the scrolling, so it covers every thumbnail shown.
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "BenchWindow.h"
#include "browser/MainWindow.h"
#include "browser/ThumbnailCanvas.h"
#include "core/HeapTuning.h"

namespace {

namespace fs = std::filesystem;

double Ms(const QElapsedTimer& t) {
    return static_cast<double>(t.nsecsElapsed()) / 1e6;
}

// The process's peak resident set in MiB, from the kernel's own count; -1 when unknown.
double PeakRssMiB() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) / 1024.0;
    return -1;
}

}  // namespace

int main(int argc, char** argv) {
    lumivex::TuneHeapForScans();  // as the program does
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    const bool given = argc > 1 && fs::is_directory(argv[1]);
    const int n = given      ? static_cast<int>(std::distance(fs::directory_iterator(argv[1]),
                                                              fs::directory_iterator{}))
                  : argc > 1 ? std::max(1, std::atoi(argv[1]))
                             : 5000;
    const fs::path card = given ? fs::path(argv[1]) : bench::CameraFolder("bench-grid", n);

    bench::BenchWindow window;
    if (!window.Show()) return 1;
    lumivex::MainWindow& w = window.Window();

    // The folder is read once untimed, so that the timed run finds it in the page cache.
    QSignalSpy done(&w, &lumivex::MainWindow::scanFinished);
    w.SelFolder1(card.string());
    if (!done.wait(120000)) return 1;

    QElapsedTimer t;
    t.start();
    w.SelFolder1(card.string());
    if (!done.wait(120000)) return 1;
    w.Canvas()->repaint();
    const double select = Ms(t);

    QScrollBar* bar = w.ScrollBar();
    const int steps = 200;
    std::vector<double> paints;
    for (int i = 0; i < steps; ++i) {
        bar->setValue(static_cast<int>(static_cast<long long>(bar->maximum()) * i / steps));
        t.restart();
        w.Canvas()->repaint();
        paints.push_back(Ms(t));
    }
    std::sort(paints.begin(), paints.end());
    std::printf("items %zu of %d files, content %d px high, pane %dx%d\n", w.Items().size(), n,
                bar->maximum() + w.Canvas()->height(), w.Canvas()->width(), w.Canvas()->height());
    std::printf("selection to painted grid: %.1f ms (%.0f files/s)\n", select, n / select * 1000);
    std::printf("one paint while scrolling: median %.3f ms, 95th %.3f ms, max %.3f ms\n",
                paints[paints.size() / 2], paints[paints.size() * 95 / 100], paints.back());
    std::printf("peak resident memory: %.1f MiB\n", PeakRssMiB());
    if (argc > 2) {
        bar->setValue(0);
        w.grab().save(QString::fromLocal8Bit(argv[2]));
        std::printf("screenshot: %s\n", argv[2]);
    }
    return 0;
}
