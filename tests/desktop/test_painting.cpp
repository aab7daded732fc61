// What stands on the screen after any number of small repaints is what one full painting shows,
// pixel by pixel. Run at several scales: at most of them a pixel of a card is no whole number of
// the screen's.
#include "tests/desktop/mouse_program.h"

#include <QListWidget>
#include <QMdiArea>
#include <QScreen>

#include <cmath>
#include <cstring>
#include <random>

namespace kehystin {

class Painting : public MouseProgram, public testing::WithParamInterface<char const*> {
  protected:
    void SetUp() override {
        start_free(QLatin1String(GetParam()));
        window()->resize(1000, 700); // the screen of these tests is smaller at the large scales
        settle();
    }
    void settle() {
        ASSERT_TRUE(soon([&] { return !host->timers().isAnyShorterThan(100); }));
    }

    /// The area around the card, in the pixels of the screen.
    QImage on_screen() {
        QCoreApplication::processEvents(); // what has changed is taken over
        QCoreApplication::processEvents(); // and painted
        auto const& area = *window()->findChild<QMdiArea*>()->viewport();
        auto const place = QRect(area.mapTo(window(), QPoint()), area.size());
        auto picture = window()->screen()->grabWindow(window()->winId(), place.x(), place.y(),
                                                      place.width(), place.height());
        return picture.toImage();
    }
    /// Around the pixels that are not the same; empty where there are none.
    static QRect difference(QImage const& one, QImage const& other) {
        QRect differs;
        for (int y = 0; y < one.height(); ++y) {
            if (std::memcmp(one.constScanLine(y), other.constScanLine(y),
                            static_cast<std::size_t>(one.bytesPerLine())) == 0)
                continue;
            for (int x = 0; x < one.width(); ++x)
                if (one.pixel(x, y) != other.pixel(x, y))
                    differs |= QRect(x, y, 1, 1);
        }
        return differs;
    }
    /// Around what a full painting shows otherwise.
    QRect stale() {
        auto const kept = on_screen();
        dynamic_cast<desktop::CardCanvas*>(canvas())->updateBackground();
        for (auto* const widget : window()->findChildren<QWidget*>())
            widget->update();
        return difference(kept, on_screen());
    }

    int any(int least, int most) {
        return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
    }
    QPoint any_point() { return {any(0, canvas()->width()), any(0, canvas()->height())}; }
    int any_field() { return any(1, card.fields); }
    Control& any_object() {
        int const number = any_field();
        return fCard->visual(field(number).kind()->style, number);
    }

    void do_anything() {
        switch (any(0, 5)) {
        case 0:
            return click(middle_of(any_field()), any(0, 1) ? Qt::ShiftModifier : Qt::NoModifier);
        case 1: {
            auto const from = middle_of(any_field());
            return drag(from, from + QPoint(any(-40, 40), any(-40, 40)), Qt::ShiftModifier);
        }
        case 2: // a band, or a drag that is left before its end
            press(any_point());
            for (int i = 0; i < 3; ++i) {
                move(any_point());
                on_screen();
            }
            return release(any_point());
        case 3: // few changes, or more than are kept one by one
            for (int i = any(0, 1) ? 1 : 30; i > 0; --i) {
                auto& object = any_object();
                object.Visible = any(0, 3) != 0;
                object.Move(object.Left + any(-9, 9), object.Top + any(-9, 9), any(1, 120),
                            any(1, 40));
            }
            return;
        case 4: {
            auto& object = any_object();
            if (auto* const box = dynamic_cast<PictureBox*>(&object))
                box->BorderStyle = 1 - box->BorderStyle;
            else if (auto* const text = dynamic_cast<TextControl*>(&object))
                text->BackColor = any(0, 0xffffff);
            return;
        }
        default:
            card_window()->move(any(0, 9), any(0, 9));
        }
    }

