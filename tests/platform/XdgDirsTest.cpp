// The Desktop folder of the XDG user-dirs file.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/XdgDirs.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

TEST(XdgDirsTest, ParsesTheDesktopLine) {
    const fs::path home = "/home/ann";
    const struct {
        const char* text;
        std::optional<fs::path> dir;
    } cases[] = {
        {"XDG_DESKTOP_DIR=\"$HOME/Desktop\"\n", fs::path("/home/ann/Desktop")},
        {"# comment\n  XDG_DESKTOP_DIR=\"$HOME/デスクトップ\"  \r\n",
         fs::path("/home/ann/デスクトップ")},
        {"XDG_DESKTOP_DIR=\"/data/desk/\"", fs::path("/data/desk")},
        {"XDG_DESKTOP_DIR=\"$HOME/My \\\"Desk\\\"\"", fs::path("/home/ann/My \"Desk\"")},
        {"XDG_DESKTOP_DIR=\"$HOME/a\"\nXDG_DESKTOP_DIR=\"$HOME/b\"", fs::path("/home/ann/b")},
        {"XDG_DESKTOP_DIR=\"$HOME/\"", fs::path()},  // switched off
        {"XDG_DESKTOP_DIR=\"$HOME\"", fs::path()},
        {"XDG_DESKTOP_DIR=\"relative/Desk\"", std::nullopt},
        {"XDG_DESKTOP_DIR=$HOME/Desktop", std::nullopt},  // not quoted
        {"XDG_DESKTOP_DIRX=\"$HOME/x\"", std::nullopt},
        {"XDG_DOWNLOAD_DIR=\"$HOME/Downloads\"", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(XdgDirs::ParseUserDir(c.text, "XDG_DESKTOP_DIR", home), c.dir) << c.text;
}

// Points HOME and XDG_CONFIG_HOME at a scratch folder for one case, and puts them back.
class DesktopDirTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("lumivex-xdg-" + std::to_string(::getpid()));
        fs::remove_all(dir_);
        fs::create_directories(dir_ / "config");
        Save("HOME", oldHome_);
        Save("XDG_CONFIG_HOME", oldConfig_);
        ::setenv("HOME", dir_.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (dir_ / "config").c_str(), 1);
    }
    void TearDown() override {
        Restore("HOME", oldHome_);
        Restore("XDG_CONFIG_HOME", oldConfig_);
        fs::remove_all(dir_);
    }
    void UserDirs(const std::string& text) const {
        std::ofstream(dir_ / "config" / "user-dirs.dirs") << text;
    }

    fs::path dir_;

  private:
    static void Save(const char* name, std::optional<std::string>& out) {
        if (const char* v = ::getenv(name)) out = v;
    }
    static void Restore(const char* name, const std::optional<std::string>& value) {
        if (value)
            ::setenv(name, value->c_str(), 1);
        else
            ::unsetenv(name);
    }
    std::optional<std::string> oldHome_, oldConfig_;
};

TEST_F(DesktopDirTest, UsesTheFileThenTheDefaultAndOnlyWhatExists) {
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // nothing exists yet
    fs::create_directory(dir_ / "Desktop");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir_ / "Desktop");
    UserDirs("XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // named but missing: no default
    fs::create_directory(dir_ / "Schreibtisch");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir_ / "Schreibtisch");
    UserDirs("XDG_DESKTOP_DIR=\"$HOME/\"\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // switched off
    UserDirs("XDG_DESKTOP_DIR=broken\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir_ / "Desktop");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(XdgDirs::ConfigHome(), dir_ / ".config");
}

}  // namespace
}  // namespace lumivex
