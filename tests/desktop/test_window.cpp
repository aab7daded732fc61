// The main window and the card's: their sizes and states, and clicks on what is Qt's own of them.
#include "tests/desktop/mouse_program.h"

#include <QMdiArea>
#include <QMenu>
#include <QWindow>

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

TEST_F(Window, OnlyAClickBesideTheCardDeselects) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    window()->resize(1000, 700);
    auto& area = *find_child<QMdiArea>(*window())->viewport();
    auto& frame = *card_window();
    frame.move(40, 40);
    QPoint const beside(20, 20);
    QPoint const places[] = {{frame.width() / 2, 1}, // border, caption, border
                             {frame.width() / 2, 12},
                             {1, frame.height() / 2}};
    for (auto const button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        click(middle_of(3));
        for (auto const place : places) {
            QTest::mouseClick(&frame, button, {}, place);
            EXPECT_EQ(selected(), QList{3}) << button;
        }
        // Nor does one that begins or ends on the card.
        QTest::mousePress(&area, button, {}, beside);
        QTest::mouseRelease(&area, button, {}, frame.pos() + places[1]);
        QTest::mousePress(&frame, button, {}, places[1]);
        QTest::mouseRelease(&frame, button, {}, beside - frame.pos());
        EXPECT_EQ(selected(), QList{3}) << button;
        frame.move(40, 40);
        QTest::mouseClick(&area, button, {}, beside);
        EXPECT_TRUE(selected().isEmpty()) << button;
    }
}

TEST_F(Window, TheCaptionOfTheCardHasNoMenuThatCloses) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    NextBox asked(QStringLiteral("Peruuta"));
    for (int x = 1; x < 40; x += 3) {
        QPoint const place(x, 10);
        QTest::mouseMove(card_window(), place);
        QTest::mouseDClick(card_window(), Qt::LeftButton, {}, place);
        EXPECT_FALSE(QApplication::activePopupWidget()) << x;
    }
    EXPECT_FALSE(asked.was_shown());
    EXPECT_TRUE(card_window());
}

TEST_F(Window, AThemeBringsNoFontsOfItsOwn) {
    start(QStringLiteral("examples/asiakkaat.krt"));
    auto const menu = QApplication::font("QMenu");
    auto const box = QApplication::font("QDialog");
    char const* const classes[] = {"QMenu", "QMenuBar", "QMdiSubWindowTitleBar", "QDialog"};
    for (auto const* const one : classes)
        QApplication::setFont(QFont(QStringLiteral("DejaVu Serif"), 15), one);
    QEvent changed(QEvent::ThemeChange);
    QCoreApplication::sendEvent(window()->windowHandle(), &changed);
    for (auto const* const one : {"QMenu", "QMenuBar", "QMdiSubWindowTitleBar"})
        EXPECT_EQ(QApplication::font(one), menu) << one;
    EXPECT_EQ(QApplication::font("QDialog"), box);
    EXPECT_EQ(window()->findChild<QMenu*>()->font().family(), menu.family());
    EXPECT_EQ(card_window()->font().family(), widget("cmb_field").font().family());
}

} // namespace kehystin
