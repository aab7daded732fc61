// Windows that come up stand where they cover little of what the user is to see.
#include "tests/desktop/real_program.h"

#include "desktop/child_window.h"
#include "desktop/text.h"
#include "desktop/window_place.h"

namespace kehystin {

namespace {

QRect const room(0, 0, 1000, 600);

QRect placed(QSize size, QPoint usual, QList<QRect> const& inSight) {
    return {desktop::placeInSightOf(size, room, usual, inSight), size};
}

int coveredBy(QRect const& window, QList<QRect> const& inSight) {
    return static_cast<int>(std::count_if(inSight.begin(), inSight.end(),
                                          [&](auto const& one) { return one.intersects(window); }));
}

} // namespace

TEST(WindowPlace, StaysWhereItIsUsualUnlessThatCoversSomethingOrLeavesTheRoom) {
    QSize const size(300, 200);
    QPoint const usual(350, 200);
    EXPECT_EQ(placed(size, usual, {}).topLeft(), usual);
    EXPECT_EQ(placed(size, usual, {{0, 0, 350, 600}, {650, 0, 50, 600}}).topLeft(), usual);
    EXPECT_EQ(placed(size, {900, -50}, {}).topLeft(), QPoint(700, 0));
    EXPECT_EQ(placed({1200, 700}, {-100, -50}, {}).topLeft(), QPoint(0, 0));
    // Just off the one edge of the box, and no further.
    EXPECT_EQ(placed(size, usual, {{400, 210, 200, 20}}).topLeft(), QPoint(350, 230));
    EXPECT_EQ(placed(size, usual, {{360, 0, 20, 600}}).topLeft(), QPoint(380, 200));
}

TEST(WindowPlace, FindsTheOnlyFreePlaceAndElseCoversFewest) {
    QSize const size(300, 200);
    // Free at the bottom left alone, which touches no edge of the usual place.
    QList<QRect> const most = {{0, 0, 1000, 390}, {310, 380, 690, 220}};
    auto const free = placed(size, {350, 200}, most);
    EXPECT_TRUE(room.contains(free));
    EXPECT_EQ(coveredBy(free, most), 0);
    // A field everywhere, but fewer on the right.
    QList<QRect> everywhere;
    for (int x = 0; x < 1000; x += x < 700 ? 50 : 150)
        for (int y = 0; y < 600; y += 50)
            everywhere.append({x, y, 40, 40});
    auto const crowded = placed(size, {350, 200}, everywhere);
    EXPECT_TRUE(room.contains(crowded));
    int fewest = 1000;
    for (int x = 0; x <= 700; ++x)
        for (int y = 0; y <= 400; y += 10)
            fewest = std::min(fewest, coveredBy({QPoint(x, y), size}, everywhere));
    EXPECT_LE(coveredBy(crowded, everywhere), fewest);
}

TEST(WindowPlace, AWindowToReadBesideAnotherTakesTheRoomThatThereIs) {
    QSize const wanted(800, 500);
    QSize const least(400, 300);
    auto const beside = [&](QRect const& other) {
        return desktop::roomBeside(other, room, wanted, least);
    };
    EXPECT_EQ(beside({0, 100, 300, 300}), QRect(300, 0, 700, 500));
    EXPECT_EQ(beside({600, 300, 300, 300}), QRect(0, 100, 600, 500));
    EXPECT_EQ(beside({0, 0, 1000, 200}), QRect(99, 200, 800, 400));
    QRect const middle(300, 150, 400, 300);
    auto const squeezed = beside(middle);
    EXPECT_TRUE(room.contains(squeezed));
    EXPECT_FALSE(squeezed.contains(middle));
    EXPECT_TRUE(room.contains(beside(room)));
}

using KeepInSight = RealProgram;

TEST_F(KeepInSight, AMessageCoversNeitherFieldsOnTheCardNorControlsBesideIt) {
    start(QStringLiteral("examples/vanha.krt"));
    std::vector<Control const*> wanted;
    QList<QRect> places;
    auto const add = [&](Control const& control, QWidget const& on, QRect const& at) {
        wanted.push_back(&control);
        places.append({on.mapToGlobal(at.topLeft()), at.size()});
    };
    auto const usual = [&] {
        QRect at;
        WhileOpen<QMessageBox> const then([&](QMessageBox& shown) {
            at = shown.frameGeometry();
            QTest::keyClick(&shown, Qt::Key_Return);
        });
        host->MsgBox(" Merkitty punaisella.     ", box::information, "x");
        return at;
    };
    auto const before = usual();
    for (auto const* const control : fCard->children())
        if (auto const at = desktop::rectOf(*control);
            control->Visible && canvas()->visibleRegion().contains(at))
            add(*control, *canvas(), at);
    ASSERT_FALSE(places.isEmpty());
    auto* const selector = find_child<QWidget>(
        *window(), [](QWidget& one) { return one.objectName() == QLatin1String("cmb_field"); });
    ASSERT_TRUE(selector);
    add(fEditor->cmb_field, *selector, selector->rect());
    host->keep_in_sight(wanted);
    EXPECT_EQ(coveredBy(usual(), places), 0);
    host->keep_in_sight({});
    EXPECT_EQ(usual(), before);
    // What has gone meanwhile is no longer asked where it stands.
    host->keep_in_sight(wanted);
    fCard.reset();
    usual();
}

} // namespace kehystin
