#pragma once
// The batch extraction behind a folder given to the program: the thumbnails of the folder's
// pictures are read on a worker thread, the user is asked for a folder to put them in, and
// they are written there on the worker, each as body + ".jpg". A progress dialog with a stop
// button shows while a thread works. A folder without thumbnails asks nothing and says
// nothing; thumbnails that could not be written are listed in one message.
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>

#include "scan/BatchExtractor.h"
#include "scan/ScanOptions.h"

class QWidget;

namespace lumivex {

class Prompter;

class BatchRun {
  public:
    enum class Outcome {
        NothingFound,  // no picture with a thumbnail: nothing was asked
        Stopped,       // the user stopped the reading or the writing
        Cancelled,     // the user chose no folder
        Written,       // every record was handled; Result() says what failed
        Failed,        // the work ended in an error; the user was told
    };

    // `options` are copied from the settings when the run is made: the worker reads no
    // settings.
    BatchRun(Prompter& prompter, ScanOptions options, QWidget* parent = nullptr);

    Outcome Run(const std::filesystem::path& folder);
    const BatchExtractor::Report& Result() const { return report_; }

    // How long a run must last before its progress dialog shows, so quick ones do not flash.
    static constexpr int kShowAfterMs = 400;

  private:
    // Runs `job` on a worker thread while the event loop runs and a progress dialog shows
    // `control`; false when the user stopped it.
    bool OnWorker(const QString& label, BatchExtractor::Control& control,
                  const std::function<void()>& job);
    std::optional<std::filesystem::path> AskTarget();
    void TellFailures() const;
    Outcome Fail() const;

    Prompter& prompter_;
    ScanOptions options_;
    QWidget* parent_;
    BatchExtractor::Report report_;
    bool failed_ = false;  // a worker job ended in an exception
};

}  // namespace lumivex