  private:
    std::mt19937 random_{20}; // always the same steps
};

TEST_P(Painting, SmallRepaintsLeaveNothingBehind) {
    ASSERT_EQ(stale(), QRect());
    for (int step = 1; step <= 60; ++step) {
        for (int i = 0; i < 3; ++i) {
            do_anything();
            on_screen();
        }
        ASSERT_EQ(stale(), QRect()) << "step " << step;
    }
}

TEST_P(Painting, AFrameHasItsFourSidesAndStaysInsideThem) {
    auto const ratio = canvas()->devicePixelRatioF();
    auto const on_device = [&](double length) { return int(std::floor(length * ratio + 0.5)); };
    auto const with_frame = [&](int number, bool shown) {
        fCard->focus(number).Visible = shown;
        QCoreApplication::processEvents();
        return canvas()->grab().toImage();
    };
    for (int i = 1; i <= card.fields; i += 1 + int{card.fields} / 6) {
        auto const framed = with_frame(i, true);
        auto const bare = with_frame(i, false);
        auto const& frame = fCard->focus(i);
        int const right = on_device(frame.Left + frame.Width) - 1;
        int const bottom = on_device(frame.Top + frame.Height) - 1;
        QRect const edge(QPoint(on_device(frame.Left), on_device(frame.Top)),
                         QPoint(right, bottom));
        if (!framed.rect().contains(edge))
            continue;
        EXPECT_EQ(difference(bare, framed), edge) << i;
        for (auto const& side :
             {QPoint(edge.left(), edge.center().y()), QPoint(right, edge.center().y()),
              QPoint(edge.center().x(), edge.top()), QPoint(edge.center().x(), bottom)})
            EXPECT_EQ(framed.pixelColor(side), QColor(255, 0, 0)) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Cards, Painting,
                         testing::Values("examples/sukukirja.krt", "examples/jasenet.krt",
                                         "examples/kolmesataa.krt"));

class Painted : public MouseProgram {
  protected:
    /// The pixels of a control on the card, with some of what is around it.
    QImage picture_of(Control const& control, int around = 0) {
        QCoreApplication::processEvents();
        dynamic_cast<desktop::CardCanvas*>(canvas())->updateBackground();
        QRect const place(int(control.Left), int(control.Top), int(control.Width),
                          int(control.Height));
        return canvas()->grab().toImage().copy(place.adjusted(-around, -around, around, around));
    }
    /// How many rows of pixels the text in a field has ink in.
    int ink_of(Control const& control) {
        auto const picture = picture_of(control);
        int rows = 0;
        for (int y = 2; y < picture.height() - 1; ++y)
            for (int x = 3; x < 40; ++x)
                if (picture.pixelColor(x, y).lightness() < 128) {
                    ++rows;
                    break;
                }
        return rows;
    }
    Control& first(Style style) {
        for (int i = 1; i <= card.fields; ++i)
            if (field(i).is(style))
                return fCard->visual(style, i);
        ADD_FAILURE();
        return *fCard;
    }
};

TEST_F(Painted, ATextKeepsItsFeetInALowField) {
    start_free(QStringLiteral("examples/sukukirja.krt"));
    for (auto const style : {Style::TXT, Style::STX, Style::LST}) {
        auto& object = first(style);
        dynamic_cast<TextControl&>(object).FontSize = 8;
        if (auto* const box = dynamic_cast<TextBox*>(&object))
            box->Text = "gjpqy";
        object.Height = 40;
        int const whole = ink_of(object);
        EXPECT_GT(whole, 7);
        object.Height = 14;
        EXPECT_EQ(ink_of(object), whole) << code_of(style);
    }
}

TEST_F(Painted, ALowBoxPaintsNothingOutsideItself) {
    start_free(QStringLiteral("examples/sukukirja.krt"));
    auto& box = first(Style::STX);
    for (int height = 20; height >= 1; --height) {
        box.Height = height;
        auto const with = picture_of(box, 20);
        box.Visible = false;
        auto const without = picture_of(box, 20);
        box.Visible = true;
        int differing = 0;
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x)
                differing +=
                    (y < 20 || y >= 20 + height) && with.pixel(x, y) != without.pixel(x, y);
        EXPECT_EQ(differing, 0) << height;
    }
}

TEST_F(Painted, AListHasAllSidesOfItsFrame) {
    QWidget ground;
    ground.resize(140, 90);
    QListWidget list(&ground);
    list.setGeometry(7, 5, 101, 61);
    auto const seen = ground.grab().toImage();
    auto const expect_frame = [&](auto const& pixel, int length) {
        int first = 0;
        while (pixel(first) == pixel(0))
            ++first;
        int last = length - 1;
        while (pixel(last) == pixel(length - 1))
            --last;
        auto const line = list.palette().color(QPalette::Dark);
        EXPECT_EQ(pixel(first), line);
        EXPECT_EQ(pixel(last), line);
        EXPECT_NE(pixel(first + 4), line);
    };
    auto const half = seen.size() / 2;
    expect_frame([&](int x) { return seen.pixelColor(x, half.height()); }, seen.width());
    expect_frame([&](int y) { return seen.pixelColor(half.width(), y); }, seen.height());
}

TEST_F(Painted, APictureThatIsPaintedStretchedIsSeenOnce) {
    start_free(QStringLiteral("examples/sukukirja.krt"));
    QImage drawn(8, 8, QImage::Format_ARGB32);
    drawn.fill(Qt::transparent);
    drawn.setPixelColor(7, 7, Qt::red);
    auto const file = folder.filePath(QStringLiteral("piste.png"));
    ASSERT_TRUE(drawn.save(file));
    auto& box = dynamic_cast<PictureBox&>(first(Style::IMG));
    box.BorderStyle = 0;
    box.BackColor = colours::white;
    box.Cls();
    box.Picture = host->LoadPicture(file.toStdString());
    EXPECT_EQ(picture_of(box).pixelColor(7, 7), QColor(Qt::red));
    box.PaintPicture(box.Picture, 0, 0, box.Width, box.Height);
    auto const stretched = picture_of(box);
    EXPECT_EQ(stretched.pixelColor(7, 7), QColor(Qt::white));
    EXPECT_EQ(stretched.pixelColor(stretched.width() - 2, stretched.height() - 2), QColor(Qt::red));
}

} // namespace kehystin
