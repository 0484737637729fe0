// The Desktop folder of the XDG user-dirs file.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "ScratchDir.h"
#include "platform/XdgDirs.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

TEST(XdgDirsTest, ParsesTheDesktopLine) {
    const struct {
        const char* text;
        std::optional<fs::path> dir;
    } cases[] = {
        // clang-format off
        {"# comment\n  XDG_DESKTOP_DIR=\"$HOME/デスクトップ\"  \r\n", fs::path("/home/ann/デスクトップ")},
        {"XDG_DESKTOP_DIR=\"/data/desk/\"", fs::path("/data/desk")},
        {"XDG_DESKTOP_DIR=\"$HOME/My \\\"Desk\\\"\"", fs::path("/home/ann/My \"Desk\"")},
        {"XDG_DESKTOP_DIR=\"$HOME/\"", fs::path()}, {"XDG_DESKTOP_DIR=\"$HOME\"", fs::path()},  // off
        {"XDG_DESKTOP_DIR=\"relative/Desk\"", std::nullopt},
        {"XDG_DESKTOP_DIR=$HOME/Desktop", std::nullopt},  // not quoted
        {"XDG_DESKTOP_DIRX=\"$HOME/x\"", std::nullopt},
        // clang-format on
    };
    for (const auto& c : cases)
        EXPECT_EQ(XdgDirs::ParseUserDir(c.text, "XDG_DESKTOP_DIR", "/home/ann"), c.dir) << c.text;
}

// Sets an environment variable for one test and puts the old value back.
struct EnvVar {
    EnvVar(const char* n, const std::string& value) : name(n) {
        if (const char* v = ::getenv(n)) saved = v;
        ::setenv(n, value.c_str(), 1);
    }
    ~EnvVar() { saved ? ::setenv(name, saved->c_str(), 1) : ::unsetenv(name); }
    const char* name;
    std::optional<std::string> saved;
};

TEST(XdgDirsTest, DesktopDirUsesTheFileThenTheDefaultAndOnlyWhatExists) {
    fixtures::ScratchDir scratch("lvx-xdg");
    const fs::path& dir = scratch.path();
    fs::create_directories(dir / "config");
    EnvVar home("HOME", dir), config("XDG_CONFIG_HOME", dir / "config");
    auto userDirs = [&](const char* text) { std::ofstream(dir / "config/user-dirs.dirs") << text; };

    fs::create_directory(dir / "Desktop");
    userDirs("XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // named but missing: no default
    fs::create_directory(dir / "Schreibtisch");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir / "Schreibtisch");
    userDirs("XDG_DESKTOP_DIR=\"$HOME/\"\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // switched off
    userDirs("XDG_DESKTOP_DIR=broken\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir / "Desktop");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(XdgDirs::ConfigHome(), dir / ".config");
}

}  // namespace
}  // namespace lumivex
