#pragma once
// The about box: the program's name and icon, its version and the credits. A click anywhere
// on it, its close button or Esc closes it.
#include <QDialog>

class QLabel;

namespace lumivex {

class AboutPanel : public QDialog {
    Q_OBJECT

  public:
    explicit AboutPanel(QWidget* parent = nullptr);

    // Makes the panel and shows it modally.
    static void GenAboutPanel(QWidget* parent = nullptr);

    static QString VersionText();
    static QString Credits();

  protected:
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QLabel* AddLabel(const char* name, const QString& text, const QRect& frame);
};

}  // namespace lumivex
