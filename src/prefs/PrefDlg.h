#pragma once
// The preferences dialog: six pages chosen by the buttons of its own toolbar. It edits a copy
// of the settings; "保存" writes them back and saves the settings file, "キャンセル" leaves
// them alone. Either way the page last shown is remembered for the next opening.
#include <QDialog>
#include <QIcon>
#include <array>
#include <filesystem>

#include "core/Settings.h"
#include "model/PrefValues.h"
#include "platform/GoogleEarthLocator.h"

class QAction;
class QActionGroup;
class QStackedWidget;
class QToolBar;

namespace lumivex {

class PrefPage;
class Prompter;

class PrefDlg : public QDialog {
    Q_OBJECT

  public:
    struct Context {
        Settings& prefs;
        std::filesystem::path settingsFolder;  // where "保存" writes the settings file
        Prompter& prompter;
        GoogleEarthLocator locator;
        bool altHeld = false;   // Alt at the opening offers the expert page
        QIcon googleEarthIcon;  // the located application's icon; the page's own when null
        QString applicationsFolder = QStringLiteral("/opt/google/earth");
    };

    explicit PrefDlg(Context context, QWidget* parent = nullptr);

    // The whole life of the dialog: shows it modally, and on "保存" writes the settings and
    // the file. The changes are empty when the dialog was cancelled.
    static PrefChanges ShowPrefDlg(Context context, QWidget* parent = nullptr);
    // Whether Alt is held down right now.
    static bool AltHeld();

    void InitApp(std::int64_t page);
    void MovePage(std::int64_t page, bool animate);
    int Page() const;
    bool Expert() const { return values_.expert; }
    // The button of each page; the expert page's is null when it is not offered.
    QAction* PageButton(int page) const { return buttons_[static_cast<std::size_t>(page)]; }
    bool Saved() const { return saved_; }
    const PrefChanges& Changes() const { return changes_; }

  signals:
    // After "保存" has written the settings: what the window must apply again.
    void PrefsSaved(const lumivex::PrefChanges& changes);

  protected:
    void done(int result) override;

  private:
    void BuildToolbar(const QIcon& googleEarthIcon);
    void PushButtonItem(std::int64_t page);
    // With `animate` (a page switch while shown) the frame moves as the window frame does.
    void ResizeWindow(int height, bool animate);
    void PushButton2_Action();

    Settings& prefs_;
    std::filesystem::path folder_;
    PrefValues values_;
    QToolBar* toolbar_ = nullptr;
    QStackedWidget* panel_ = nullptr;
    std::array<PrefPage*, 6> pages_{};
    std::array<QAction*, 6> buttons_{};
    bool saved_ = false;
    PrefChanges changes_;
};

}  // namespace lumivex
