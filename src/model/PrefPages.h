#pragma once
// The pages of the preferences dialog: caption, window title, height and icon of each, and
// the rules of moving between them. The widgets only follow what this says.
#include <array>
#include <cstdint>
#include <string_view>

namespace lumivex {

class PrefPages {
  public:
    static constexpr int kCount = 6;
    static constexpr int kExpertPage = 5;
    static constexpr int kWidth = 540;
    // Room the buttons below the page take on top of the page's own height.
    static constexpr int kButtonStrip = 78;

    struct Page {
        std::string_view item;     // the toolbar item's name
        std::string_view caption;  // its caption
        std::string_view title;    // the window's title
        int height;
        std::string_view icon;  // freedesktop icon name
    };

    static const std::array<Page, kCount>& All();
    static bool Valid(std::int64_t page) { return page >= 0 && page < kCount; }
    // 0 to 5 for "ToolItem1" to "ToolItem6"; 0 for any other name.
    static int GetPageNo(std::string_view name);
    // The page shown first, without animation, before `page` itself, so that the switch to
    // `page` lays the window out anew.
    static int Before(int page);
    // The toolbar button that stands pushed while `page` shows: pages 0 to 4 their own, and
    // the first for any other (the expert page has a button only in expert mode).
    static int PushedButton(std::int64_t page, bool expert);
};

}  // namespace lumivex
