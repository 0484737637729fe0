#include "model/ExportFormatChoice.h"

#include <algorithm>
#include <filesystem>

namespace lumivex {
namespace {

std::string Lower(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

std::string Upper(std::string s) {
    for (char& c : s)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return s;
}

}  // namespace

std::string ExportFormatChoice::FilterText(const ImageFormat& format) {
    std::string text = Upper(format.name) + " (";
    for (std::size_t i = 0; i < format.suffixes.size(); ++i) {
        if (i > 0) text += ' ';
        text += "*." + format.suffixes[i];
    }
    return text + ")";
}

int ExportFormatChoice::FormatOfName(const std::vector<ImageFormat>& formats,
                                     const std::string& name) {
    const std::string base = std::filesystem::path(name).filename().string();
    const std::size_t dot = base.rfind('.');
    if (dot == std::string::npos || dot == 0) return -1;
    const std::string extn = Lower(base.substr(dot + 1));
    for (std::size_t i = 0; i < formats.size(); ++i) {
        const auto& s = formats[i].suffixes;
        if (std::find(s.begin(), s.end(), extn) != s.end()) return static_cast<int>(i);
    }
    return -1;
}

ExportFormatChoice::Choice ExportFormatChoice::Choose(const std::vector<ImageFormat>& formats,
                                                      const std::string& file, int selected) {
    Choice choice{file, FormatOfName(formats, file)};
    if (choice.format >= 0) return choice;
    if (selected < 0 || selected >= static_cast<int>(formats.size())) selected = 0;
    if (formats.empty() || formats[static_cast<std::size_t>(selected)].suffixes.empty())
        return {file, -1};
    choice.format = selected;
    choice.file += "." + formats[static_cast<std::size_t>(selected)].suffixes.front();
    return choice;
}

}  // namespace lumivex
