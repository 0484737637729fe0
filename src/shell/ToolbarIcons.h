#pragma once
// The toolbar's pictures: the desktop theme's icon of a freedesktop name where the theme has
// one, else the program's own drawing of that name; the globe is always the program's own.
#include <QIcon>
#include <QString>

namespace lumivex {

class ToolbarIcons {
  public:
    static QIcon Icon(const QString& name);
    static QIcon Globe();
    // The program's own drawing alone, with no theme in front of it.
    static QIcon Fallback(const QString& name);
};

}  // namespace lumivex
