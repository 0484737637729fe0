#include "browser/GridInput.h"

#include <QMenu>
#include <QScrollBar>
#include <map>

#include "browser/GridAccessible.h"
#include "browser/MainWindow.h"
#include "browser/ThumbnailCanvas.h"
#include "model/ScanController.h"

namespace lumivex {

GridInput::GridInput(const Window& window) : w_(window) {
    ThumbnailCanvas* canvas = &w_.canvas;
    connect(canvas, &ThumbnailCanvas::keyPressed, this, &GridInput::Key);
    connect(canvas, &ThumbnailCanvas::menuKeyPressed, this, &GridInput::OpenMenu);
    connect(canvas, &ThumbnailCanvas::pressed, this, &GridInput::Pressed);
    connect(canvas, &ThumbnailCanvas::wheelLines, this, &GridInput::Lines);
    connect(canvas, &ThumbnailCanvas::wheelPixels, this, &GridInput::Pixels);
}

void GridInput::Key(int key, Qt::KeyboardModifiers modifiers) {
    static const std::map<int, GridKey> moves{
        {Qt::Key_Left, GridKey::Left},     {Qt::Key_Right, GridKey::Right},
        {Qt::Key_Up, GridKey::Up},         {Qt::Key_Down, GridKey::Down},
        {Qt::Key_PageUp, GridKey::PageUp}, {Qt::Key_PageDown, GridKey::PageDown},
        {Qt::Key_Home, GridKey::Home},     {Qt::Key_End, GridKey::End},
    };
    if (const auto it = moves.find(key); it != moves.end()) {
        Move(it->second, modifiers.testFlag(Qt::ShiftModifier));
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        OpenInfo();
    } else if (key == Qt::Key_F10) {
        OpenMenu();
    }
}

void GridInput::Move(GridKey key, bool shift) {
    auto& items = w_.scan.Items();
    const int to = GridNavigation::Target(items, w_.selection, key, w_.canvas.height());
    if (to < 0) return;
    w_.window.SetBtnStat(w_.selection.KeyMoveTo(items, to, shift));
    ShowCurrent();
    w_.canvas.update();
    GridAccessible::AnnounceFocus(&w_.canvas, to);
}

void GridInput::OpenInfo() {
    if (w_.selection.pCidxFlg == 1) w_.window.SelFileExifGPS(w_.selection.pCidx);
}

// As a right click on the current item: an item not selected becomes the selection.
void GridInput::OpenMenu() {
    auto& items = w_.scan.Items();
    const int current = w_.canvas.Current();
    if (current < 0) return;
    const ItemRecord& item = items[static_cast<std::size_t>(current)];
    if (!item.selected) {
        w_.window.SetBtnStat(w_.selection.KeyMoveTo(items, current, false));
        w_.canvas.update();
    }
    ShowCurrent();
    QMenu* menu = w_.window.BuildContextMenu(&w_.window);
    if (menu == nullptr) return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPoint centre(item.x + item.w / 2, item.y + item.h / 2 - w_.canvas.ScrollY());
    menu->popup(w_.canvas.mapToGlobal(centre));
}

// The window's own handler has chosen by then: a click that selected moves the focus too.
void GridInput::Pressed() {
    const int current = w_.canvas.Current();
    if (current >= 0 && w_.scan.Items()[static_cast<std::size_t>(current)].selected)
        GridAccessible::AnnounceFocus(&w_.canvas, current);
}

void GridInput::Lines(int lines) {
    if (w_.bar.isEnabled()) w_.bar.setValue(w_.bar.value() + lines * MainWindow::kLineStep);
}

void GridInput::Pixels(int pixels) {
    if (w_.bar.isEnabled() && !w_.scan.Items().empty()) w_.bar.setValue(w_.bar.value() + pixels);
}

void GridInput::ShowCurrent() {
    const int current = w_.canvas.Current();
    if (current < 0) return;
    w_.bar.setValue(GridNavigation::ScrollToShow(w_.scan.Items()[static_cast<std::size_t>(current)],
                                                 w_.scan.Layout(), w_.bar.value(),
                                                 w_.canvas.height()));
}

}  // namespace lumivex
