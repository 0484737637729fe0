#include "cli/InfoCommand.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <thread>

#include "cli/CommandLine.h"
#include "cli/JsonWriter.h"
#include "cli/TerminalText.h"
#include "exif/ExifReader.h"
#include "exif/ExifReport.h"
#include "scan/OrderedParallel.h"
#include "scan/SkipReason.h"

namespace lumivex {
namespace {

// Reports are small; a longer look-ahead keeps the threads busy past a slow file.
constexpr std::size_t kLookAhead = 64;

void AppendDict(JsonWriter& json, const char* name, const ExifDict& dict) {
    json.Raw(",\"");
    json.Raw(name);
    json.Raw("\":{");
    bool first = true;
    for (const auto& item : dict) {
        const ExifValue& value = item.value;
        if (!first) json.Raw(",");
        first = false;
        json.Bytes(item.key);
        json.Raw(":");
        if (const auto* i = std::get_if<std::int64_t>(&value)) {
            json.Integer(*i);
        } else if (const auto* d = std::get_if<double>(&value)) {
            json.Double(*d);
        } else {
            json.Bytes(std::get<std::string>(value));
        }
    }
    json.Raw("}");
}

// Report texts end their lines with a carriage return; a terminal wants line feeds. Any
// other control character came from a tag's value and is shown escaped.
void AppendLines(std::string& out, std::string_view text) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\r', start), text.size());
        out += TerminalText(text.substr(start, end - start));
        if (end < text.size()) out += '\n';
        start = end + 1;
    }
}

void Flush(std::string& buffer, std::FILE* out, bool force) {
    if (buffer.size() < (1u << 16) && !force) return;
    std::fwrite(buffer.data(), 1, buffer.size(), out);
    buffer.clear();
}

}  // namespace

void InfoCommand::AppendJson(const std::string& file, const ExifReader& x, std::string& out) const {
    JsonWriter json(out);
    json.Raw("{\"file\":");
    json.Text(file);
    json.Raw(x.ret ? ",\"exif\":true" : ",\"exif\":false");
    AppendDict(json, "IFD0", x.IFD0);
    AppendDict(json, "IFD1", x.IFD1);
    AppendDict(json, "IFDe", x.IFDe);
    AppendDict(json, "IFDg", x.IFDg);
    out += "}\n";
}

void InfoCommand::AppendText(const std::string& file, const ExifReader& x, std::string& out) const {
    out += "== " + TerminalText(file) + " ==\n";
    if (!x.ret) {
        out += "Exif情報がありません。\n\n";
        return;
    }
    std::string texts[6];
    x.GetInfo(texts[0], texts[1], texts[2], texts[3], texts[4], texts[5]);
    for (const std::string& text : texts) {
        AppendLines(out, text);
        out += '\n';
    }
    for (const auto& item : x.IFDg) {
        const std::string& key = item.key;
        const auto text = ExifReport::Value(x.IFDg, key);
        out += TerminalText(key) + "=" + TerminalText(text ? *text : std::string()) + "\n";
    }
    if (!x.IFDg.Empty()) out += '\n';
}

int InfoCommand::Run(const std::vector<std::string>& args, std::FILE* out, std::FILE* err) {
    CommandLine line;
    if (!line.Parse(args, {{"--json"}, {}, 1, SIZE_MAX, "lumivex info [--json] FILE..."}, err))
        return 2;
    const bool asJson = line.Has("--json");
    const std::vector<std::string>& files = line.Operands();
    struct FileResult {
        bool opened = false;
        std::string text;
    };
    const unsigned threads = std::max(1u, std::min(4u, std::thread::hardware_concurrency()));
    std::vector<ExifReader> readers(threads);
    int status = 0;
    std::string buffer;
    OrderedParallel<FileResult>::Run(
        files.size(), threads, kLookAhead,
        [&](unsigned worker, std::size_t i, FileResult& r) {
            ExifReader& x = readers[worker];
            x.fitem = files[i];
            x.GetExif();
            r.opened = x.Opened();
            r.text.clear();
            if (asJson) {
                AppendJson(files[i], x, r.text);
            } else {
                AppendText(files[i], x, r.text);
            }
        },
        [&](std::size_t i, FileResult& r) {
            if (!r.opened) {
                Flush(buffer, out, true);
                std::fprintf(err, "lumivex: %s: %s。\n", TerminalText(files[i]).c_str(),
                             SkipText(files[i], SkipReason::Unreadable).c_str());
                status = 1;
            }
            buffer += r.text;
            Flush(buffer, out, false);
        });
    Flush(buffer, out, true);
    return status;
}

}  // namespace lumivex
