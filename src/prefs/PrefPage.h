#pragma once
// One page of the preferences dialog: it shows its part of the values and gives it back.
#include <QWidget>

#include "model/PrefValues.h"

class QCheckBox;

namespace lumivex {

class PrefPage : public QWidget {
  public:
    using QWidget::QWidget;
    virtual void Load(const PrefValues& v) = 0;
    virtual void Store(PrefValues& v) const = 0;

  protected:
    // A check box named after its control, so that tests and screenshots find it.
    QCheckBox* AddCheck(const char* name, const QString& text);
};

}  // namespace lumivex
