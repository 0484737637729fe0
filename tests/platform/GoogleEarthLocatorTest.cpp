// Which file counts as Google Earth, which route it takes, and the order of the search.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ScratchDir.h"
#include "platform/GoogleEarthLocator.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

void Touch(const fs::path& file, bool executable) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "#!/bin/sh\n";
    ::chmod(file.c_str(), executable ? 0755 : 0644);
}

// An edition's folder as its package installs it: the program beside googleearth-bin.
fs::path Install(const fs::path& folder, const std::string& command) {
    Touch(folder / "googleearth-bin", true);
    Touch(folder / command, true);
    return folder / command;
}

TEST(GoogleEarthLocator, SearchAndKind) {
    const struct {
        const char* name;
        std::vector<const char*> pro, free;  // editions under the root: pro/, free/
        const char* linked;  // bin/<linked> is a link to other/<linked> in a Pro-like folder
        const char* stored;  // the stored path, relative to the scratch folder
        const char* found;   // what the search gives, relative; "" for nothing
        int kind;
    } cases[] = {
        // clang-format off
        {"Pro under the root", {"pro"}, {}, nullptr, "", "root/pro/google-earth-pro", 2},
        {"Pro before the free edition", {"pro"}, {"free"}, nullptr, "", "root/pro/google-earth-pro", 2},
        {"Pro on PATH through a link", {}, {}, "google-earth-pro", "", "bin/google-earth-pro", 2},
        {"the free edition", {}, {"free"}, nullptr, "", "root/free/google-earth", 1},
        {"free edition's command linked to Pro", {}, {}, "google-earth", "", "bin/google-earth", 2},
        {"the stored path first", {"pro"}, {"free"}, nullptr, "root/free/google-earth", "root/free/google-earth", 1},
        {"a stored folder is none", {}, {"free"}, nullptr, "root/free", "root/free/google-earth", 1},
        {"a stored file without googleearth-bin", {}, {}, nullptr, "plain/google-earth-pro", "", 0},
        {"nothing", {}, {}, nullptr, "", "", 0},
        // clang-format on
    };
    for (const auto& c : cases) {
        fixtures::ScratchDir dir;
        const fs::path s = dir.path();
        if (!c.pro.empty()) Install(s / "root/pro", "google-earth-pro");
        if (!c.free.empty()) Install(s / "root/free", "google-earth");
        Touch(s / "plain/google-earth-pro", true);
        fs::create_directories(s / "bin");
        if (c.linked) fs::create_symlink(Install(s / "other", c.linked), s / "bin" / c.linked);
        const GoogleEarthLocator locator(s / "root", "relative:" + (s / "bin").string() + ":");
        const std::string stored = *c.stored ? (s / c.stored).string() : "";
        const fs::path found = locator.Find(stored, "");
        EXPECT_EQ(found, *c.found ? s / c.found : fs::path()) << c.name;
        EXPECT_EQ(locator.GetGoogleEarthChk(found), c.kind) << c.name;
    }
}

TEST(GoogleEarthLocator, StoredPathsAndPathEntries) {
    fixtures::ScratchDir dir;
    const fs::path s = dir.path();
    const fs::path pro = Install(s / "root/pro", "google-earth-pro");
    const fs::path other = Install(s / "elsewhere", "google-earth-pro");
    const GoogleEarthLocator locator(s / "root", "");
    // The earlier path form fills in when the stored path no longer names a Google Earth.
    EXPECT_EQ(locator.Find((s / "gone").string(), other.string()), other);
    EXPECT_EQ(locator.Find("", (s / "gone").string()), pro);

    Touch(s / "a/google-earth", false);  // not executable: passed over
    Install(s / "b", "google-earth");
    Install(s / "c", "google-earth");
    const GoogleEarthLocator onPath(s / "none", "a:" + (s / "a").string() + ":" +
                                                    (s / "b").string() + ":" + (s / "c").string());
    EXPECT_EQ(onPath.OnPath("google-earth"), s / "b/google-earth");
    EXPECT_EQ(onPath.OnPath("google-earth-pro"), fs::path());
    EXPECT_EQ(GoogleEarthLocator(s, "").OnPath("google-earth"), fs::path());
    EXPECT_EQ(onPath.GetGoogleEarthChk(s / "a/google-earth"), 0);
    EXPECT_EQ(onPath.GetGoogleEarthChk(""), 0);
}

}  // namespace
}  // namespace lumivex
