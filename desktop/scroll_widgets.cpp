#include "desktop/scroll_widgets.h"

#include "desktop/device_pixels.h"
#include "desktop/keyboard.h"
#include "desktop/spoken_arrows.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

platform::ScrollBar& barOf(platform::Control* control) {
    return static_cast<platform::ScrollBar&>(*control);
}

} // namespace

ScrollBarWidget::ScrollBarWidget(platform::ScrollBar& bar, QWidget& parent, EventGate& gate)
    : QScrollBar(&parent), ControlWidget(bar, gate) {
    setOrientation(bar.Width > bar.Height ? Qt::Horizontal : Qt::Vertical);
    connect(this, &QScrollBar::valueChanged, this, [this](int value) {
        if (control() && !this->gate().isRefreshing())
            this->gate().run([&] { platform::input::scroll(barOf(control()), turned(value)); });
    });
}

void ScrollBarWidget::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!showsFocus(*this))
        return;
    QPainter painter(this);
    paintFrame(painter, rect(), palette().color(QPalette::Highlight));
}

int ScrollBarWidget::turned(int value) const {
    auto const& bar = barOf(control());
    return bar.Min > bar.Max ? bar.Min + bar.Max - value : value;
}

void ScrollBarWidget::takeOver() {
    auto const& bar = barOf(control());
    setRange(std::min(bar.Min.get(), bar.Max.get()), std::max(bar.Min.get(), bar.Max.get()));
    setSingleStep(bar.SmallChange);
    setPageStep(bar.LargeChange);
    setValue(turned(bar.Value));
}

ArrowPair::ArrowPair(platform::ScrollBar& bar, QWidget& parent, EventGate& gate)
    : QWidget(&parent), ControlWidget(bar, gate) {
    letArrowsSpeak();
    constexpr int repeatDelay = 60; // milliseconds between steps while an arrow is held
    repeat_.setInterval(repeatDelay);
    repeat_.callOnTimeout(this, [this] {
        repeat_.setInterval(repeatDelay);
        step(held_);
    });
}

void ArrowPair::takeOver() {
    auto const value = barOf(control()).Value.get();
    if (std::exchange(told_, value) == value || !QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent changed(this, value);
    QAccessible::updateAccessibility(&changed);
}

void ArrowPair::scrollTo(int value) {
    if (control())
        gate().run([&] { platform::input::scroll(barOf(control()), value); });
}

void ArrowPair::step(Arrow arrow) {
    if (!control() || arrow == Arrow::none)
        return;
    gate().run([&] { platform::input::step(barOf(control()), arrow == Arrow::up ? -1 : 1); });
}

void ArrowPair::hold(Arrow arrow) {
    held_ = arrow;
    update();
    if (arrow == Arrow::none) {
        repeat_.stop();
        return;
    }
    step(arrow);
    constexpr int firstDelay = 400; // milliseconds before a held arrow repeats
    repeat_.start(firstDelay);
}

void ArrowPair::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    paintFrame(painter, rect(),
               palette().color(showsFocus(*this) ? QPalette::Highlight : QPalette::Dark));
    int const half = height() / 2;
    if (held_ != Arrow::none) {
        QRect const pressed(1, held_ == Arrow::up ? 1 : half, width() - 2, height() - half - 1);
        painter.fillRect(pressed, palette().color(QPalette::Mid));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ButtonText));
    double const middle = width() / 2.0;
    double const above = half / 2.0 + 1;
    double const below = height() - above;
    painter.drawPolygon(
        QPolygonF({{middle - 3, above + 1.5}, {middle + 3, above + 1.5}, {middle, above - 1.5}}));
    painter.drawPolygon(
        QPolygonF({{middle - 3, below - 1.5}, {middle + 3, below - 1.5}, {middle, below + 1.5}}));
}

void ArrowPair::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        hold(event->position().y() < height() / 2.0 ? Arrow::up : Arrow::down);
}

void ArrowPair::mouseReleaseEvent(QMouseEvent*) {
    hold(Arrow::none);
}

void ArrowPair::leaveEvent(QEvent*) {
    hold(Arrow::none);
}

void ArrowPair::hideEvent(QHideEvent*) {
    hold(Arrow::none); // the release goes to what shows instead
}

void ArrowPair::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up)
        step(Arrow::up);
    else if (event->key() == Qt::Key_Down)
        step(Arrow::down);
    else
        QWidget::keyPressEvent(event);
}

void ArrowPair::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() != 0)
        step(event->angleDelta().y() > 0 ? Arrow::up : Arrow::down);
    event->accept();
}

ControlWidget* makeScrollWidget(platform::ScrollBar& bar, QWidget& parent, EventGate& gate) {
    // Shorter than this there is no room for a thumb between the arrows.
    constexpr int shortest = 3;
    auto const size = rectOf(bar).size();
    if (std::max(size.width(), size.height()) < shortest * std::min(size.width(), size.height()))
        return new ArrowPair(bar, parent, gate);
    return new ScrollBarWidget(bar, parent, gate);
}

} // namespace desktop
