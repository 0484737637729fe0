#include "scan/ExportTargets.h"

#include <gtest/gtest.h>

#include <fstream>

#include "ScratchDir.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

void Touch(const fs::path& p) {
    std::ofstream(p) << "x";
}

TEST(ExportTargets, TargetNames) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"IMG_0001.JPG", "IMG_0001.jpg"}, {"A.TIF", "A.jpg"}, {"a.b.jpeg", "a.b.jpg"},
        {"NOEXT", "NOEXT.jpg"},           {".JPG", ""},       {"", ""},
    };
    for (const auto& [fname, target] : cases)
        EXPECT_EQ(ExportTargets::TargetName(fname), target) << fname;
    EXPECT_EQ(ExportTargets::FoldersOf({"/c/d/A.JPG", "/c/d/B.JPG", "/c/e/C.JPG", "/c/d/D.JPG"}),
              (std::vector<fs::path>{"/c/d", "/c/e"}));
}

// The source folder's pictures are never targets, whatever path leads to the folder; other
// files there, and same-named files elsewhere, may be replaced.
TEST(ExportTargets, ProtectsOnlyTheSourceFoldersPictures) {
    fixtures::ScratchDir dir;
    const fs::path card = dir.path() / "card";
    const fs::path other = dir.path() / "other";
    fs::create_directories(card);
    fs::create_directories(other);
    fs::create_directory_symlink(card, dir.path() / "link");
    for (const char* name : {"A.jpg", "B.TIF", "notes.txt"})
        Touch(card / name);
    Touch(other / "A.jpg");
    const ExportTargets targets({card});
    const std::vector<std::pair<fs::path, bool>> cases{
        {card / "A.jpg", true},  {card / "B.TIF", true},      {dir.path() / "link/A.jpg", true},
        {card / "C.jpg", false}, {card / "notes.txt", false}, {other / "A.jpg", false},
    };
    for (const auto& [target, protects] : cases)
        EXPECT_EQ(targets.Protects(target), protects) << target;
}

}  // namespace
}  // namespace lumivex
