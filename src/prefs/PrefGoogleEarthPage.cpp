#include "prefs/PrefGoogleEarthPage.h"

#include <QCheckBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "browser/Prompter.h"

namespace lumivex {

namespace {

std::string Text(const QLineEdit* field) {
    return field->text().toStdString();
}

}  // namespace

PrefGoogleEarthPage::PrefGoogleEarthPage(Prompter& prompter, GoogleEarthLocator locator,
                                         QString startFolder, bool beep, QWidget* parent)
    : PrefPage(parent),
      prompter_(prompter),
      locator_(std::move(locator)),
      startFolder_(std::move(startFolder)),
      beep_(beep),
      allowed_(AddCheck("CheckBox4", QStringLiteral("Google Earth（Pro含む）の起動を許可する"))),
      app_(AddField("EditField5")),
      range_(AddField("EditField1")),
      tilt_(AddField("EditField2")),
      heading_(AddField("EditField3")),
      speed_(AddField("EditField4")) {
    app_->setReadOnly(true);
    auto* choose = new QPushButton(QStringLiteral("取得..."), this);
    choose->setObjectName(QStringLiteral("PushButton6"));
    choose->setAutoDefault(false);
    connect(choose, &QPushButton::clicked, this, [this] { PushButton6_Action(); });
    auto* appRow = new QHBoxLayout;
    appRow->addWidget(app_, 1);
    appRow->addWidget(choose);

    auto* group = new QGroupBox(QStringLiteral("Google Earth（Pro含む）のパラメータ"), this);
    auto* grid = new QGridLayout(group);
    const QString units[] = {QStringLiteral("m（視点の高度）"), QStringLiteral("度"),
                             QStringLiteral("度"), QStringLiteral("（0.1〜6：視点移動の早さ）")};
    const QString names[] = {QStringLiteral("距離"), QStringLiteral("傾き"),
                             QStringLiteral("方位角"), QStringLiteral("スピード")};
    QLineEdit* fields[] = {range_, tilt_, heading_, speed_};
    for (int i = 0; i < 4; ++i) {
        fields[i]->setFixedWidth(80);
        grid->addWidget(new QLabel(names[i], group), i, 0, Qt::AlignRight);
        grid->addWidget(fields[i], i, 1);
        grid->addWidget(new QLabel(units[i], group), i, 2);
    }
    grid->setColumnStretch(3, 1);

    auto* page = new QVBoxLayout(this);
    page->addWidget(allowed_);
    page->addWidget(
        new QLabel(QStringLiteral("（あらかじめ、インストールされている必要があります。）"), this));
    page->addLayout(appRow);
    page->addWidget(group);
    page->addWidget(new QLabel(QStringLiteral("注）緯度、経度はExifから取得します。\n"
                                              "スピードはGoogle Earth Proには適用されません。"),
                               this));
    page->addStretch(1);
}

QLineEdit* PrefGoogleEarthPage::AddField(const char* name) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QLatin1String(name));
    return field;
}

void PrefGoogleEarthPage::Load(const PrefValues& v) {
    allowed_->setChecked(v.googleEarthAllowed);
    app_->setText(QString::fromStdString(v.googleEarthApp));
    range_->setText(QString::fromStdString(v.range));
    tilt_->setText(QString::fromStdString(v.tilt));
    heading_->setText(QString::fromStdString(v.heading));
    speed_->setText(QString::fromStdString(v.speed));
}

void PrefGoogleEarthPage::Store(PrefValues& v) const {
    v.googleEarthAllowed = allowed_->isChecked();
    v.googleEarthApp = Text(app_);
    v.range = Text(range_);
    v.tilt = Text(tilt_);
    v.heading = Text(heading_);
    v.speed = Text(speed_);
}

void PrefGoogleEarthPage::PushButton6_Action() {
    // Without Google Earth installed its folder is missing; the home folder is the next best.
    const QString folder = QDir(startFolder_).exists() ? startFolder_ : QDir::homePath();
    const auto file = prompter_.OpenFile(this, QStringLiteral("Google Earth"), folder);
    if (!file) return;
    if (locator_.GetGoogleEarthChk(file->toStdString()) != GoogleEarthLocator::kNone) {
        app_->setText(*file);
        return;
    }
    prompter_.CautionOk(this, QStringLiteral("Google Earthではありません。"),
                        QStringLiteral("指定し直して下さい。"), beep_);
}

}  // namespace lumivex
