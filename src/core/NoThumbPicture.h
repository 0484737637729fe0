#pragma once
// The picture that stands in for a file whose thumbnail cannot be had.
#include "core/Picture.h"

namespace lumivex {

// 160 x 120, light cyan (192, 255, 255), with "No Thumbnail" in black from x 45 on the
// baseline row 60. Null only when memory runs out.
Picture MakeNoThumbPicture();

}  // namespace lumivex
