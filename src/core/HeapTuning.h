#pragma once
// How the C allocator should behave in a program that reads folders of thumbnails.

namespace lumivex {

// A scan allocates and frees a decode buffer for every file and, in the window, keeps every
// thumbnail. With the allocator's defaults, memory freed at the top of the heap goes back to
// the kernel at once and the heap grows a page run at a time, so the same pages are faulted in
// again and again: this cost a scan as much time as decoding. Keeping up to 64 MiB of freed
// memory and growing the heap 16 MiB at a time is nothing to a desktop program. Called once,
// at the start of main, before any thread exists.
void TuneHeapForScans();

}  // namespace lumivex
