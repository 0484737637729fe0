// Which file counts as Google Earth, which route it takes, and the order of the search.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "ScratchDir.h"
#include "platform/GoogleEarthLocator.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

// Files relative to `s`; a name ending in '*' becomes an executable program with
// googleearth-bin beside it, as its package installs it. "a->b" makes a link a to b.
void Make(const fs::path& s, const std::string& entry) {
    if (const auto arrow = entry.find("->"); arrow != std::string::npos)
        return fs::create_symlink(s / entry.substr(arrow + 2), s / entry.substr(0, arrow));
    const bool program = entry.back() == '*';
    const fs::path file = s / (program ? entry.substr(0, entry.size() - 1) : entry);
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "#!/bin/sh\n";
    ::chmod(file.c_str(), program ? 0755 : 0644);
    if (program) std::ofstream(file.parent_path() / "googleearth-bin");
}

TEST(GoogleEarthLocator, SearchAndKind) {
    const struct {
        const char* name;
        std::vector<std::string> files;
        const char *stored, *old, *found;  // under the scratch folder unless absolute; "" for none
        int kind;
    } cases[] = {
        // clang-format off
        {"Pro under the root", {"root/pro/google-earth-pro*", "root/free/google-earth*"}, "", "", "root/pro/google-earth-pro", 2},
        {"Pro on PATH through a link", {"o/google-earth-pro*", "bin/google-earth-pro->o/google-earth-pro"}, "", "", "bin/google-earth-pro", 2},
        {"free edition's command linked to Pro", {"o/google-earth*", "bin/google-earth->o/google-earth"}, "", "", "bin/google-earth", 2},
        {"the stored path first", {"root/pro/google-earth-pro*", "root/free/google-earth*"}, "root/free/google-earth", "", "root/free/google-earth", 1},
        {"then the earlier path form", {"root/pro/google-earth-pro*", "o/ge*"}, "gone", "o/ge", "o/ge", 2},
        {"a stored folder is none", {"root/free/google-earth*", "root/free/sub/x"}, "root/free/sub", "", "root/free/google-earth", 1},
        {"no googleearth-bin beside it", {}, "/bin/sh", "", "", 0},
        {"not executable", {"bin/google-earth", "bin/googleearth-bin"}, "bin/google-earth", "", "", 0},
        {"nothing", {}, "", "", "", 0},
        // clang-format on
    };
    for (const auto& c : cases) {
        fixtures::ScratchDir dir;
        const fs::path s = dir.path();
        fs::create_directories(s / "bin");
        for (const auto& f : c.files)
            Make(s, f);
        const auto at = [&](const char* p) { return *p ? (s / p).string() : std::string(); };
        // A relative PATH entry is the working folder, never searched.
        const GoogleEarthLocator locator(s / "root", "bin:" + (s / "bin").string() + ":");
        const fs::path cwd = fs::current_path();
        fs::current_path(s);
        const fs::path found = locator.Find(at(c.stored), at(c.old));
        fs::current_path(cwd);
        EXPECT_EQ(found, at(c.found)) << c.name;
        EXPECT_EQ(locator.GetGoogleEarthChk(found), c.kind) << c.name;
    }
}

}  // namespace
}  // namespace lumivex
