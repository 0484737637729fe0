#pragma once
// Watches the main window from a starting moment: when the grid's first screenful was painted,
// when a paint first showed the whole folder once its scan had ended, and the longest pause of
// the main thread, seen as the longest gap between the beats of a 2 ms timer.
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QObject>
#include <QTimer>
#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "browser/MainWindow.h"
#include "browser/ThumbnailCanvas.h"

namespace bench {

class PaintClock : public QObject {
  public:
    struct Figures {
        double firstScreenMs = -1;  // -1: never happened
        double allMs = -1;
        double longestPauseMs = 0;
        double pauseAtMs = 0;  // when the longest pause began
    };

    PaintClock(lumivex::MainWindow& w, std::size_t total) : w_(w), total_(total) {
        w_.Canvas()->installEventFilter(this);
        beat_.setTimerType(Qt::PreciseTimer);
        beat_.setInterval(2);
        connect(&beat_, &QTimer::timeout, this, &PaintClock::Beat);
    }

    // Starts the clock; `ready` says when the whole folder is in the model. Runs the event
    // loop until a paint has shown it, or `limitMs` passed.
    template <typename Ready>
    Figures Run(QElapsedTimer& clock, Ready ready, int limitMs) {
        clock_ = &clock;
        f_ = Figures{};
        paints_.clear();
        lastBeat_ = clock.nsecsElapsed();
        QEventLoop loop;
        QTimer limit;
        limit.setSingleShot(true);
        connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
        done_ = [&] {
            if (f_.allMs < 0 && ready()) {
                w_.Canvas()->update();  // the finished grid, painted once more
                readyAt_ = true;
            }
            if (f_.allMs >= 0) loop.quit();
        };
        beat_.start();
        limit.start(limitMs);
        loop.exec();
        beat_.stop();
        readyAt_ = false;
        done_ = nullptr;
        return f_;
    }

  protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (o != w_.Canvas() || e->type() != QEvent::Paint || inPaint_ || clock_ == nullptr)
            return false;
        // The canvas paints here, inside its own paint event, so that the time read after it
        // is the time the screen was drawn.
        inPaint_ = true;
        static_cast<QObject*>(w_.Canvas())->event(e);
        inPaint_ = false;
        const double now = Ms();
        paints_.push_back({now, w_.Items().size()});
        if (f_.allMs < 0 && readyAt_) {
            f_.allMs = now;
            f_.firstScreenMs = FirstScreen();
        }
        if (done_) done_();
        return true;
    }

  private:
    // The first paint that held every item of the first screen. Whether a screen is whole is
    // known only from the final layout: the items that start above the pane's bottom. A paint
    // comes only when an arriving item is visible, so the item just below the screen may
    // never have been painted.
    double FirstScreen() const {
        const auto& items = w_.Items();
        const int bottom = w_.Canvas()->height();
        std::size_t needed = 0;
        while (needed < items.size() && items[needed].y < bottom)
            ++needed;
        for (const auto& [at, count] : paints_)
            if (count >= needed) return at;
        return -1;
    }

    double Ms() const { return static_cast<double>(clock_->nsecsElapsed()) / 1e6; }

    void Beat() {
        const qint64 now = clock_->nsecsElapsed();
        const double gap = static_cast<double>(now - lastBeat_) / 1e6;
        if (gap > f_.longestPauseMs) {
            f_.longestPauseMs = gap;
            f_.pauseAtMs = static_cast<double>(lastBeat_) / 1e6;
        }
        lastBeat_ = now;
        if (done_) done_();
    }

    lumivex::MainWindow& w_;
    std::size_t total_;
    QTimer beat_;
    QElapsedTimer* clock_ = nullptr;
    qint64 lastBeat_ = 0;
    Figures f_;
    std::vector<std::pair<double, std::size_t>> paints_;  // time and item count of each paint
    bool inPaint_ = false;
    bool readyAt_ = false;
    std::function<void()> done_;
};

}  // namespace bench
