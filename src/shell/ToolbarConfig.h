#pragma once
// Where the toolbar keeps what the user chose: whether it is shown and which items it holds,
// in com.ZenmoraWorksJP.LumivexPlus.conf of the user's configuration folder. Every call opens
// the file afresh and a change is written at once, as the toolbar is changed seldom and the
// program may end without a word.
#include <QString>
#include <string>
#include <vector>

namespace lumivex {

class ToolbarConfig {
  public:
    // The file in $XDG_CONFIG_HOME (else ~/.config).
    static QString DefaultPath();

    explicit ToolbarConfig(QString path = DefaultPath());
    const QString& Path() const { return pPath; }

    // Shown unless the file says otherwise.
    bool Shown() const;
    void SetShown(bool shown) const;
    // The saved item identifiers made fit to use (see ToolbarItems::CleanSavedList).
    std::vector<std::string> Items() const;
    void SetItems(const std::vector<std::string>& items) const;

  private:
    QString pPath;
};

}  // namespace lumivex
