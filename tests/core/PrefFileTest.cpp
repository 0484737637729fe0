#include "core/PrefFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <vector>

#include "ScratchDir.h"
#include "core/Settings.h"

namespace fs = std::filesystem;

namespace lumivex {
namespace {

constexpr std::int64_t kHighlight = 0x123456;
constexpr std::size_t kUntouched = 1;  // a reserved slot that takes any value

using fixtures::ScratchDir;

std::string Pascal(std::string_view s) {
    return static_cast<char>(s.size()) + std::string(s);
}

std::string U32(std::uint32_t v) {
    return {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
}

// A settings file with the given header; strings 17 to 19 in the old long form when asked.
std::string PrefBytes(std::string_view header, const std::vector<std::string>& ints,
                      const std::vector<std::string>& strs, bool longForm = false) {
    std::string out = Pascal(header) + U32(static_cast<std::uint32_t>(ints.size()));
    for (const std::string& v : ints)
        out += Pascal(v);
    out += U32(static_cast<std::uint32_t>(strs.size()));
    for (std::size_t i = 0; i < strs.size(); ++i) {
        const bool isLong = longForm && i >= 17 && i <= 19;
        out += isLong ? U32(static_cast<std::uint32_t>(strs[i].size())) + strs[i] : Pascal(strs[i]);
    }
    return out;
}

Settings Defaults() {
    Settings s;
    s.InitAll();
    return s;
}

// n strings "<prefix><index>".
std::vector<std::string> Strs(std::size_t n, const std::string& prefix) {
    std::vector<std::string> v(n, prefix);
    for (std::size_t i = 0; i < n; ++i)
        v[i] += std::to_string(i);
    return v;
}

TEST(PrefFile, LoadsEveryLayout) {
    using namespace pref;
    // Slots that the old layouts lack or that their migration touches.
    constexpr std::size_t kSlots[] = {kSelectionColor,   kFolderNameColor, kListBackColor,
                                      kFrameTop,         kDividerLeft,     kGoogleEarthAllowed,
                                      kGoogleEarthRange, kGoogleEarthTilt, kGoogleEarthHeading,
                                      kGoogleEarthSpeed};
    const struct {
        const char* header;
        bool longForm;  // strings 17 to 19 with a 32-bit length
        std::int64_t storedTop;
        std::array<std::int64_t, 10> expected;
    } cases[] = {
        // clang-format off
        {"pref",  true,  20,  {kHighlight, 0xFF, 0xD7DDE5, 100, 200, 1, 2000, 0, 0, 2}},
        {"pref2", true,  20,  {111, 222, 0xD7DDE5, 100, 200, 1, 2000, 0, 0, 2}},
        {"pref3", true,  150, {111, 222, 0xD7DDE5, 150, 200, 0, 7, 7, 7, 7}},
        {"PREF3", true,  20,  {111, 222, 0xD7DDE5, 100, 200, 0, 7, 7, 7, 7}},
        {"zzz",   true,  20,  {111, 222, 333, 20, 50, 0, 7, 7, 7, 7}},
        {"pref4", false, 20,  {111, 222, 333, 20, 50, 0, 7, 7, 7, 7}},
        // clang-format on
    };
    for (const auto& c : cases) {
        std::vector<std::string> ints(101, "1");
        std::vector<std::string> strs = Strs(51, "s");
        ints[kLastIndex] = "100";
        ints[kUntouched] = "1009";
        const std::int64_t stored[] = {111, 222, 333, c.storedTop, 50, 0, 7, 7, 7, 7};
        for (std::size_t k = 0; k < 10; ++k)
            ints[kSlots[k]] = std::to_string(stored[k]);
        if (c.longForm) strs[18] = std::string(300, 'x');
        ScratchDir dir;
        std::ofstream(dir.path() / "pref") << PrefBytes(c.header, ints, strs, c.longForm);
        Settings s = Defaults();
        ASSERT_EQ(PrefFile::LoadPref(s, dir.path(), kHighlight), LoadResult::Loaded);
        for (std::size_t k = 0; k < 10; ++k)
            EXPECT_EQ(s.gPref[kSlots[k]], c.expected[k]) << c.header << " slot " << kSlots[k];
        EXPECT_EQ(s.gPref[kUntouched], 1009) << c.header;
        EXPECT_EQ(std::vector(s.gPrefS.begin(), s.gPrefS.end()), strs) << c.header;
    }
}

// Every value survives a save and a load, but for strings longer than a Pascal string holds:
// those are cut at 255 bytes, or at the last whole character when they are valid UTF-8.
TEST(PrefFile, RoundTripKeepsEveryValue) {
    std::string mixed = "a";
    for (int i = 0; i < 100; ++i)
        mixed += "日";  // three bytes each
    // clang-format off
    const std::pair<std::string, std::size_t> cut[] = {{std::string(255, 'y'), 255},
        {mixed, 253}, {mixed + "\xFF", 255}};
    // clang-format on
    Settings a = Defaults();
    for (std::size_t i = 1; i < a.gPref.size(); ++i) {  // both ends of every allowed range
        const PrefTable::Int& row = PrefTable::IntRow(i);
        a.gPref[i] = i % 2 != 0 ? row.min : row.max;
    }
    std::copy_n(Strs(a.gPrefS.size(), "value ").begin(), a.gPrefS.size(), a.gPrefS.begin());
    a.gPrefS[pref::kSLastIndex] = "50";
    a.gPrefS[pref::SGroup(2)] = "";
    a.gPrefS[pref::kSGoogleEarthApp] = std::string("/opt/アプリ/\0\xFF\x80 raw", 23);
    for (std::size_t k = 0; k < std::size(cut); ++k)
        a.gPrefS[pref::SGroup(3 + k)] = cut[k].first;
    ScratchDir dir;
    const fs::path folder = dir.path() / "Lumivex初期設定";
    fs::create_directory(folder);
    std::ofstream(folder / "pref") << "old contents";
    ASSERT_TRUE(PrefFile::SavePref(a, folder));
    Settings b;
    b.InitAll(0);
    ASSERT_EQ(PrefFile::LoadPref(b, folder), LoadResult::Loaded);
    for (std::size_t k = 0; k < std::size(cut); ++k)
        a.gPrefS[pref::SGroup(3 + k)] = cut[k].first.substr(0, cut[k].second);
    EXPECT_EQ(b.gPref, a.gPref);
    EXPECT_EQ(b.gPrefS, a.gPrefS);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
}

TEST(PrefFile, DamagedFilesKeepDefaultsBeyondTheDamage) {
    const std::vector<std::string> many(300, "1");  // in range for every slot
    const std::vector<std::string> manyStrs = Strs(80, "v");
    const std::string p4 = Pascal("pref4");
    std::string oldCut = Pascal("pref3") + U32(1) + Pascal("100") + U32(51);
    for (int i = 0; i < 17; ++i)
        oldCut += Pascal("o");
    oldCut += U32(0xFFFFFFF0) + "abc";
    // A value outside what the program could have written comes back as the default, so that
    // no window or dialog meets it (the ends of each range are kept by the round trip).
    std::vector<std::string> outOfRange;
    for (const std::int64_t v : Defaults().gPref)
        outOfRange.push_back(std::to_string(v));
    for (const auto& [slot, text] : {std::pair{pref::kDividerLeft, "9e18"},
                                     {pref::kThumbBackColor, "16777216"},
                                     {pref::kSelectionColor, "-1"},
                                     {pref::GroupSwitch(9), "7"},
                                     {pref::kLastIndex, "101"}})
        outOfRange[slot] = text;
    const struct {
        const char* what;
        std::string bytes;
        std::function<void(Settings&)> expect;  // what the file changes in the defaults
    } cases[] = {
        // clang-format off
        {"header cut", "\x10pre", [](Settings&) {}},
        {"huge int count", p4 + U32(~0u) + Pascal("100") + Pascal("5") + Pascal("1"),
         [](Settings& e) { e.gPref[kUntouched] = 5, e.gPref[pref::kKeepExpert] = 1; }},
        // The cut-off rest would read as a string count and a string if reading went on.
        {"cut inside an int",
         p4 + U32(101) + Pascal("100") + Pascal("9") + std::string("\x20\0\0\0\x02zz", 7),
         [](Settings& e) { e.gPref[kUntouched] = 9; }},
        {"huge string count", p4 + U32(1) + Pascal("100") + U32(~0u) + Pascal("50") + Pascal("X:a"),
         [](Settings& e) { e.gPrefS[pref::SGroup(1)] = "X:a"; }},
        {"old long string past the end", oldCut, [](Settings& e) {
             std::fill_n(e.gPrefS.begin(), 17, std::string(1, 'o'));
             e.gPref[pref::kFrameTop] = 100; }},  // the old layout's migration still runs
        {"counts beyond the tables", PrefBytes("pref4", many, manyStrs), [&](Settings& e) {
             e.gPref.fill(1);
             std::copy_n(manyStrs.begin(), e.gPrefS.size(), e.gPrefS.begin()); }},
        {"out of range", PrefBytes("pref4", outOfRange, {}),
         [](Settings& e) { e.gPref[pref::kSelectionColor] = kHighlight; }},
        // clang-format on
    };
    for (const auto& c : cases) {
        ScratchDir dir;
        std::ofstream(dir.path() / "pref") << c.bytes;
        Settings s = Defaults();
        ASSERT_EQ(PrefFile::LoadPref(s, dir.path(), kHighlight), LoadResult::Loaded) << c.what;
        Settings expected = Defaults();
        c.expect(expected);
        EXPECT_EQ(s.gPref, expected.gPref) << c.what;
        EXPECT_EQ(s.gPrefS, expected.gPrefS) << c.what;
    }
}

// A first start (folder made) and a missing file are tested with the whole program.
TEST(PrefFile, UnusableFilesAndFolders) {
    const struct {
        const char* what;
        fs::path (*setup)(const fs::path&);  // returns the settings folder
        bool saved;
    } cases[] = {
        // clang-format off
        {"pref is a folder", [](const fs::path& d) { fs::create_directories(d / "pref" / "in"); return d; }, false},
        {"pref is a fifo", [](const fs::path& d) { mkfifo((d / "pref").c_str(), 0600); return d; }, true},
        {"folder is a file", [](const fs::path& d) { std::ofstream(d / "f") << "x"; return d / "f"; }, false},
        {"folder missing", [](const fs::path& d) { return d / "none"; }, false},
        // clang-format on
    };
    for (const auto& c : cases) {
        ScratchDir dir;
        const fs::path folder = c.setup(dir.path());
        Settings s = Defaults();
        const bool missing = !fs::exists(folder);
        EXPECT_EQ(missing ? LoadResult::Unreadable : PrefFile::LoadPref(s, folder),
                  LoadResult::Unreadable)
            << c.what;
        EXPECT_EQ(PrefFile::SavePref(s, folder), c.saved) << c.what;
        EXPECT_EQ(fs::exists(folder), !missing) << c.what;
        EXPECT_EQ(c.saved ? std::distance(fs::directory_iterator(folder), {}) : 1, 1) << c.what;
    }
}

TEST(PrefFile, ValReadsTheLeadingNumber) {
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
    // clang-format off
    const std::pair<const char*, std::int64_t> cases[] = {
        {"", 0}, {"  42", 42}, {"\t7", 7}, {"-17abc", -17}, {"+8", 8}, {"3.99", 3}, {"-3.99", -3},
        {"1.5e3", 1500}, {"2E2x", 200}, {"1e", 1}, {"1e+", 1}, {".5e1", 5}, {"abc", 0},
        {"- 5", 0}, {"0x1F", 0}, {"12 34", 12}, {"1e-5", 0}, {"1e30", kMax}, {"-1e30", kMin},
        {"0.000001e7", 10}, {"9.3e18", kMax}, {"1e99999999999", kMax}, {"0e99999", 0},
        {"9223372036854775807", kMax}, {"-9223372036854775808", kMin},
        {"99999999999999999999", kMax}, {"-99999999999999999999", kMin},
    };
    // clang-format on
    for (const auto& [text, value] : cases)
        EXPECT_EQ(PrefFile::Val(text), value) << text;
}

}  // namespace
}  // namespace lumivex
