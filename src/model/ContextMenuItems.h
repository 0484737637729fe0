#pragma once
// The texts of the thumbnail pane's contextual menu for a selection state, in menu order;
// "-" stands for a separator. Qt-free: the window turns the list into its menu.
#include <string>
#include <vector>

namespace lumivex {

namespace menutext {
inline constexpr const char* kSeparator = "-";
inline constexpr const char* kExportExif = "exif形式で書き出し...";
inline constexpr const char* kExportJpeg = "非圧縮jpegで書き出し...";
inline constexpr const char* kExportAs = "形式を指定して書き出し...";
inline constexpr const char* kRotateLeft = "左に回転";
inline constexpr const char* kRotateRight = "右に回転";
inline constexpr const char* kCopy = "クリップボードにコピー";
inline constexpr const char* kExifInfo = "Exif情報";
inline constexpr const char* kGoogleEarth = "Google Earthを起動";
}  // namespace menutext

// Empty for no selection (pCidxFlg 0): the pane then shows no menu of its own. The single-item
// entries come only for pCidxFlg 1, "Google Earthを起動" among them only when `gpsOpen` (the
// answer of SetBtnStatGPS, which reads the file: ask it only for a single selection).
std::vector<std::string> ContextMenuItems(int pCidxFlg, bool gpsOpen);

}  // namespace lumivex
