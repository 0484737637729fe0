#pragma once
// The strip under the grid that carries a long job: the caption (StaticText1), the progress
// bar (ProgressBar1) and the stop button (PushButton1). Hidden while no job runs.
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace lumivex {

class ScanProgressStrip : public QWidget {
    Q_OBJECT

  public:
    explicit ScanProgressStrip(QWidget* parent = nullptr);

    // Shows the three controls with `caption` and a bar running to `maximum`.
    void ShowJob(const QString& caption, int maximum);
    void SetMaximum(int maximum);
    void SetValue(int value);
    void HideJob();
    bool JobShown() const;

    QLabel* StaticText1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QPushButton* PushButton1 = nullptr;

  signals:
    void stopClicked();
};

}  // namespace lumivex
