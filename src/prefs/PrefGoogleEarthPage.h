#pragma once
// Page "Google Earth": permission to start it, where it is installed, and the view it opens.
#include <QString>
#include <functional>

#include "platform/GoogleEarthLocator.h"
#include "prefs/PrefPage.h"

class QLineEdit;

namespace lumivex {

class Prompter;

class PrefGoogleEarthPage : public PrefPage {
  public:
    // `startFolder` is where the "取得..." chooser opens; `beep` says whether its caution
    // beeps.
    PrefGoogleEarthPage(Prompter& prompter, GoogleEarthLocator locator, QString startFolder,
                        bool beep, QWidget* parent = nullptr);
    void Load(const PrefValues& v) override;
    void Store(PrefValues& v) const override;

    // "取得...": the chosen file goes into the path field when it is a Google Earth; else the
    // user is told to choose again and the field keeps its text.
    void PushButton6_Action();

  private:
    QLineEdit* AddField(const char* name);

    Prompter& prompter_;
    GoogleEarthLocator locator_;
    QString startFolder_;
    bool beep_;
    QCheckBox* allowed_;
    QLineEdit* app_;
    QLineEdit* range_;
    QLineEdit* tilt_;
    QLineEdit* heading_;
    QLineEdit* speed_;
};

}  // namespace lumivex
