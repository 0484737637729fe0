#pragma once
// The colour control of the preferences dialog: a swatch in a one-pixel black frame that asks
// for a new colour when it is clicked.
#include <QString>
#include <QWidget>
#include <cstdint>

#include "core/Color.h"

namespace lumivex {

class Prompter;

class ClrCanvas : public QWidget {
    Q_OBJECT

  public:
    ClrCanvas(Prompter& prompter, QWidget* parent = nullptr);

    // The colour as 0xRRGGBB.
    std::int64_t Clr() const { return clr_; }
    void SetClr(std::int64_t value);
    const QString& Caption() const { return caption_; }

    static Color ClrItoC(std::int64_t value);
    static std::int64_t ClrCtoI(Color c);

  signals:
    void ClrChanged(std::int64_t value);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    Prompter& prompter_;
    std::int64_t clr_ = 0;
    QString caption_;
};

}  // namespace lumivex
