#include "browser/ExportController.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QMimeDatabase>
#include <algorithm>
#include <chrono>
#include <utility>

#include "browser/Prompter.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ScanWorker.h"
#include "core/Globals.h"
#include "core/JpegCodec.h"
#include "core/OutputFile.h"
#include "core/Settings.h"
#include "exif/ExifReader.h"

namespace lumivex {
namespace {

constexpr int kPollMs = 10;
constexpr auto kFinishWait = std::chrono::seconds(2);
const QString kFailed = QStringLiteral("サムネイルの書き出しに失敗しました。");
const QString kNotWritten = QStringLiteral("書き出しは行われません。");

std::filesystem::path PathOf(const QString& file) {
    return std::filesystem::path(file.toStdString());
}

bool Write(const std::filesystem::path& target, std::span<const std::uint8_t> bytes) {
    return !bytes.empty() && OutputFile::Replace(target, bytes) == OutputFile::Result::Written;
}

}  // namespace

ExportController::ExportController(const Settings& prefs, Prompter& prompter, ScanWorker& worker,
                                   ScanProgressStrip& strip, const std::vector<ItemRecord>& items,
                                   QWidget* window)
    : prefs_(prefs),
      prompter_(prompter),
      worker_(worker),
      strip_(strip),
      items_(items),
      window_(window),
      lastFolder_(QDir::homePath()) {
    timer_.setInterval(kPollMs);
    connect(&timer_, &QTimer::timeout, this, &ExportController::Timer2_Action);
    connect(&strip_, &ScanProgressStrip::stopClicked, this, &ExportController::PushButton1_Action);
}

void ExportController::PushButton1_Action() {
    if (Running()) worker_.Stop();
}

// ---- one item or the selection, on the main thread ----------------------------------------

void ExportController::ExportThumbNail(int pCidxFlg, int pCidx, int mode) {
    if (pCidxFlg == 1 && pCidx >= 0) ExportThumbNail2(static_cast<std::size_t>(pCidx), mode);
    if (pCidxFlg == 2) ExportThumbNailSel(mode);
}

void ExportController::ExportThumbNailSel(int mode) {
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (items_[i].selected) ExportThumbNail2(i, mode);
}

void ExportController::ExportThumbNail2(std::size_t index, int mode) {
    if (index >= items_.size()) return;
    const ItemRecord& item = items_[index];
    if (!item.ifd1) {
        prompter_.CautionOk(window_, QStringLiteral("画像ファイルにサムネイルが含まれていません。"),
                            kNotWritten, prefs_.gPref[pref::kBeepOnCaution] == 1);
        return;
    }
    std::string body, extn;
    gExtractBodyAndExtn(item.fname, body, extn);
    if (mode == kExif) ExportExif(item);
    if (mode == kJpeg) ExportJpeg(item, body);
    if (mode == kAs) ExportAs(item, body);
}

int ExportController::Caution(const QString& message, const QString& explanation, bool withCancel) {
    CautionRequest r;
    r.buttons = withCancel ? 2 : 1;
    r.action = withCancel ? QStringLiteral("実行") : QStringLiteral("OK");
    r.cancel = QStringLiteral("キャンセル");
    r.message = message;
    r.explanation = explanation;
    return prompter_.Caution(window_, r, prefs_.gPref[pref::kBeepOnCaution] == 1);
}

// The stored thumbnail carries neither the user's turns nor the orientation tag's, so each
// kind of turn is confirmed before it is dropped.
bool ExportController::ConfirmExif(const ItemRecord& item) {
    if (item.rot != 0 && Caution(QStringLiteral("回転画像はexif形式で書き出しできません。"),
                                 QStringLiteral("回転を無視して書き出す場合は実行を押します。"),
                                 true) == Prompter::kCancel)
        return false;
    if (prefs_.gPref[pref::kFollowOrientation] == 1 && item.rotate != 0 &&
        Caution(
            QStringLiteral("表示画像はexifの情報に従って回転していますが、exif形式では回転なしで"
                           "書き出されます。"),
            QStringLiteral("回転した状態で書き出したい場合は、別の形式を選択して下さい。回転を"
                           "無視して書き出す場合は実行を押します。"),
            true) == Prompter::kCancel)
        return false;
    return true;
}

void ExportController::ExportExif(const ItemRecord& item) {
    if (!ConfirmExif(item)) return;
    ExifReader reader;
    reader.fitem = item.path;
    reader.SaveThumbNail([&](const ThumbnailBlock& block) {
        const ImageFormat format = block.type == "image/jpeg"
                                       ? ImageFormat{"jpeg", {"jpg", "jpeg"}}
                                       : ImageFormat{"tiff", {"tiff", "tif"}};
        return AskTarget(QStringLiteral("exif形式で書き出し"),
                         QString::fromStdString(block.suggestedName), {format});
    });
    if (!reader.ret) WriteFailed();
}

void ExportController::ExportJpeg(const ItemRecord& item, const std::string& body) {
    const auto target =
        AskTarget(QStringLiteral("非圧縮jpegで書き出し"), QString::fromStdString(body + ".jpg"),
                  {ImageFormat{"jpeg", {"jpg", "jpeg"}}});
    if (!target) return;
    if (!Write(*target, JpegCodec::Encode(item.Shown(), 100))) WriteFailed();
}

void ExportController::ExportAs(const ItemRecord& item, const std::string& body) {
    const std::vector<ImageFormat> formats = WritableFormats();
    int chosen = -1;
    const auto target = AskTarget(QStringLiteral("形式を指定して書き出し"),
                                  QString::fromStdString(body), formats, &chosen);
    if (!target) return;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const auto& format = formats[static_cast<std::size_t>(chosen)];
    QImageWriter writer(&buffer, QByteArray::fromStdString(format.name));
    if (format.name == "jpeg" || format.name == "jpg" || format.name == "webp")
        writer.setQuality(100);
    const Picture shown = item.Shown();
    const bool encoded = !shown.IsNull() && writer.write(ImageOf(shown));
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.constData());
    if (!encoded || !Write(*target, {data, static_cast<std::size_t>(bytes.size())})) WriteFailed();
}

