// In-process cost of reading one camera file's tags, with the file in the page cache.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "RealisticCamera.h"
#include "exif/ExifReader.h"

namespace {

namespace fs = std::filesystem;

fs::path MakeFile(fixtures::ByteOrder order) {
    const fs::path file = fs::temp_directory_path() /
                          ("lumivex-bench-" + std::to_string(::getpid()) +
                           (order == fixtures::ByteOrder::Little ? "-le.jpg" : "-be.jpg"));
    fixtures::WriteRealisticCamera(file, 7, 3'000'000, order);
    return file;
}

void BM_GetExif(benchmark::State& state) {
    const auto order = state.range(0) == 0 ? fixtures::ByteOrder::Little : fixtures::ByteOrder::Big;
    const fs::path file = MakeFile(order);
    lumivex::ExifReader x;
    x.fitem = file;
    for (auto _ : state) {
        x.GetExif();
        benchmark::DoNotOptimize(x.ret);
    }
    if (!x.ret) state.SkipWithError("the fixture did not load");
    state.counters["keys"] = static_cast<double>(x.IFD0.Size() + x.IFDe.Size() + x.IFDg.Size());
    state.SetItemsProcessed(state.iterations());
    fs::remove(file);
}
BENCHMARK(BM_GetExif)->Arg(0)->Arg(1)->ArgNames({"bigEndian"});

void BM_GetInfo(benchmark::State& state) {
    const fs::path file = MakeFile(fixtures::ByteOrder::Little);
    lumivex::ExifReader x;
    x.fitem = file;
    x.GetExif();
    std::string s1, s2, s3, s4, s5, s6;
    for (auto _ : state) {
        x.GetInfo(s1, s2, s3, s4, s5, s6);
        benchmark::DoNotOptimize(s6.data());
    }
    state.SetItemsProcessed(state.iterations());
    fs::remove(file);
}
BENCHMARK(BM_GetInfo);

}  // namespace

BENCHMARK_MAIN();
