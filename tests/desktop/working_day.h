// What the days of work have in common: dialogs that are used step by step, and texts that measure
// the same everywhere.
#pragma once

#include "tests/desktop/mouse_program.h"

#include <QFileDialog>
#include <QLineEdit>

namespace kehystin {

/// The real windows on the day of the scenario, with its simple measure of texts: the sizes that
/// the wizard computes go into the file.
class ScenarioDay : public desktop::QtHost {
  public:
    using QtHost::QtHost;
    Size measure_text(Font const& font, std::string_view text) const override {
        double const character = round_to_even(font.size * 6 / 10) + (font.bold ? 1 : 0);
        return {character * static_cast<double>(Len(text)), round_to_even(font.size * 1.5)};
    }
    Date now() const override {
        constexpr double seventeenth_of_may_2004 = 38124;
        return seventeenth_of_may_2004 + 9.5 / 24;
    }
};

class DayProgram : public MouseProgram {
  protected:
    using Steps = std::vector<std::function<void(QWidget&)>>;

    std::unique_ptr<desktop::QtHost> make_host(QStringList const& arguments) override {
        return std::make_unique<ScenarioDay>(arguments);
    }
    /// An access key holds its button down for a moment before it counts.
    static bool has_button_down(QWidget& dialog) {
        return find_child<QAbstractButton>(dialog, [](QAbstractButton& button) {
            return button.isDown() && !button.inherits("QToolButton"); // some are down for good
        });
    }
    /// Does what opens a window and runs the steps in the windows that come, one after the other.
    void in_windows_of(std::string const& what, std::function<void()> const& open, Steps steps) {
        std::size_t next = 0;
        QTimer clock;
        clock.callOnTimeout([&] {
            auto* const modal = QApplication::activeModalWidget();
            if (modal && modal->isActiveWindow() && !has_button_down(*modal) && next < steps.size())
                QTimer::singleShot(0, modal, [&steps, &next, modal] {
                    if (next < steps.size() && modal == QApplication::activeModalWidget())
                        steps[next++](*modal);
                });
        });
        clock.start(20);
        open();
        EXPECT_TRUE(soon([&] { return next == steps.size(); })) << what;
        come_back();
    }
    /// As a window manager does when a dialog or a pop-up has closed.
    void come_back() {
        window()->activateWindow();
        settle();
        if (!host->isSessionOver() && window()->isVisible()) {
            EXPECT_TRUE(soon([] { return QApplication::focusWidget() != nullptr; }));
        }
    }
    void choose(QString const& entry, Steps steps) {
        in_windows_of(
            entry.toStdString(), [&] { action(entry)->trigger(); }, std::move(steps));
    }
    void settle() {
        EXPECT_TRUE(soon([&] { return !host->timers().isAnyShorterThan(100); }));
    }
    static std::function<void(QWidget&)> press_button(char const* name) {
        return [name](QWidget& dialog) {
            QTest::mouseClick(dialog.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
        };
    }
    void drop_from_bar(char const* button, QPoint point) {
        ASSERT_TRUE(drop(*drag_from_bar(button)->mimeData(), *canvas(), point)) << button;
        settle();
    }
};

} // namespace kehystin