std::optional<std::filesystem::path> ExportController::AskTarget(
    const QString& title, const QString& name, const std::vector<ImageFormat>& formats,
    int* chosen) {
    SaveRequest request;
    request.title = title;
    request.suggested = QDir(lastFolder_).filePath(name);
    for (const auto& f : formats)
        request.filters << QString::fromStdString(ExportFormatChoice::FilterText(f));
    const auto answer = prompter_.SaveFileAs(window_, request);
    if (!answer) return std::nullopt;
    lastFolder_ = QFileInfo(answer->file).absolutePath();
    // The typed name gets the chosen type's extension when it has none of a format on offer.
    const auto choice =
        ExportFormatChoice::Choose(formats, answer->file.toStdString(),
                                   static_cast<int>(request.filters.indexOf(answer->filter)));
    if (choice.format < 0) {
        WriteFailed();
        return std::nullopt;
    }
    if (chosen != nullptr) *chosen = choice.format;
    const std::filesystem::path target = choice.file;
    if (Protected(target)) {
        prompter_.CautionOk(window_, QStringLiteral("元の画像ファイルには書き出せません。"),
                            QStringLiteral("別の名前か別のフォルダを指定して下さい。"),
                            prefs_.gPref[pref::kBeepOnCaution] == 1);
        return std::nullopt;
    }
    return target;
}

bool ExportController::Protected(const std::filesystem::path& target) const {
    std::vector<std::string> paths;
    paths.reserve(items_.size());
    for (const auto& item : items_)
        paths.push_back(item.path);
    return ExportTargets(ExportTargets::FoldersOf(paths)).Protects(target);
}

void ExportController::WriteFailed() {
    prompter_.CautionOk(window_, kFailed, kNotWritten, prefs_.gPref[pref::kBeepOnCaution] == 1);
}

// ---- every item, on the worker -----------------------------------------------------------

bool ExportController::ExportThumbNailAll() {
    if (worker_.Running()) {
        Refuse();
        return false;
    }
    if (items_.empty()) return false;
    const auto folder =
        prompter_.ChooseFolder(window_, QStringLiteral("書き出し先のフォルダを選択"));
    if (!folder) return false;
    ExportJob job;
    job.folder = PathOf(*folder);
    std::vector<std::string> paths;
    for (const auto& item : items_)
        paths.push_back(item.path);
    job.sourceFolders = ExportTargets::FoldersOf(paths);
    job.count = items_.size();
    // A scan may have begun while the folder dialog was open.
    if (!worker_.StartExport(job)) {
        Refuse();
        return false;
    }
    count_ = job.count;
    next_ = 0;
    strip_.ShowJob(QStringLiteral("書き出し中..."), static_cast<int>(count_) - 1);
    Feed();
    timer_.start();
    return true;
}

