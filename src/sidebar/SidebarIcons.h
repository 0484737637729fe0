#pragma once
// The pictures of the sidebar's rows: the desktop theme's drive and folder icons where the
// theme has them, the program's own black drawings otherwise, and a link badge for aliases.
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace lumivex {

class SidebarIcons {
  public:
    enum class Kind { InternalDrive, ExternalDrive, Folder };

    // "/" is the internal drive, any other volume an external one, the rest folders.
    static Kind KindOf(const QString& vofo, const QString& path);
    // The freedesktop icon name of a kind, which also names the fallback in :/icons.
    static QString ThemeName(Kind kind);
    static QIcon Icon(Kind kind);
    // The row's picture at `size` logical pixels, with the badge for an alias. Made once and
    // kept, so that painting rows again makes no new pictures.
    static QPixmap RowPixmap(Kind kind, bool alias, int size, qreal devicePixelRatio);

  private:
    static constexpr int kMaxPictures = 64;
    static QPixmap MakePixmap(Kind kind, bool alias, int size, qreal devicePixelRatio);
};

}  // namespace lumivex
