#include "model/PrefPages.h"

namespace lumivex {

const std::array<PrefPages::Page, PrefPages::kCount>& PrefPages::All() {
    static const std::array<Page, kCount> pages{{
        {"ToolItem1", "カラー", "環境設定カラー", 320, "preferences-desktop-color"},
        {"ToolItem2", "サムネイル", "環境設定サムネイル", 210, "image-x-generic"},
        {"ToolItem3", "カメラ", "環境設定カメラ", 170, "camera-photo"},
        {"ToolItem4", "Google Earth", "環境設定Google Earth", 360, "applications-internet"},
        {"ToolItem5", "その他", "環境設定その他", 265, "preferences-other"},
        {"ToolItem6", "エキスパート", "環境設定エキスパート", 180, "preferences-system"},
    }};
    return pages;
}

int PrefPages::GetPageNo(std::string_view name) {
    for (int i = 0; i < kCount; ++i)
        if (All()[static_cast<std::size_t>(i)].item == name) return i;
    return 0;
}

int PrefPages::Before(int page) {
    static constexpr std::array<int, kCount> before{1, 2, 1, 4, 5, 0};
    return Valid(page) ? before[static_cast<std::size_t>(page)] : 0;
}

int PrefPages::PushedButton(std::int64_t page, bool expert) {
    if (page >= 0 && page < kExpertPage) return static_cast<int>(page);
    if (page == kExpertPage && expert) return kExpertPage;
    return 0;
}

}  // namespace lumivex
