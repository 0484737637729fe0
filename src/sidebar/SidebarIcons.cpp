#include "sidebar/SidebarIcons.h"

#include <QHash>
#include <QPainter>

// The icons live in the GUI library, a static library: without this reference the linker
// would leave their registration out of the program.
static void InitSidebarResources() {
    Q_INIT_RESOURCE(resources);
}

namespace lumivex {

SidebarIcons::Kind SidebarIcons::KindOf(const QString& vofo, const QString& path) {
    if (path == QLatin1String("/")) return Kind::InternalDrive;
    if (vofo == QLatin1String("volume")) return Kind::ExternalDrive;
    return Kind::Folder;
}

QString SidebarIcons::ThemeName(Kind kind) {
    switch (kind) {
        case Kind::InternalDrive:
            return QStringLiteral("drive-harddisk");
        case Kind::ExternalDrive:
            return QStringLiteral("drive-removable-media");
        case Kind::Folder:
            break;
    }
    return QStringLiteral("folder");
}

QIcon SidebarIcons::Icon(Kind kind) {
    static const bool registered = (InitSidebarResources(), true);
    (void)registered;
    const QString name = ThemeName(kind);
    return QIcon::fromTheme(name, QIcon(QStringLiteral(":/icons/") + name + ".svg"));
}

// Rows are painted again at every change of the list. A QIcon made anew for each paint puts a
// new entry into Qt's pixmap cache each time, and those pile up (a few kB per mounted card)
// until the cache's 10 MB limit; one picture per kind, badge and size is all a row needs.
QPixmap SidebarIcons::RowPixmap(Kind kind, bool alias, int size, qreal devicePixelRatio) {
    static QHash<QString, QPixmap> made;
    const QString key = QStringLiteral("%1/%2/%3/%4")
                            .arg(static_cast<int>(kind))
                            .arg(alias)
                            .arg(size)
                            .arg(devicePixelRatio);
    if (const auto it = made.constFind(key); it != made.constEnd()) return *it;
    // Sizes and screens are few; the bound only guards against a caller that varies them.
    if (made.size() >= kMaxPictures) made.clear();
    return made[key] = MakePixmap(kind, alias, size, devicePixelRatio);
}

QPixmap SidebarIcons::MakePixmap(Kind kind, bool alias, int size, qreal devicePixelRatio) {
    QPixmap pixmap = Icon(kind).pixmap(QSize(size, size), devicePixelRatio);
    if (!alias || pixmap.isNull()) return pixmap;
    static const QIcon badge(QStringLiteral(":/icons/alias-badge.svg"));
    QPainter painter(&pixmap);
    const int side = std::max(6, size / 2);
    // Bottom left, where file managers put their link emblem.
    painter.drawPixmap(QRect(0, size - side, side, side),
                       badge.pixmap(QSize(side, side), devicePixelRatio));
    return pixmap;
}

}  // namespace lumivex
