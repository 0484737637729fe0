#include "sidebar/SidebarIcons.h"

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

QPixmap SidebarIcons::RowPixmap(Kind kind, bool alias, int size, qreal devicePixelRatio) {
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
