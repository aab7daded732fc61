// The main window and the card's: their sizes and states, and clicks on what is Qt's own of them.
#include "tests/desktop/mouse_program.h"

namespace kehystin {

class Window : public MouseProgram {
  protected:
    QRect normal_place() {
        auto const bounds = host->normal_bounds(*fEditor);
        return QRectF(bounds.left / 15, bounds.top / 15, bounds.width / 15, bounds.height / 15)
            .toRect();
    }
    static QSize form_size() { return {int(fEditor->Width / 15), int(fEditor->Height / 15)}; }
    static bool has_state(WindowState state) {
        return fEditor->WindowState == static_cast<int>(state);
    }
};

TEST_F(Window, MaximisedOrMinimisedItRemembersItsNormalPlace) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    QRect const normal(30, 40, 708, 527);
    fEditor->Move(30 * 15, 40 * 15, 708 * 15, 527 * 15);
    ASSERT_TRUE(soon([&] { return window()->size() == QSize(700, 500); }));
    auto const decoration = normal.size() - window()->size();

    // As a window manager does it: place and size come first, then the state.
    window()->move(0, 0);
    window()->resize(1300, 1000);
    EXPECT_EQ(form_size(), window()->size() + decoration);
    window()->setWindowState(Qt::WindowMaximized);
    EXPECT_TRUE(soon([] { return has_state(WindowState::maximized); }));
    EXPECT_TRUE(soon([&] { return form_size() == window()->size() + decoration; }));
    EXPECT_EQ(normal_place(), normal);

    window()->setWindowState(window()->windowState() | Qt::WindowMinimized);
    EXPECT_TRUE(soon([] { return has_state(WindowState::minimized); }));
    EXPECT_EQ(normal_place(), normal);
    window()->setWindowState(window()->windowState() & ~Qt::WindowMinimized);
    EXPECT_TRUE(soon([] { return has_state(WindowState::maximized); }));
    EXPECT_TRUE(window()->isMaximized());

    // The platform restores what the window had before the state; the form follows.
    fEditor->WindowState = static_cast<int>(WindowState::normal);
    EXPECT_TRUE(soon([&] { return window()->size() == QSize(1300, 1000); }));
    EXPECT_TRUE(soon([&] { return form_size() == window()->size() + decoration; }));
    EXPECT_TRUE(soon([&] { return normal_place().size() == form_size(); }));

    fEditor->WindowState = static_cast<int>(WindowState::maximized);
    EXPECT_TRUE(soon([&] { return form_size() != QSize(1300, 1000) + decoration; }));
    EXPECT_EQ(form_size(), window()->size() + decoration);
    EXPECT_EQ(normal_place().size(), QSize(1300, 1000) + decoration);
}

} // namespace kehystin
