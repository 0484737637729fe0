#pragma once
// Exact quarter and half turns of a Picture by moving pixels: no resampling, so four quarter
// turns give back the very same picture.
#include "core/Picture.h"

namespace lumivex {

// turn 1: a quarter turn clockwise (the top-left pixel ends top-right), 2: a half turn
// (top-left ends bottom-right), 3: a quarter turn counter-clockwise (top-left ends
// bottom-left). Any other value, a null picture, or no memory for the result: `pic` unchanged.
Picture gRotateImage(const Picture& pic, int turn);

}  // namespace lumivex
