#include "model/ToolbarItems.h"

#include <algorithm>
#include <set>

namespace lumivex {

const std::vector<ToolbarItemRow>& ToolbarItems::Table() {
    static const std::vector<ToolbarItemRow> table = {
        {601, "My Export Toolbar Item", "書き出し", "指定されたファイルを指定の形式で書き出します",
         "document-send"},
        {602, "My Export All Board Toolbar Item", "全書き出し",
         "全てのファイルを非圧縮jpeg形式で書き出します", "document-save-all"},
        {603, "My Rotate L Toolbar Item", "左回転", "サムネイルを左に90°回転します",
         "object-rotate-left"},
        {604, "My Rotate R Toolbar Item", "右回転", "サムネイルを右に90°回転します",
         "object-rotate-right"},
        {605, "My Exif Toolbar Item", "Exif情報", "Exif情報ダイアログを表示します",
         "dialog-information"},
        {606, "My Google Earth Toolbar Item", "Google Earth",
         "ExifにGPS情報が含まれていればGoogle Earthを起動して場所を表示します",
         "action-unavailable"},
        {609, "My Pref Toolbar Item", "環境設定", "環境設定を行います", "preferences-system"},
        {610, "My ListReload Toolbar Item", "リスト再取得", "フォルダーリストを再取得します",
         "view-refresh"},
    };
    return table;
}

const ToolbarItemRow* ToolbarItems::FindTag(int tag) {
    for (const ToolbarItemRow& entry : Table())
        if (entry.tag == tag) return &entry;
    return nullptr;
}

const ToolbarItemRow* ToolbarItems::FindIdentifier(const std::string& identifier) {
    for (const ToolbarItemRow& entry : Table())
        if (identifier == entry.identifier) return &entry;
    return nullptr;
}

bool ToolbarItems::IsSpace(const std::string& identifier) {
    return identifier == kSpace || identifier == kFlexibleSpace;
}

bool ToolbarItems::IsKnown(const std::string& identifier) {
    return IsSpace(identifier) || FindIdentifier(identifier) != nullptr;
}

std::vector<std::string> ToolbarItems::DefaultItemIdentifiers() {
    auto id = [](int tag) { return std::string(FindTag(tag)->identifier); };
    return {id(601), id(602), kSpace,  id(603),        id(604), kSpace,
            id(605), kSpace,  id(606), kFlexibleSpace, id(609)};
}

std::vector<std::string> ToolbarItems::AllowedItemIdentifiers() {
    std::vector<std::string> allowed;
    // 610 stands before 609 here, unlike the tag order.
    for (int tag : {601, 602, 603, 604, 605, 606, 610, 609})
        allowed.emplace_back(FindTag(tag)->identifier);
    allowed.emplace_back(kSpace);
    allowed.emplace_back(kFlexibleSpace);
    return allowed;
}

std::vector<std::string> ToolbarItems::CleanSavedList(
    const std::optional<std::vector<std::string>>& saved) {
    if (!saved) return DefaultItemIdentifiers();
    std::vector<std::string> clean;
    std::set<std::string> seen;
    for (const std::string& identifier : *saved) {
        if (!IsKnown(identifier)) continue;
        if (!IsSpace(identifier) && !seen.insert(identifier).second) continue;
        clean.push_back(identifier);
    }
    // Spaces alone are what is left of a damaged list, not a choice anybody makes.
    const bool anyCommand =
        std::any_of(clean.begin(), clean.end(), [](const std::string& id) { return !IsSpace(id); });
    if (!saved->empty() && !anyCommand) return DefaultItemIdentifiers();
    return clean;
}

int ToolbarItems::ButtonTagFor(int menuTag) {
    if ((menuTag >= 101 && menuTag <= 103) || (menuTag >= 901 && menuTag <= 903)) return kExport;
    return menuTag;
}

}  // namespace lumivex
