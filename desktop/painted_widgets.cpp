#include "desktop/painted_widgets.h"

#include "desktop/control_painter.h"
#include "desktop/device_pixels.h"
#include "desktop/fonts.h"
#include "desktop/keyboard.h"
#include "desktop/look.h"
#include "desktop/mouse.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QApplication>
#include <QKeySequence>
#include <QPainter>
#include <QShortcutEvent>
#include <QWheelEvent>

#include <algorithm>

namespace desktop {

namespace {

using platform::ControlClass;

/// The scroll bar that moves what stands at a control: one beside it or beside what it stands in.
platform::ScrollBar* scrollBarFor(platform::Control const& control) {
    for (auto const* at = &control; at->container(); at = at->container())
        for (auto* const other : at->container()->children())
            if (other->control_class() == ControlClass::scroll_bar && other->is_shown() &&
                other->Height > 4 * other->Width)
                return static_cast<platform::ScrollBar*>(other);
    return nullptr;
}

} // namespace

PaintedWidget::PaintedWidget(platform::Control& control, QWidget& parent, EventGate& gate)
    : QLabel(&parent), ControlWidget(control, gate) {
    auto const kind = control.control_class();
    if (kind == ControlClass::picture_box)
        setAttribute(Qt::WA_OpaquePaintEvent);
    if (kind == ControlClass::shape || kind == ControlClass::line)
        setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PaintedWidget::takeOver() {
    if (control()->control_class() == ControlClass::label) {
        auto const& label = static_cast<platform::Label const&>(*control());
        auto const caption = toQt(label.Caption.get());
        if (caption != accessKeyCaption_)
            setAccessibleName(QString(caption).remove(u'&').trimmed());
        takeOverAccessKey(caption);
    }
    update();
}

void PaintedWidget::takeOverAccessKey(QString const& caption) {
    if (caption == accessKeyCaption_)
        return;
    accessKeyCaption_ = caption;
    if (accessKey_ != 0)
        releaseShortcut(accessKey_);
    auto const keys = QKeySequence::mnemonic(caption);
    accessKey_ = keys.isEmpty() ? 0 : grabShortcut(keys);
}

bool PaintedWidget::event(QEvent* event) {
    if (event->type() != QEvent::Shortcut || !control())
        return QLabel::event(event);
    // The access key of a label leads to what comes behind it.
    gate().run([&] { platform::input::walk_focus(*control(), 1); });
    return true;
}

void PaintedWidget::paintEvent(QPaintEvent*) {
    if (!control())
        return;
    QPainter painter(this);
    if (control()->control_class() == ControlClass::label)
        paintLabel(painter, static_cast<platform::Label const&>(*control()), rect(),
                   Ampersand::accessKey);
    else if (control()->control_class() == ControlClass::line) {
        auto const corner = lineBounds(static_cast<platform::Line const&>(*control())).topLeft();
        painter.translate(-corner);
        paintLine(painter, static_cast<platform::Line const&>(*control()));
    } else
        paintControl(painter, *control(), rect());
    if (showsFocus(*this))
        paintFrame(painter, rect(), palette().color(QPalette::Highlight));
}

/// Only a link has the keyboard.
void PaintedWidget::keyPressEvent(QKeyEvent* event) {
    bool const enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter)
        pressByKey();
    else
        QWidget::keyPressEvent(event);
}

void PaintedWidget::pressByKey() {
    if (control())
        gate().run([&] { platform::input::press(*control(), platform::Key::enter); });
}

bool PaintedWidget::takesMouse() const {
    return control() && control()->Enabled;
}

void PaintedWidget::mousePressEvent(QMouseEvent* event) {
    if (takesMouse())
        sendPress(*control(), gate(), *event);
}

void PaintedWidget::mouseMoveEvent(QMouseEvent* event) {
    if (takesMouse())
        sendMove(*control(), gate(), *event);
}

void PaintedWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (control()) // also when the press has disabled it
        sendRelease(*control(), gate(), *event);
}

void PaintedWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (takesMouse())
        sendDoublePress(*control(), gate(), *event);
}

void PaintedWidget::wheelEvent(QWheelEvent* event) {
    auto* const bar = control() ? scrollBarFor(*control()) : nullptr;
    if (!bar)
        return QWidget::wheelEvent(event);
    constexpr int notch = 120;
    int const steps = event->angleDelta().y() * 3 / notch;
    gate().run([&] { platform::input::step(*bar, -steps); });
}

StatusBarWidget::StatusBarWidget(platform::StatusBar& bar, QWidget& parent, EventGate& gate)
    : QWidget(&parent), ControlWidget(bar, gate) {}

void StatusBarWidget::takeOver() {
    auto const& bar = static_cast<platform::StatusBar const&>(*control());
    takeOverLook(bar);
    // Panels only grow, so that what stands beside one does not jump about as its text changes.
    constexpr int padding = 16;
    widths_.resize(static_cast<std::size_t>(bar.panel_count()));
    QStringList texts;
    for (int i = 1; i <= bar.panel_count(); ++i) {
        texts.append(toQt(bar.Panels(i)));
        auto& width = widths_[static_cast<std::size_t>(i - 1)];
        width = std::max(width, fontMetrics().horizontalAdvance(texts.back()) + padding);
    }
    setAccessibleName(texts.join(u';'));
    update();
}

void StatusBarWidget::paintEvent(QPaintEvent*) {
    if (!control())
        return;
    auto const& bar = static_cast<platform::StatusBar const&>(*control());
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
    int left = 0;
    for (int i = 1; i <= std::min(bar.panel_count(), static_cast<int>(widths_.size())); ++i) {
        int const panel = widths_[static_cast<std::size_t>(i - 1)];
        QRect const place(left, 1, panel, height() - 1);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(place.adjusted(4, 0, -4, 0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         toQt(bar.Panels(i)));
        left += panel;
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(left, 4, left, height() - 4);
        left += 1;
    }
}

} // namespace desktop
