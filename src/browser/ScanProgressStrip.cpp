#include "browser/ScanProgressStrip.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace lumivex {

ScanProgressStrip::ScanProgressStrip(QWidget* parent) : QWidget(parent) {
    setFixedHeight(20);
    // Fixed places, as in the window's design: caption, bar 70 px in, button 180 px in.
    StaticText1 = new QLabel(this);
    StaticText1->setGeometry(0, 0, 60, 20);
    StaticText1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setGeometry(70, 2, 100, 16);
    ProgressBar1->setTextVisible(false);
    PushButton1 = new QPushButton(QStringLiteral("中止"), this);
    PushButton1->setGeometry(180, 1, 48, 18);
    connect(PushButton1, &QPushButton::clicked, this, &ScanProgressStrip::stopClicked);
    HideJob();
}

void ScanProgressStrip::ShowJob(const QString& caption, int maximum) {
    StaticText1->setText(caption);
    ProgressBar1->setRange(0, maximum);
    ProgressBar1->setValue(0);
    StaticText1->show();
    ProgressBar1->show();
    PushButton1->show();
}

void ScanProgressStrip::SetMaximum(int maximum) {
    ProgressBar1->setMaximum(maximum);
}

void ScanProgressStrip::SetValue(int value) {
    ProgressBar1->setValue(value);
}

void ScanProgressStrip::HideJob() {
    StaticText1->hide();
    ProgressBar1->hide();
    PushButton1->hide();
}

bool ScanProgressStrip::JobShown() const {
    return !PushButton1->isHidden();
}

}  // namespace lumivex