void ExportController::Refuse() {
    prompter_.CautionOk(window_, QStringLiteral("ほかの処理を実行中です。"),
                        QStringLiteral("処理が終わってから、もう一度書き出して下さい。"),
                        prefs_.gPref[pref::kBeepOnCaution] == 1);
}

// Copies the next thumbnails for the worker, so that it reads its own and a turn made during
// the run still reaches the items not yet fed.
void ExportController::Feed() {
    if (items_.size() != count_) {
        worker_.Stop();  // the list was emptied under the job: what is left is gone
        return;
    }
    const std::size_t backlog = worker_.ExportBacklog();
    if (backlog >= kFeedAhead || next_ >= count_) return;
    const std::size_t n = std::min({kFeedAhead - backlog, count_ - next_, kFeedStep});
    std::vector<ExportEntry> batch;
    batch.reserve(n);
    for (std::size_t i = 0; i < n; ++i, ++next_) {
        const ItemRecord& item = items_[next_];
        batch.push_back(
            {item.fname, item.ifd1 ? item.thumb : StoredThumbnail(), item.Turns(), item.ifd1});
    }
    worker_.FeedExport(std::move(batch));
}

void ExportController::Timer2_Action() {
    const bool ended = worker_.End();
    const int done = static_cast<int>(worker_.ProgVal());
    strip_.SetValue(std::max(0, done - 1));
    if (!ended) {
        Feed();
        return;
    }
    strip_.HideJob();
    timer_.stop();
    const std::size_t failed = worker_.Failed();
    worker_.Finish(kFinishWait);
    // Each write that fails is passed over so the rest still go out; the user learns of it
    // once, at the end.
    if (failed > 0)
        prompter_.CautionOk(
            window_, QStringLiteral("書き出せなかったサムネイルがあります。"),
            QStringLiteral("書き出し先の空き容量と書き込みの権限を確かめて下さい。"),
            prefs_.gPref[pref::kBeepOnCaution] == 1);
    emit exportFinished();
}

// ---- clipboard and formats ---------------------------------------------------------------

bool ExportController::GenClipboard(int pCidxFlg, int pCidx) const {
    if (pCidxFlg != 1 || pCidx < 0 || pCidx >= static_cast<int>(items_.size())) return false;
    const ItemRecord& item = items_[static_cast<std::size_t>(pCidx)];
    const Picture shown = item.ifd1 ? item.Shown() : Picture();
    if (shown.IsNull()) return false;
    QGuiApplication::clipboard()->setImage(ImageOf(shown));
    return true;
}

QImage ExportController::ImageOf(const Picture& pict) {
    return QImage(pict.Pixels().data(), pict.Width(), pict.Height(), 3 * pict.Width(),
                  QImage::Format_RGB888)
        .copy();
}

std::vector<ImageFormat> ExportController::WritableFormats() {
    std::vector<ImageFormat> formats;
    const QMimeDatabase db;
    for (const QByteArray& mime : QImageWriter::supportedMimeTypes()) {
        const QList<QByteArray> names = QImageWriter::imageFormatsForMimeType(mime);
        if (names.isEmpty()) continue;
        ImageFormat f;
        f.name = names.front().toLower().toStdString();
        const QMimeType type = db.mimeTypeForName(QString::fromLatin1(mime));
        QStringList suffixes;
        if (!type.preferredSuffix().isEmpty()) suffixes << type.preferredSuffix();
        suffixes << type.suffixes();
        for (const QByteArray& n : names)
            suffixes << QString::fromLatin1(n);
        for (const QString& s : suffixes) {
            const std::string lower = s.toLower().toStdString();
            if (std::find(f.suffixes.begin(), f.suffixes.end(), lower) == f.suffixes.end())
                f.suffixes.push_back(lower);
        }
        formats.push_back(std::move(f));
    }
    std::stable_partition(formats.begin(), formats.end(),
                          [](const ImageFormat& f) { return f.name == "jpeg" || f.name == "jpg"; });
    return formats;
}

}  // namespace lumivex
