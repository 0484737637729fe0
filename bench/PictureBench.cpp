// Decoding an embedded thumbnail and turning it: the two picture steps a folder scan pays for
// every file.
#include <benchmark/benchmark.h>

#include "JpegCache.h"
#include "core/JpegCodec.h"
#include "core/RotateImage.h"

namespace {

void BM_DecodeThumbnail(benchmark::State& state) {
    const auto jpeg = fixtures::JpegCache::Thumbnail(160, 120, 90, 0);
    for (auto _ : state) {
        lumivex::Picture pic = lumivex::JpegCodec::Decode(*jpeg);
        benchmark::DoNotOptimize(pic);
    }
    if (lumivex::JpegCodec::Decode(*jpeg).IsNull())
        state.SkipWithError("the fixture did not decode");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DecodeThumbnail);

void BM_Rotate160x120(benchmark::State& state) {
    lumivex::Picture pic = lumivex::Picture::Make(160, 120);
    pic.SetPixel(0, 0, lumivex::Color{255, 0, 0});
    const int turn = static_cast<int>(state.range(0));
    for (auto _ : state) {
        lumivex::Picture out = lumivex::gRotateImage(pic, turn);
        benchmark::DoNotOptimize(out);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_Rotate160x120)->Arg(1)->Arg(2)->Arg(3)->ArgNames({"turn"});

}  // namespace
