#include "shell/ToolbarIcons.h"

// The drawings live in the GUI library, a static library: without this reference the linker
// would leave their registration out of the program.
static void InitToolbarResources() {
    Q_INIT_RESOURCE(resources);
}

namespace lumivex {

QIcon ToolbarIcons::Fallback(const QString& name) {
    static const bool registered = (InitToolbarResources(), true);
    (void)registered;
    return QIcon(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
}

QIcon ToolbarIcons::Icon(const QString& name) {
    return QIcon::fromTheme(name, Fallback(name));
}

QIcon ToolbarIcons::Globe() {
    return Fallback(QStringLiteral("globe"));
}

}  // namespace lumivex
