#pragma once
// Finds camera media among the sidebar's volume rows: the first volume, in list order, with a
// "DCIM" folder that holds a numbered image folder ("100CANON", "101_PANA"). No Qt.
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "model/RowRecord.h"

namespace lumivex {

class CameraSearch {
  public:
    // The paths of the rows to open and select, exactly as the sidebar's rows carry them.
    struct Found {
        std::string volume;
        std::string dcim;
        std::string folder;
    };

    // True when the first three bytes of `name` are decimal digits.
    static bool AutoSelect2(std::string_view name);
    // Volume rows only, in list order; the first match wins.
    static std::optional<Found> Find(const RowRecord::Rows& rows);
    // Within one volume: "DCIM" folders in name order, their numbered folders in name order.
    static std::optional<Found> FindOnVolume(const std::string& volume);

  private:
    // The shown subfolders of `folder` in name order, with the paths their rows carry.
    static std::vector<std::pair<std::string, std::string>> ShownFolders(
        const std::filesystem::path& folder);
};

}  // namespace lumivex
