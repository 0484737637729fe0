#include "core/HeapTuning.h"

#include <malloc.h>

namespace lumivex {

void TuneHeapForScans() {
    mallopt(M_TRIM_THRESHOLD, 64 * 1024 * 1024);
    mallopt(M_TOP_PAD, 16 * 1024 * 1024);
}

}  // namespace lumivex
