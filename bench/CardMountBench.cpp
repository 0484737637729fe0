// From a card going in to its thumbnails on screen, measured in one process on the offscreen
// platform: a tmpfs holding DCIM/100BENCH with N camera files is bind-mounted under /media/
// while the window runs; the clock runs from the mount call until the card's folder is
// selected, read and painted. Five rounds, the card pulled between them. Needs root.
// Usage: lumivex_card_bench [N]   (default 1000)
#include <sys/mount.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "BenchWindow.h"
#include "RealisticCamera.h"
#include "browser/MainWindow.h"
#include "browser/ThumbnailCanvas.h"
#include "core/HeapTuning.h"
#include "sidebar/SidebarView.h"

namespace {

namespace fs = std::filesystem;

// The card's files, on a tmpfs of their own at `stage`.
bool MakeCard(const fs::path& stage, int n) {
    fs::create_directories(stage);
    if (::mount("lumivex-bench", stage.c_str(), "tmpfs", 0, "size=1g") != 0) return false;
    const fs::path folder = stage / "DCIM" / "100BENCH";
    fs::create_directories(folder);
    for (int i = 1; i <= n; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "IMG_%04d.JPG", i);
        fixtures::WriteRealisticCamera(folder / name, i, 200000, fixtures::ByteOrder::Little);
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    lumivex::TuneHeapForScans();  // as the program does
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (::geteuid() != 0) {
        std::fprintf(stderr, "lumivex_card_bench: mounting the card needs root\n");
        return 2;
    }
    const int n = argc > 1 ? std::max(1, std::atoi(argv[1])) : 1000;
    const fs::path home =
        fs::temp_directory_path() / ("lvx-card-bench-" + std::to_string(getpid()));
    const fs::path stage = home / "stage";
    const fs::path point = "/media/LVX_BENCH_" + std::to_string(getpid());
    fs::create_directories(home / "Desktop");
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
    if (!MakeCard(stage, n)) {
        std::fprintf(stderr, "lumivex_card_bench: this system does not allow mounts\n");
        return 2;
    }

    bench::BenchWindow window;
    if (!window.Show()) return 1;
    lumivex::MainWindow& w = window.Window();
    const std::string folder = (point / "DCIM" / "100BENCH").string();
    lumivex::SidebarView* outline = w.Outline();

    std::vector<double> times;
    fs::create_directories(point);
    for (int round = 0; round < 5; ++round) {
        QElapsedTimer t;
        t.start();
        if (::mount(stage.c_str(), point.c_str(), nullptr, MS_BIND, nullptr) != 0) return 1;
        const bool shown = QTest::qWaitFor(
            [&] {
                return outline->PathOfRow(outline->selectedRow) == folder && !w.ScanRunning() &&
                       static_cast<int>(w.Items().size()) == n;
            },
            60000);
        w.Canvas()->repaint();
        times.push_back(static_cast<double>(t.nsecsElapsed()) / 1e6);
        ::umount2(point.c_str(), MNT_DETACH);
        if (!shown) {
            std::fprintf(stderr, "round %d: the card's thumbnails did not appear\n", round);
            return 1;
        }
        if (!QTest::qWaitFor([&] { return w.Items().empty(); }, 10000)) {
            std::fprintf(stderr, "round %d: the grid kept a pulled card's thumbnails\n", round);
            return 1;
        }
    }
    ::umount2(stage.c_str(), MNT_DETACH);
    std::error_code ec;
    fs::remove(point, ec);
    fs::remove_all(home, ec);

    std::printf("card with %d files, mount to painted grid, ms:", n);
    for (double ms : times)
        std::printf(" %.1f", ms);
    std::sort(times.begin(), times.end());
    std::printf("\nmedian %.1f ms (%.0f files/s)\n", times[2], n / times[2] * 1000);
    return 0;
}
