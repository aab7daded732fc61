#include "desktop/window_place.h"

#include "desktop/look.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

namespace desktop {

namespace {

int within(int wanted, int first, int last) {
    return std::max(first, std::min(wanted, last));
}

/// The values that one coordinate of the best place can have: the usual one, those at the room's
/// edges, and those that touch what is to stay in sight from before or behind.
struct Candidates {
    Candidates(int usual, int first, int last)
        : first_(first),
          last_(last),
          all{within(usual, first, last), first, std::max(first, last)} {}

    void add(int value) {
        if (value >= first_ && value <= last_)
            all.push_back(value);
    }
    void makeUnique() {
        std::sort(all.begin(), all.end());
        all.erase(std::unique(all.begin(), all.end()), all.end());
    }

  private:
    int first_, last_;

  public:
    std::vector<int> all;
};

/// How many of what stands across a column of places would be covered at a height of it.
class Column {
  public:
    Column(int left, QSize size, QList<QRect> const& inSight) {
        for (auto const& one : inSight) {
            if (one.right() < left || one.left() >= left + size.width())
                continue;
            begins_.push_back(one.top() - size.height() + 1);
            ends_.push_back(one.bottom() + 1);
        }
        std::sort(begins_.begin(), begins_.end());
        std::sort(ends_.begin(), ends_.end());
    }
    qsizetype coveredAt(int top) const { return countUpTo(begins_, top) - countUpTo(ends_, top); }

  private:
    static qsizetype countUpTo(std::vector<int> const& sorted, int value) {
        return std::upper_bound(sorted.begin(), sorted.end(), value) - sorted.begin();
    }
    std::vector<int> begins_;
    std::vector<int> ends_;
};

qint64 squared(int length) {
    return qint64{length} * length;
}

qint64 sharedArea(QRect const& one, QRect const& other) {
    auto const shared = one & other;
    return shared.isEmpty() ? 0 : qint64{shared.width()} * shared.height();
}

} // namespace

QRect roomFor(QWidget const* owner) {
    auto const* const screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
    return screen->availableGeometry();
}

QMargins frameFor(QWidget const* owner) {
    QMargins const guess(frameWidth, frameWidth + captionHeight, frameWidth, frameWidth);
    if (!owner)
        return guess;
    auto const outer = owner->window()->frameGeometry();
    auto const inner = owner->window()->geometry();
    QMargins const frame(inner.left() - outer.left(), inner.top() - outer.top(),
                         outer.right() - inner.right(), outer.bottom() - inner.bottom());
    return frame | guess; // a window that fills the screen may have no edges
}

void waitUntilPlaced(QWidget const* window) {
    auto const* const handle = window ? window->window()->windowHandle() : nullptr;
    QElapsedTimer waited;
    waited.start();
    constexpr int longest = 500; // milliseconds
    while (handle && handle->isVisible() && !handle->isExposed() && waited.elapsed() < longest)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
}

QPoint placeInSightOf(QSize size, QRect const& room, QPoint usual, QList<QRect> const& inSight) {
    Candidates lefts(usual.x(), room.left(), room.right() + 1 - size.width());
    Candidates tops(usual.y(), room.top(), room.bottom() + 1 - size.height());
    for (auto const& one : inSight) {
        lefts.add(one.left() - size.width());
        lefts.add(one.right() + 1);
        tops.add(one.top() - size.height());
        tops.add(one.bottom() + 1);
    }
    lefts.makeUnique();
    tops.makeUnique();
    auto fewest = std::tuple(std::numeric_limits<qsizetype>::max(), qint64{0});
    QPoint best;
    for (int const left : lefts.all) {
        Column const column(left, size, inSight);
        for (int const top : tops.all) {
            auto const distance = squared(left - usual.x()) + squared(top - usual.y());
            if (auto const cost = std::tuple(column.coveredAt(top), distance); cost < fewest) {
                fewest = cost;
                best = {left, top};
            }
        }
    }
    return best;
}

QRect roomBeside(QRect const& other, QRect const& room, QSize wanted, QSize least) {
    auto const top = room.top();
    auto const left = room.left();
    QRect const right(QPoint(other.right() + 1, top), room.bottomRight());
    QRect const before(QPoint(left, top), QPoint(other.left() - 1, room.bottom()));
    QRect const below(QPoint(left, other.bottom() + 1), room.bottomRight());
    QRect const above(QPoint(left, top), QPoint(room.right(), other.top() - 1));
    auto const middleOf = [&](QSize size) {
        return other.center() - QPoint(size.width(), size.height()) / 2;
    };
    for (auto const& strip : {right, before, below, above}) {
        if (strip.width() < least.width() || strip.height() < least.height())
            continue;
        auto const size = wanted.boundedTo(strip.size());
        return {placeInSightOf(size, strip, middleOf(size), {}), size};
    }
    auto const size = wanted.boundedTo({room.width() / 2, room.height()})
                          .expandedTo(least)
                          .boundedTo(room.size());
    auto best = QRect(placeInSightOf(size, room, middleOf(size), {}), size);
    int const last = room.right() + 1 - size.width();
    int const lowest = room.bottom() + 1 - size.height();
    // At equal cover an edge is better than the middle.
    for (auto const place : {QPoint(best.left(), top), QPoint(best.left(), lowest),
                             QPoint(left, best.top()), QPoint(last, best.top())})
        if (QRect const tried(place, size); sharedArea(tried, other) <= sharedArea(best, other))
            best = tried;
    return best;
}

} // namespace desktop
