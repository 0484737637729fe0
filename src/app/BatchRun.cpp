#include "app/BatchRun.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <thread>

#include "browser/Prompter.h"

namespace lumivex {
namespace {

// A long list of failures is cut: the first few say what went wrong.
constexpr std::size_t kFailuresShown = 5;
constexpr int kPollMs = 10;

int Clamp(std::size_t n) {
    return static_cast<int>(std::min<std::size_t>(n, 1 << 30));
}

}  // namespace

BatchRun::BatchRun(Prompter& prompter, ScanOptions options, QWidget* parent)
    : prompter_(prompter), options_(std::move(options)), parent_(parent) {}

BatchRun::Outcome BatchRun::Run(const std::filesystem::path& folder) {
    report_ = {};
    failed_ = false;
    std::vector<BatchExtractor::Record> records;
    BatchExtractor::Control reading;
    if (!OnWorker(QStringLiteral("読み込み中..."), reading,
                  [&] { records = BatchExtractor::Collect(folder, options_, reading); }))
        return Outcome::Stopped;
    if (failed_) return Fail();
    if (!BatchExtractor::HasThumbnail(records)) return Outcome::NothingFound;

    const auto target = AskTarget();
    if (!target) return Outcome::Cancelled;
    BatchExtractor::Control writing;
    const bool finished = OnWorker(QStringLiteral("書き出し中..."), writing, [&] {
        report_ = BatchExtractor::Write(records, folder, *target, writing);
    });
    if (failed_) return Fail();
    TellFailures();
    return finished ? Outcome::Written : Outcome::Stopped;
}

bool BatchRun::OnWorker(const QString& label, BatchExtractor::Control& control,
                        const std::function<void()>& job) {
    std::atomic<bool> finished{false};
    std::thread worker([&] {
        try {
            job();
        } catch (const std::exception&) {  // out of memory, mostly: tell, never crash
            failed_ = true;
        }
        finished.store(true, std::memory_order_release);
    });
    QProgressDialog dialog(label, QStringLiteral("中止"), 0, 0, parent_);
    dialog.setWindowModality(parent_ != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    dialog.setMinimumDuration(kShowAfterMs);
    dialog.setAutoReset(false);
    dialog.setAutoClose(false);
    QObject::connect(&dialog, &QProgressDialog::canceled, &dialog,
                     [&] { control.stop.store(true, std::memory_order_release); });
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        dialog.setMaximum(Clamp(control.total.load(std::memory_order_acquire)));
        dialog.setValue(Clamp(control.done.load(std::memory_order_acquire)));
        if (finished.load(std::memory_order_acquire)) loop.quit();
    });
    poll.start(kPollMs);
    loop.exec();
    worker.join();
    return !control.stop.load(std::memory_order_acquire);
}

std::optional<std::filesystem::path> BatchRun::AskTarget() {
    // The folder chooser has no title of its own.
    const auto chosen = prompter_.ChooseFolder(parent_, QString());
    if (!chosen || chosen->isEmpty()) return std::nullopt;
    return std::filesystem::path(chosen->toStdString());
}

BatchRun::Outcome BatchRun::Fail() const {
    prompter_.Message(parent_, QStringLiteral("サムネールの取り出し中にエラーが起きました。"));
    return Outcome::Failed;
}

void BatchRun::TellFailures() const {
    const auto& skipped = report_.skipped;
    if (skipped.empty()) return;
    QString text = QStringLiteral("%1件のサムネールを書き出せませんでした。").arg(skipped.size());
    for (std::size_t i = 0; i < skipped.size() && i < kFailuresShown; ++i)
        text += QStringLiteral("\n%1: %2")
                    .arg(QString::fromStdString(skipped[i].fname),
                         QString::fromStdString(skipped[i].reason));
    if (skipped.size() > kFailuresShown) text += QStringLiteral("\n...");
    prompter_.Message(parent_, text);
}

}  // namespace lumivex
