#pragma once
// The information window of one picture: the file's name over four tabs of two-column lists
// (summary, IFD0, Exif directory, GPS directory). It only shows what ExifInfoRows decided;
// rows can be selected across all four lists and copied as text.
#include <QDialog>
#include <QString>
#include <array>
#include <filesystem>

#include "exif/ExifInfoRows.h"

class QLabel;
class QPushButton;
class QTabWidget;
class QTableWidget;

namespace lumivex {

class Prompter;

class ExifInfoGPS : public QDialog {
    Q_OBJECT

  public:
    // Reads `path` anew and opens its window over `parent`, window-modal; the window deletes
    // itself when closed. A file without Exif gets a caution instead (beeping first when
    // `beep`) and no window: the result is null then.
    static ExifInfoGPS* SelFileExifGPS(QWidget* parent, Prompter& prompter,
                                       const std::filesystem::path& path, bool beep);

    explicit ExifInfoGPS(QWidget* parent = nullptr);

    void SetFileName(const QString& name);
    // Puts `rows` into list `list` (0 to 3), replacing what it held.
    void Fill(int list, const ExifInfoList& rows);

    // Edit commands while the window is in front: copy the selected rows of all four lists
    // (the clipboard stays as it was when none is selected), and select every row.
    void CopyString();
    QString CopyString2(int list) const;
    void SelectAllList();
    void SelectAllList2(int list);

    QTableWidget* ListBox(int list) const { return lists_[static_cast<std::size_t>(list)]; }
    QTabWidget* TabPanel() const { return TabPanel1; }
    QLabel* FileNameLabel() const { return StaticText2; }
    QLabel* NoteLabel() const { return StaticText1; }
    QPushButton* CloseButton() const { return PushButton1; }

  private:
    QTableWidget* MakeList();
    void AddEditActions();

    QLabel* StaticText2 = nullptr;
    QTabWidget* TabPanel1 = nullptr;
    std::array<QTableWidget*, ExifInfoRows::kLists> lists_{};
    std::array<ExifInfoList, ExifInfoRows::kLists> rows_;
    QLabel* StaticText1 = nullptr;
    QPushButton* PushButton1 = nullptr;
};

}  // namespace lumivex
