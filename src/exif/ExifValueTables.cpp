#include "exif/ExifValueTables.h"

#include <algorithm>
#include <span>

namespace lumivex {
namespace {

struct CodeText {
    std::int64_t code;
    std::string_view text;
};

std::string_view Lookup(std::span<const CodeText> table, std::int64_t code,
                        std::string_view other) {
    auto it = std::find_if(table.begin(), table.end(),
                           [code](const CodeText& r) { return r.code == code; });
    return it == table.end() ? other : it->text;
}

constexpr CodeText kExposureProgram[] = {
    {0, "未定義"},
    {1, "マニュアル"},
    {2, "ノーマルプログラム"},
    {3, "露出優先"},
    {4, "シャッター優先"},
    {5, "creative プログラム"},
    {6, "action プログラム"},
    {7, "ポートレイトモード"},
    {8, "ランズケープモード"},
};

constexpr CodeText kFlash[] = {
    {0, "非発光"},
    {1, "発光"},
    {5, "発光, リターン非検出"},
    {7, "発光, リターン検出"},
    {9, "強制発光"},  // fired, compulsory mode
    {13, "強制発光, リターン非検出"},
    {15, "強制発光, リターン検出"},
    {16, "強制非発光"},  // not fired, compulsory mode
    {24, "オート非発光"},
    {25, "オート発光"},
    {29, "オート発光, リターン非検出"},
    {31, "オート発光, リターン検出"},
    {32, "機能なし"},
    {65, "発光, 赤目"},
    {69, "発光, 赤目, リターン非検出"},
    {71, "発光, 赤目, リターン検出"},
    {73, "強制発光, 赤目"},
    {77, "強制発光, 赤目, リターン非検出"},
    {79, "強制発光, 赤目, リターン検出"},
    {89, "オート発光, 赤目"},
    {93, "オート発光, 赤目, リターン非検出"},
    {95, "オート発光, 赤目, リターン検出"},
};

constexpr CodeText kMeteringMode[] = {
    {0, "不明"},           {1, "平均"},     {2, "中央重点"}, {3, "スポット"},
    {4, "マルチスポット"}, {5, "分割測光"}, {6, "部分測光"}, {255, "その他"},
};

constexpr CodeText kLightSource[] = {
    {0, "不明"},
    {1, "昼光"},
    {2, "蛍光灯_"},
    {3, "タングステン"},
    {4, "フラッシュ"},
    {9, "晴れ"},
    {10, "曇り"},
    {11, "日陰"},
    {12, "Daylight 蛍光灯"},
    {13, "Day white 蛍光灯"},
    {14, "Cool white 蛍光灯"},
    {15, "White 蛍光灯"},
    {17, "標準光 A"},
    {18, "標準光 B"},
    {19, "標準光 C"},
    {20, "D55"},
    {21, "D65"},
    {22, "D75"},
    {23, "D50"},
    {255, "その他"},
};

}  // namespace

std::string_view ExifValueTables::ExposureProgram(std::int64_t code) {
    return Lookup(kExposureProgram, code, "不明");
}
std::string_view ExifValueTables::Flash(std::int64_t code) {
    return Lookup(kFlash, code, "不明");
}
std::string_view ExifValueTables::MeteringMode(std::int64_t code) {
    return Lookup(kMeteringMode, code, "不明");
}
std::string_view ExifValueTables::LightSource(std::int64_t code) {
    return Lookup(kLightSource, code, "");
}

}  // namespace lumivex
