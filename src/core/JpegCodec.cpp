#include "core/JpegCodec.h"

#include <turbojpeg.h>

#include <algorithm>
#include <limits>

namespace lumivex {
namespace {

// One TurboJPEG handle, made on first use and destroyed when its thread ends.
class ThreadHandle {
  public:
    explicit ThreadHandle(tjhandle (*init)()) : init_(init) {}
    ~ThreadHandle() {
        if (handle_ != nullptr) tjDestroy(handle_);
    }
    ThreadHandle(const ThreadHandle&) = delete;
    ThreadHandle& operator=(const ThreadHandle&) = delete;

    tjhandle Get() {
        if (handle_ == nullptr) handle_ = init_();
        return handle_;
    }

    // The library does not always bring a handle back to its start after an error (a header
    // cut short leaves the next stream unreadable), so a handle that failed is not reused.
    void Discard() {
        if (handle_ != nullptr) tjDestroy(handle_);
        handle_ = nullptr;
    }

  private:
    tjhandle (*init_)();
    tjhandle handle_ = nullptr;
};

ThreadHandle& Decompressor() {
    thread_local ThreadHandle handle(tjInitDecompress);
    return handle;
}

ThreadHandle& Compressor() {
    thread_local ThreadHandle handle(tjInitCompress);
    return handle;
}

// A warning leaves a usable result (for instance data that ends early); anything else does
// not. Either way the handle is renewed before the next stream.
bool Failed(ThreadHandle& handle, int rc) {
    if (rc == 0) return false;
    const bool fatal = tjGetErrorCode(handle.Get()) != TJERR_WARNING;
    handle.Discard();
    return fatal;
}

Picture DecodeWith(ThreadHandle& codec, const unsigned char* data, unsigned long size) {
    tjhandle handle = codec.Get();
    if (handle == nullptr) return {};
    // The size stays 0 unless the header was read to its end.
    int width = 0, height = 0, subsamp = 0, colorspace = 0;
    const int header =
        tjDecompressHeader3(handle, data, size, &width, &height, &subsamp, &colorspace);
    if (Failed(codec, header)) return {};
    // Refuses sizes beyond the cap. A clean decode writes every pixel, so its buffer is not
    // zeroed first; a damaged stream can leave pixels unwritten even when the library calls it
    // a mere warning, and then the stream is decoded again into zeros, so that no stale memory
    // ever shows in a thumbnail. Anything worse drops the picture.
    Picture pic = Picture::MakeUninitialized(width, height);
    if (pic.IsNull()) return {};
    handle = codec.Get();
    int rc = tjDecompress2(handle, data, size, pic.Row(0), width, width * 3, height, TJPF_RGB, 0);
    if (rc == 0) return pic;
    if (Failed(codec, rc)) return {};
    pic = Picture::Make(width, height);
    handle = codec.Get();
    if (pic.IsNull() || handle == nullptr) return {};
    rc = tjDecompress2(handle, data, size, pic.Row(0), width, width * 3, height, TJPF_RGB, 0);
    if (Failed(codec, rc)) return {};
    return pic;
}

}  // namespace

Picture JpegCodec::Decode(std::span<const std::uint8_t> jpeg) {
    if (jpeg.empty() || jpeg.size() > std::numeric_limits<unsigned long>::max()) return {};
    return DecodeWith(Decompressor(), jpeg.data(), static_cast<unsigned long>(jpeg.size()));
}

std::vector<std::uint8_t> JpegCodec::Encode(const Picture& pic, int quality) {
    if (pic.IsNull()) return {};
    ThreadHandle& codec = Compressor();
    tjhandle handle = codec.Get();
    if (handle == nullptr) return {};
    quality = std::clamp(quality, 1, 100);
    const int subsamp = quality >= 90 ? TJSAMP_444 : TJSAMP_420;
    unsigned char* out = nullptr;
    unsigned long outSize = 0;
    const int rc = tjCompress2(handle, pic.Pixels().data(), pic.Width(), pic.Width() * 3,
                               pic.Height(), TJPF_RGB, &out, &outSize, subsamp, quality, 0);
    std::vector<std::uint8_t> bytes;
    if (rc == 0 && out != nullptr) bytes.assign(out, out + outSize);
    if (rc != 0) codec.Discard();
    tjFree(out);
    return bytes;
}

}  // namespace lumivex
