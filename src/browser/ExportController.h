#pragma once
// Export and clipboard of thumbnails. Export of one item or of the selection runs on the main
// thread with its dialogs; export of every item runs on the window's worker, with the
// progress strip, while this object feeds it pictures and polls it. Nothing here ever
// replaces a source picture (ExportTargets), and every file is written under a temporary
// name first (OutputFile).
#include <QObject>
#include <QString>
#include <QTimer>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/ExportFormatChoice.h"
#include "model/ItemRecord.h"
#include "scan/ExportTargets.h"

class QImage;
class QWidget;

namespace lumivex {

class Prompter;
class ScanProgressStrip;
class ScanWorker;
class Settings;

class ExportController : public QObject {
    Q_OBJECT

  public:
    // Modes of ExportThumbNail.
    static constexpr int kExif = 0;  // the bytes as the file embeds them
    static constexpr int kJpeg = 1;  // the displayed picture as JPEG of quality 100
    static constexpr int kAs = 2;    // the displayed picture in a format the user picks
    // Pictures handed to the worker ahead of its writing: enough for a few polls, few
    // enough that a large card is not held twice.
    static constexpr std::size_t kFeedAhead = 256;
    // Pictures copied in one go: the copies are the main thread's share of the work, and a
    // hundred keep each poll near a millisecond and still outrun the writing.
    static constexpr std::size_t kFeedStep = 128;

    // All references outlive the controller; `window` parents the dialogs.
    ExportController(const Settings& prefs, Prompter& prompter, ScanWorker& worker,
                     ScanProgressStrip& strip, const std::vector<ItemRecord>& items,
                     QWidget* window);

    // The command: the item pCidx (pCidxFlg 1), every selected item (2), or nothing (0).
    void ExportThumbNail(int pCidxFlg, int pCidx, int mode);
    void ExportThumbNailSel(int mode);
    void ExportThumbNail2(std::size_t index, int mode);

    // Asks for a folder and starts the worker on it. False when cancelled, when there is
    // nothing to export, or when the worker is busy (the user is told).
    bool ExportThumbNailAll();
    bool Running() const { return timer_.isActive(); }
    // "中止": the export ends at the top of its next round; the files written stay.
    void PushButton1_Action();
    // Tells the user that an export cannot start while another job runs.
    void Refuse();

    // The displayed picture of the one selected item onto the clipboard; false otherwise.
    bool GenClipboard(int pCidxFlg, int pCidx) const;

    // Every format Qt can write here, JPEG first when there is one.
    static std::vector<ImageFormat> WritableFormats();
    static QImage ImageOf(const Picture& pict);

  signals:
    // Export-all has ended (completed or stopped); the progress strip is hidden.
    void exportFinished();

  private:
    void ExportExif(const ItemRecord& item);
    void ExportJpeg(const ItemRecord& item, const std::string& body);
    void ExportAs(const ItemRecord& item, const std::string& body);
    bool ConfirmExif(const ItemRecord& item);
    // The file to write in one of `formats` (its index into `chosen`), from a save dialog;
    // nothing when cancelled or when the name is a source picture (then the user is told).
    std::optional<std::filesystem::path> AskTarget(const QString& title, const QString& name,
                                                   const std::vector<ImageFormat>& formats,
                                                   int* chosen = nullptr);
    bool Protected(const std::filesystem::path& target) const;
    void WriteFailed();
    void Feed();
    void Timer2_Action();
    int Caution(const QString& message, const QString& explanation, bool withCancel);

    const Settings& prefs_;
    Prompter& prompter_;
    ScanWorker& worker_;
    ScanProgressStrip& strip_;
    const std::vector<ItemRecord>& items_;
    QWidget* window_;
    QTimer timer_;  // polls the worker every 10 ms during export-all
    QString lastFolder_;
    std::size_t count_ = 0;  // items the running export expects
    std::size_t next_ = 0;   // the next item to feed it
};

}  // namespace lumivex
