#pragma once
// The thumbnail pane (Canvas1): paints the items that lie in the visible band of the content
// at the scroll offset, each with its frame and label, then the selection frames. Nothing is
// buffered as tall as the content, so a folder of 10,000 thumbnails scrolls like one of 100.
// It decides nothing: presses, moves, keys and wheel turns go out as signals in pane
// coordinates. It takes the keyboard focus on a click and on Tab, and while it has it the
// current item wears a dotted frame.
#include <QFont>
#include <QTimer>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "model/GridLayout.h"
#include "model/ItemRecord.h"
#include "model/ItemSelection.h"
#include "model/ThumbnailCache.h"

namespace lumivex {

class ThumbnailCanvas : public QWidget {
    Q_OBJECT

  public:
    explicit ThumbnailCanvas(QWidget* parent = nullptr);

    // The items and layout to draw, and the cache their pictures are decoded into; all stay
    // owned by the window, which empties the cache with the list. Every item in the vector
    // is drawn: the window appends only complete items, on the main thread. Painting only
    // reads them: a label is cut where the layout marked it "compact".
    void SetItems(const std::vector<ItemRecord>* items, const GridLayout* layout,
                  ThumbnailCache* pictures);
    // The selection whose pCidx is the current item; owned by the window.
    void SetSelection(const ItemSelection* selection);
    void SetColors(int background, int selection);  // pBkClr, pSeClr as 0xRRGGBB
    void SetFullNames(bool full);                   // gPref(33): labels with the extension
    void SetScrollY(int y);                         // the content row at the pane's top
    int ScrollY() const { return scrollY_; }
    const std::vector<ItemRecord>& Items() const;
    // The index of the current item; -1 when there are no items.
    int Current() const;

    // The label of an item as drawn: the name without its extension unless full names are on.
    QString LabelOf(const ItemRecord& item) const;
    // The drawn width of a label in the label font, for the layout's cut decision.
    int TextWidth(const std::string& label) const;
    const QFont& LabelFont() const { return font_; }

  signals:
    // A press at pane coordinates (add ScrollY() for content coordinates).
    void pressed(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void moved(int x, int y);
    // Wheel turns in lines (positive downwards), already converted from angle deltas: one
    // notch is one line; the fine steps of a wheel that gives no pixels add up to whole lines.
    void wheelLines(int lines);
    // The pixels of a touchpad or a high-resolution wheel (positive downwards), when the
    // event carries them: scrolled as they are, not rounded to notches.
    void wheelPixels(int pixels);
    // A key of the grid's own (arrows, pages, Home, End, Enter, Shift+F10) without Ctrl or Alt.
    void keyPressed(int key, Qt::KeyboardModifiers modifiers);
    // The keyboard asked for the contextual menu (the Menu key).
    void menuKeyPressed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    int FontSize() const { return layout_ ? layout_->pFsize : 12; }
    // DrawCanvasDoc: one item, its frame and its label.
    void DrawCanvasDoc(QPainter& p, std::size_t index);
    // DrawCanvasDocRect: a label too wide for the cell, cut with "..." over a fading end, in
    // a strip w wide whose top left is (x, y).
    void DrawCanvasDocRect(QPainter& p, const QString& label, int x, int y, int w);
    // DrawSelectItem: the 2-pixel frames of the selected items among [first, last).
    void DrawSelectItem(QPainter& p, std::size_t first, std::size_t last);
    // The focus frame: dotted, one pixel, in the gap between the selection frames.
    void DrawFocusFrame(QPainter& p);
    // The index range [first, last) of items that may reach into the band [top, bottom) of
    // the content: from the first item of the row that holds `top` to the last item whose
    // selection frame starts above `bottom`. Items lie in index order with y never falling,
    // and a row's labels end in the gap before the next row, so two binary searches do.
    // The row that holds `top` is drawn whole, whatever the heights of its items.
    std::pair<std::size_t, std::size_t> VisibleRange(int top, int bottom) const;
    // While the event loop idles, decodes a few pictures at a time of the screens above and
    // below the shown one, so that a scroll of up to a page finds them.
    void PrefetchStep();

    const std::vector<ItemRecord>* items_ = nullptr;
    const GridLayout* layout_ = nullptr;
    const ItemSelection* selected_ = nullptr;
    ThumbnailCache* pictures_ = nullptr;
    QTimer prefetch_;
    std::pair<std::size_t, std::size_t> neighbours_{0, 0};  // the band PrefetchStep fills
    QColor background_{0xFF, 0xFF, 0xFF};
    QColor selection_{0x35, 0x84, 0xE4};
    bool fullNames_ = false;
    int scrollY_ = 0;
    int wheelRest_ = 0;  // angle delta not yet worth a whole line, in eighths of a degree
    QFont font_;
};

}  // namespace lumivex
