// The real program with a hand on the mouse: which buttons are down is kept from event to event.
#pragma once

#include "desktop/drag.h"
#include "platform/system.h"
#include "tests/desktop/real_program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>

namespace kehystin {

class MouseProgram : public RealProgram {
  protected:
    /// Starts on a card with nothing that snaps, so that fields go where the mouse goes.
    void start_free(QString const& file) {
        start(file);
        action(QStringLiteral("Tartu ruudukkoon"))->trigger();
        ASSERT_FALSE(fEditor->cmd_grid_snap.Checked);
    }

    /// Does what opens a dialog, `use`s it when it is up, and closes it where it still stands.
    static void in_dialog(std::function<void()> const& open,
                          std::function<void(QWidget&)> const& use) {
        auto* const before = QApplication::activeModalWidget();
        bool used = false;
        QTimer waiting;
        waiting.callOnTimeout([&] {
            QPointer<QWidget> const modal = QApplication::activeModalWidget();
            if (used || !modal || modal == before || !modal->isVisible())
                return;
            used = true;
            QCoreApplication::processEvents();
            use(*modal);
            if (modal && modal == QApplication::activeModalWidget())
                modal->close();
        });
        waiting.start(std::chrono::milliseconds(10));
        open();
        EXPECT_TRUE(used);
    }

    void press(QPoint point, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton) {
        down |= button;
        send(*canvas(), QEvent::MouseButtonPress, point, button, modifiers);
    }
    void move(QPoint point) { send(*canvas(), QEvent::MouseMove, point, Qt::NoButton); }
    void release(QPoint point, Qt::KeyboardModifiers modifiers = {},
                 Qt::MouseButton button = Qt::LeftButton) {
        down &= ~Qt::MouseButtons(button);
        send(*canvas(), QEvent::MouseButtonRelease, point, button, modifiers);
    }
    void click(QPoint point, Qt::KeyboardModifiers modifiers = {}) {
        press(point, modifiers);
        release(point, modifiers);
    }
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
        press(from, modifiers);
        move((from + to) / 2);
        move(to);
        release(to, modifiers);
    }
    void send(QWidget& to, QEvent::Type type, QPoint point, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(type, point, to.mapToGlobal(point), button, down, modifiers);
        QCoreApplication::sendEvent(&to, &event);
    }

    static QRect place_of(int number) {
        auto const& one = field(number);
        return {one.left, one.top, one.width, one.height};
    }
    static QPoint middle_of(int number) { return place_of(number).center(); }
    static QList<int> selected() {
        QList<int> found;
        for (int i = 1; i <= card.fields; ++i)
            if (fCard->focus(i).Visible)
                found.append(i);
        return found;
    }
    static bool is_mouse_free() { return !System::current().mouse().captured; }

    QWidget& widget(char const* name) {
        auto* const found = find_child<QWidget>(*window(), [&](QWidget& one) {
            return one.objectName() == QLatin1String(name) && one.isVisible();
        });
        EXPECT_TRUE(found) << name;
        return found ? *found : *window();
    }

    /// What a real drag sends to the widget under it: false when the pointer said that it would
    /// not drop there.
    static bool drop(QMimeData const& data, QWidget& onto, QPoint point) {
        QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QDragMoveEvent over(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&onto, &enter);
        QCoreApplication::sendEvent(&onto, &over);
        if (!onto.acceptDrops() || !enter.isAccepted() || !over.isAccepted())
            return false;
        QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&onto, &drop);
        return true;
    }
    /// Presses a button of the field bar and moves until the drag begins. Without a screen Qt gives
    /// it up at once; what it would have carried is then dropped by hand.
    std::unique_ptr<QDrag> drag_from_bar(char const* name) {
        auto& from = widget(name);
        auto const start = from.rect().center();
        down = Qt::LeftButton;
        send(from, QEvent::MouseButtonPress, start, Qt::LeftButton);
        send(from, QEvent::MouseMove, start + QPoint(3, 3), Qt::NoButton);
        down = {};
        send(from, QEvent::MouseButtonRelease, start + QPoint(3, 3), Qt::LeftButton);
        EXPECT_TRUE(is_mouse_free()) << name;
        EXPECT_FALSE(qobject_cast<QAbstractButton*>(&from)->isDown()) << name;
        auto* const button = fEditor->find(name);
        return std::unique_ptr<QDrag>(
            desktop::makeDrag(from, static_cast<platform::Button&>(*button)));
    }

    Qt::MouseButtons down;
};

} // namespace kehystin
