// From a card going in to its thumbnails on screen, measured in one process on the offscreen
// platform: the card is mounted under /media/ while the window runs (in a mount namespace of
// the benchmark's own), and the clock runs from the mount call until the card's folder is
// read and painted. It reports when the first screenful was painted, when the whole folder
// was, and the window's longest pause. Five rounds, the card pulled between them. Needs root.
// The card is a tmpfs holding DCIM/100BENCH with N camera files of 200 KB, bind-mounted; or,
// with --device, the file system on a block device (say a throttled loop device), mounted
// read-only, with the device bytes read per file; --drop-caches makes every round cold.
// Usage: lumivex_card_bench [--device DEV [--drop-caches]] [N]   (default 1000)
#include <fcntl.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "BenchWindow.h"
#include "PaintClock.h"
#include "RealisticCamera.h"
#include "browser/MainWindow.h"
#include "core/HeapTuning.h"
#include "sidebar/SidebarView.h"

namespace {

namespace fs = std::filesystem;

struct Args {
    std::string device;  // empty: a tmpfs card
    bool dropCaches = false;
    int n = 1000;
};

bool Parse(int argc, char** argv, Args& a) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--device" && i + 1 < argc) {
            a.device = argv[++i];
        } else if (arg == "--drop-caches") {
            a.dropCaches = true;
        } else if (!arg.empty() && arg[0] != '-') {
            a.n = std::max(1, std::atoi(arg.c_str()));
        } else {
            return false;
        }
    }
    return true;
}

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

bool MountCard(const Args& a, const fs::path& stage, const fs::path& point) {
    if (a.device.empty())
        return ::mount(stage.c_str(), point.c_str(), nullptr, MS_BIND, nullptr) == 0;
    for (const char* type : {"ext4", "vfat", "exfat"})
        if (::mount(a.device.c_str(), point.c_str(), type, MS_RDONLY, nullptr) == 0) return true;
    return false;
}

// Sectors read from the device so far, from its block statistics; 0 for a tmpfs card.
unsigned long long SectorsRead(const std::string& device) {
    if (device.empty()) return 0;
    std::ifstream stat("/sys/block/" + fs::path(device).filename().string() + "/stat");
    unsigned long long ios = 0, merges = 0, sectors = 0;
    stat >> ios >> merges >> sectors;
    return sectors;
}

void DropCaches(const std::string& device) {
    ::sync();
    std::ofstream("/proc/sys/vm/drop_caches") << "3\n";
    const int fd = ::open(device.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return;
    ::ioctl(fd, BLKFLSBUF, 0);
    ::close(fd);
}

struct Round {
    bench::PaintClock::Figures f;
    double bytesPerFile = 0;
};

double Median(std::vector<Round> rounds, double Round::*field) {
    std::sort(rounds.begin(), rounds.end(),
              [&](const Round& a, const Round& b) { return a.*field < b.*field; });
    return rounds[rounds.size() / 2].*field;
}

double Median(std::vector<Round> rounds, double bench::PaintClock::Figures::*field) {
    std::sort(rounds.begin(), rounds.end(),
              [&](const Round& a, const Round& b) { return a.f.*field < b.f.*field; });
    return rounds[rounds.size() / 2].f.*field;
}

void Report(const Args& a, const std::vector<Round>& rounds) {
    using F = bench::PaintClock::Figures;
    std::printf(
        "card with %d files%s%s, mount to first screen / all painted / longest pause, ms:\n", a.n,
        a.device.empty() ? " on tmpfs" : (" on " + a.device).c_str(), a.dropCaches ? ", cold" : "");
    for (const Round& r : rounds) {
        std::printf("  %.1f / %.1f / %.1f (from %.1f)", r.f.firstScreenMs, r.f.allMs,
                    r.f.longestPauseMs, r.f.pauseAtMs);
        if (!a.device.empty()) std::printf("   device bytes per file %.0f", r.bytesPerFile);
        std::printf("\n");
    }
    const double all = Median(rounds, &F::allMs);
    std::printf(
        "median: first screen %.1f ms, all painted %.1f ms (%.0f files/s), longest pause "
        "%.1f ms",
        Median(rounds, &F::firstScreenMs), all, a.n / all * 1000,
        Median(rounds, &F::longestPauseMs));
    if (!a.device.empty())
        std::printf(", device bytes per file %.0f", Median(rounds, &Round::bytesPerFile));
    std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
    // A mount namespace of our own, made while the process has one thread: other Lumivex
    // windows on this machine never see the card, so they neither react to it nor read it
    // behind the measurement's back.
    if (::unshare(CLONE_NEWNS) == 0) ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    lumivex::TuneHeapForScans();  // as the program does
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Args a;
    if (!Parse(argc, argv, a)) {
        std::fprintf(stderr, "usage: lumivex_card_bench [--device DEV [--drop-caches]] [N]\n");
        return 2;
    }
    if (::geteuid() != 0) {
        std::fprintf(stderr, "lumivex_card_bench: mounting the card needs root\n");
        return 2;
    }
    const fs::path home =
        fs::temp_directory_path() / ("lvx-card-bench-" + std::to_string(getpid()));
    const fs::path stage = home / "stage";
    const fs::path point = "/media/LVX_BENCH_" + std::to_string(getpid());
    fs::create_directories(home / "Desktop");
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home / ".config").c_str(), 1);
    if (a.device.empty() && !MakeCard(stage, a.n)) {
        std::fprintf(stderr, "lumivex_card_bench: this system does not allow mounts\n");
        return 2;
    }

    bench::BenchWindow window;
    if (!window.Show()) return 1;
    lumivex::MainWindow& w = window.Window();
    const std::string dcim = (point / "DCIM").string() + "/";
    lumivex::SidebarView* outline = w.Outline();
    bench::PaintClock clock(w, static_cast<std::size_t>(a.n));

    std::vector<Round> rounds;
    fs::create_directories(point);
    int status = 0;
    for (int round = 0; round < 5 && status == 0; ++round) {
        if (a.dropCaches) DropCaches(a.device);
        const unsigned long long sectors = SectorsRead(a.device);
        QElapsedTimer t;
        t.start();
        if (!MountCard(a, stage, point)) {
            std::fprintf(stderr, "round %d: the card could not be mounted\n", round);
            status = 1;
            break;
        }
        Round r;
        r.f = clock.Run(
            t,
            [&] {
                return outline->PathOfRow(outline->selectedRow).starts_with(dcim) &&
                       !w.ScanRunning() && static_cast<int>(w.Items().size()) == a.n;
            },
            60000);
        r.bytesPerFile = static_cast<double>(SectorsRead(a.device) - sectors) * 512 / a.n;
        ::umount2(point.c_str(), MNT_DETACH);
        if (r.f.allMs < 0) {
            std::fprintf(stderr, "round %d: the card's thumbnails did not appear\n", round);
            status = 1;
        } else if (!QTest::qWaitFor([&] { return w.Items().empty(); }, 10000)) {
            std::fprintf(stderr, "round %d: the grid kept a pulled card's thumbnails\n", round);
            status = 1;
        }
        rounds.push_back(r);
    }
    if (a.device.empty()) ::umount2(stage.c_str(), MNT_DETACH);
    std::error_code ec;
    fs::remove(point, ec);
    fs::remove_all(home, ec);
    if (status == 0) Report(a, rounds);
    return status;
}
