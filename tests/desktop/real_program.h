// The real program in real windows, with its settings in a folder that goes with it.
#pragma once

#include "app/program.h"
#include "desktop/card_canvas.h"
#include "desktop/qt_host.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QImage>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <gtest/gtest.h>

namespace kehystin {

/// Waits until a condition holds, letting events pass; false when it does not within some seconds.
inline bool soon(std::function<bool()> const& condition) {
    return QTest::qWaitFor(condition, 5000);
}

/// The child of a widget that is of a class and satisfies a test; null without one.
template <class Widget>
Widget* find_child(QWidget& in, std::function<bool(Widget&)> const& test = nullptr) {
    for (auto* const child : in.findChildren<Widget*>())
        if (!test || test(*child))
            return child;
    return nullptr;
}

/// Presses the button of that caption in the next message box, and keeps what the box said.
class NextBox {
  public:
    explicit NextBox(QString button) : button_(std::move(button)) {
        timer_.callOnTimeout([this] { press(); });
        timer_.start(20);
    }
    bool was_shown() const { return shown_; }
    QString const& text() const { return text_; }
    QStringList const& buttons() const { return buttons_; }

  private:
    void press() {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || shown_)
            return;
        text_ = box->text();
        for (auto* const button : box->buttons())
            buttons_ += button->text().remove(QLatin1Char('&'));
        for (auto* const button : box->buttons())
            if (button->text().remove(QLatin1Char('&')) == button_) {
                shown_ = true;
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
    }

    QString button_;
    QString text_;
    QStringList buttons_;
    bool shown_ = false;
    QTimer timer_;
};

/// What a user does with the next box of a class, once it is up.
template <class Box>
class WhileOpen {
  public:
    explicit WhileOpen(std::function<void(Box&)> then) : then_(std::move(then)) {
        timer_.callOnTimeout([this] {
            auto* const box = qobject_cast<Box*>(QApplication::activeModalWidget());
            if (!box || !QTest::qWaitForWindowActive(box))
                return;
            timer_.stop();
            then_(*box);
            // On Windows a loop inside of this one takes the word that this one is to end.
            QAbstractEventDispatcher::instance()->wakeUp();
        });
        timer_.start(20);
    }

  private:
    std::function<void(Box&)> then_;
    QTimer timer_;
};

class RealProgram : public testing::Test {
  protected:
    /// Starts the program on a card (or none) and lets the windows settle.
    void start(QString const& file = {}) {
        qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
        qputenv("XDG_STATE_HOME", folder.filePath(QStringLiteral("state")).toUtf8());
        qputenv("APPDATA", folder.filePath(QStringLiteral("state")).toUtf8()); // both, on Windows
        host = make_host(file.isEmpty() ? QStringList() : QStringList(file));
        program = std::make_unique<Program>(*host);
        host->run([&] {
            program->Main();
            QTimer::singleShot(0, qApp, [] { QApplication::exit(); });
        });
        ASSERT_TRUE(soon([&] {
            return window() && window()->isVisible() && !host->timers().isAnyShorterThan(100);
        }));
    }
    virtual std::unique_ptr<desktop::QtHost> make_host(QStringList const& arguments) {
        return std::make_unique<desktop::QtHost>(arguments);
    }
    QWidget* window() { return host->mainWindow(); }

    /// The window of the card inside the main window, by its Qt class.
    QWidget* card_window() {
        return find_child<QWidget>(*window(), [](QWidget& widget) {
            return widget.inherits("QMdiSubWindow") && !widget.isHidden();
        });
    }
    /// The inside of the card, as painted.
    QWidget* canvas() {
        return find_child<QWidget>(*card_window(), [](QWidget& widget) {
            return dynamic_cast<desktop::CardCanvas*>(&widget) != nullptr;
        });
    }
    QAction* action(QString const& text) {
        for (auto* const found : window()->findChildren<QAction*>())
            if (found->text().section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&')) == text)
                return found;
        return nullptr;
    }
    /// A copy of an example in the test's folder.
    QString copy_of(QString const& example) {
        auto const copy = folder.filePath(example);
        QFile::copy(QStringLiteral(KEHYSTIN_SOURCES "/examples/") + example, copy);
        return copy;
    }

    QTemporaryDir folder;
    std::unique_ptr<desktop::QtHost> host;
    std::unique_ptr<Program> program;
};

} // namespace kehystin
