#include "prefs/AboutPanel.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>

#include "core/AppId.h"
#include "core/Version.h"
#include "prefs/HelpLinks.h"

namespace lumivex {

AboutPanel::AboutPanel(QWidget* parent) : QDialog(parent) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint);
    setWindowTitle(QString());
    setFixedSize(420, 260);
    setModal(true);

    QIcon icon = QApplication::windowIcon();
    if (icon.isNull()) icon = QIcon(QString::fromLatin1(kAppIconResource));
    auto* picture = AddLabel("ImageWell1", QString(), QRect(40, 22, 64, 64));
    picture->setPixmap(icon.pixmap(64, 64));

    QLabel* name = AddLabel("StaticText1", QStringLiteral("Lumivex Plus"), QRect(130, 22, 160, 50));
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 1.8);
    big.setBold(true);
    name->setFont(big);
    name->setAlignment(Qt::AlignCenter);

    QLabel* kind =
        AddLabel("Label1", QStringLiteral("Universal Application"), QRect(140, 65, 140, 20));
    kind->setEnabled(false);
    kind->setAlignment(Qt::AlignCenter);

    AddLabel("StaticText3", VersionText(), QRect(160, 102, 100, 14))->setAlignment(Qt::AlignCenter);
    QLabel* credits = AddLabel("StaticText2", Credits(), QRect(40, 142, 340, 110));
    credits->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    QFont small = credits->font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    credits->setFont(small);
}

QLabel* AboutPanel::AddLabel(const char* name, const QString& text, const QRect& frame) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setGeometry(frame);
    return label;
}

QString AboutPanel::VersionText() {
    return QStringLiteral("Ver. ") + QString::fromUtf8(kVersionString);
}

QString AboutPanel::Credits() {
    return QStringLiteral("作者：ZenmoraWorksJP\n\n") + QString::fromUtf8(HelpLinks::kHomePage) +
           QStringLiteral("\n\nC++20 / Qt 6 for Linux\n\nCopyright © 2026 ZenmoraWorksJP");
}

void AboutPanel::mousePressEvent(QMouseEvent* event) {
    event->accept();
    accept();
}

void AboutPanel::GenAboutPanel(QWidget* parent) {
    AboutPanel panel(parent);
    panel.exec();
}

}  // namespace lumivex
