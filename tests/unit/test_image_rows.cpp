// What image fields paint for each scaling, and the caption where there is no picture.
#include "mainwindow/bars.h"
#include "platform/input.h"
#include "surface/load_card.h"
#include "tests/scenario/pictures.h"
#include "tests/unit/fresh_session.h"

namespace kehystin {

namespace {

/// What a picture box has painted or written last; the test fails where that is something else.
template <class Item>
Item last_drawn(PictureBox const& box) {
    auto const& items = box.drawing().items();
    auto const* const item = items.empty() ? nullptr : std::get_if<Item>(&items.back());
    EXPECT_TRUE(item);
    return item ? *item : Item();
}

} // namespace

class ImageRows : public FreshSession {
  protected:
    void SetUp() override {
        start();
        card.picture = "";
        card.width = 600;
        card.height = 400;
    }
    /// One image field of 60 by 40 pixels with a picture of that size, selected.
    void show_picture(int width, int height) {
        auto const path = folder / "kuva.bmp";
        put_bytes(path, *scenario::picture_bytes(path, width, height));
        card.fields = 0;
        add_field(Style::IMG, 10, 20, 60, 40, "Teksti").list = path;
        ASSERT_TRUE(load_card());
        show_card_bars();
        fEditor->cmb_field.ListIndex = 1;
    }
    void scale(std::string_view word) {
        host.answers.assign(word == "Ei skaalausta" ? 0 : 1, Answer::yes);
        input::paste(fEditor->txt_scale, word);
        EXPECT_TRUE(host.answers.empty());
    }
};

TEST_F(ImageRows, AFittedPictureGoesByItsOwnShape) {
    struct Fitted {
        int width, height;
        double x, y, painted_width, painted_height;
    };
    // By width where the picture is wide: height * 60 / width. Otherwise by height, squares too.
    for (auto const& fit :
         {Fitted{30, 90, 30 - 40.0 / 6 - 1, 0, 40.0 / 3, 40},
          Fitted{90, 30, 0, 20 - 10 - 1, 60, 20}, Fitted{50, 50, 30 - 20 - 1, 0, 40, 40},
          Fitted{60, 50, 0, 20 - 25 - 1, 60, 50}}) {
        SCOPED_TRACE(testing::Message() << fit.width << " by " << fit.height);
        show_picture(fit.width, fit.height);
        scale("Sovitettu");
        auto const painted = last_drawn<DrawingLayer::PaintedPicture>(fCard->img(1));
        EXPECT_EQ(painted.picture.name(), folder / "kuva.bmp");
        EXPECT_NEAR(painted.x, fit.x, 1e-6);
        EXPECT_NEAR(painted.y, fit.y, 1e-6);
        EXPECT_NEAR(painted.width, fit.painted_width, 1e-6);
        EXPECT_NEAR(painted.height, fit.painted_height, 1e-6);
        EXPECT_TRUE(fCard->img(1).Picture.get().empty());
        EXPECT_TRUE(fCard->tmpImg.Picture.get().empty());
    }
}

TEST_F(ImageRows, EachScalingLeavesNothingOfTheOneBefore) {
    show_picture(30, 90);
    auto const& box = fCard->img(1);
    scale("Venytetty");
    auto const stretched = last_drawn<DrawingLayer::PaintedPicture>(box);
    EXPECT_EQ(stretched.x, 0);
    EXPECT_EQ(stretched.y, 0);
    EXPECT_EQ(stretched.width, 60);
    EXPECT_EQ(stretched.height, 40);
    EXPECT_FALSE(box.Picture.get().empty());
    scale("Kehys kuvaan");
    EXPECT_TRUE(box.drawing().empty());
    EXPECT_EQ(box.Height, 90);
    scale("Sovitettu");
    EXPECT_EQ(box.Height, 40);
    EXPECT_EQ(box.drawing().items().size(), 1U);
    scale("Ei skaalausta");
    EXPECT_TRUE(box.drawing().empty());
    EXPECT_FALSE(box.Picture.get().empty());
    EXPECT_EQ(box.Width, 60);
}

TEST_F(ImageRows, WithoutAReadablePictureTheCaptionStands) {
    show_picture(30, 90);
    auto const& box = fCard->img(1);
    put_bytes(folder / "kuva.bmp", "no picture any more");
    input::paste(fEditor->txt_scale, "Sovitettu");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(last_drawn<DrawingLayer::Text>(box).text, "Teksti");
    show_picture(30, 90);
    input::focus(fEditor->txt_imgfile);
    input::double_click(fEditor->txt_imgfile);
    EXPECT_EQ(last_drawn<DrawingLayer::Text>(fCard->img(1)).text, "Teksti");
    input::paste(fEditor->txt_caption, "Uusi");
    auto const text = last_drawn<DrawingLayer::Text>(fCard->img(1));
    EXPECT_EQ(text.text, "Uusi");
    // In the middle: four characters of 5 pixels in 60, a line of 12 in 40.
    EXPECT_EQ(text.x, 20);
    EXPECT_EQ(text.y, 14);
    EXPECT_EQ(fCard->img(1).drawing().items().size(), 1U);
}

} // namespace kehystin
