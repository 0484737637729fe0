#include "core/NoThumbPicture.h"

#include "core/BitmapFont.h"

namespace lumivex {

Picture MakeNoThumbPicture() {
    constexpr int kWidth = 160;
    constexpr int kHeight = 120;
    constexpr Color kGround{192, 255, 255};
    constexpr Color kInk{0, 0, 0};
    Picture pic = Picture::Make(kWidth, kHeight);
    if (pic.IsNull()) return pic;
    pic.Fill(kGround);
    BitmapFont::DrawText(pic, 45, 60, "No Thumbnail", kInk);
    return pic;
}

}  // namespace lumivex
