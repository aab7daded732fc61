#include "surface/images.h"

#include "boxes/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/document_state.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"
#include "surface/hourglass.h"

namespace kehystin {

namespace {

void report_bad_picture(int number, std::string const& path, RuntimeError const& error) {
    MsgBox(lines({" Kenttään " + Format(number) + " (kuva), ladattu kuvatiedosto:     ",
                  " '" + path + "' aiheutti virheen     ", number_and_text(error),
                  " Korttimallin latausta jatketaan ilman kyseistä kuvatiedostoa.     ",
                  support_lines()}),
           box::warning, " Tiedoksi");
}

void apply_scaling(PictureBox& picture, int scaling) {
    switch (scaling) {
    case 0:
    case 3: // the fitted copy is made only when the scaling is chosen in the panel
        picture.AutoSize = false;
        break;
    case 1:
        picture.AutoSize = false;
        paint_stretched(picture);
        break;
    case 2:
        picture.AutoSize = true;
        break;
    default:
        break;
    }
}

/// The picture of a field's file, empty where there is none that can be read.
Picture readable_picture(Field& one) {
    auto const path = one.list.trim();
    if (!names_a_file(path))
        return {};
    try {
        return LoadPicture(path);
    } catch (RuntimeError const&) {
        return {};
    }
}

/// Paints a picture as large as it can be in its own shape. Which side decides goes by the picture
/// alone, so that a wide picture may run over the edges of a flat box.
void paint_fitted(PictureBox& box, Picture const& picture) {
    auto const [width, height] = picture.size();
    bool const by_width = width > height;
    double const fitted_width = by_width ? box.Width.get() : width * box.Height / height;
    double const fitted_height = by_width ? height * box.Width / width : box.Height.get();
    double const left = by_width ? 0 : box.Width / 2 - fitted_width / 2 - 1;
    double const top = by_width ? box.Height / 2 - fitted_height / 2 - 1 : 0;
    auto& keeper = fCard->tmpImg;
    keeper.Picture = picture;
    box.Picture = Picture();
    box.PaintPicture(keeper.Picture, left, top, fitted_width, fitted_height);
    keeper.Picture = Picture();
}

/// The picture of which a fitted copy is painted on a box, empty where there is none.
Picture painted_picture(PictureBox const& box) {
    for (auto const& item : box.drawing().items())
        if (auto const* const painted = std::get_if<DrawingLayer::PaintedPicture>(&item))
            return painted->picture;
    return {};
}

void take_record_size(PictureBox& box, Field const& one) {
    box.AutoSize = false;
    box.Width = int{one.width};
    box.Height = int{one.height};
}

} // namespace

void fill_image(int number) {
    auto& picture = fCard->img(number);
    auto& one = field(number);
    picture.BorderStyle = one.border;
    auto const path = one.list.trim();
    if (!names_a_file(path)) {
        print_image_text(picture, number);
        return;
    }
    try {
        picture.Picture = LoadPicture(path);
        apply_scaling(picture, one.scaling);
    } catch (RuntimeError const& error) {
        report_bad_picture(number, path, error);
    }
}

void print_image_text(PictureBox& picture, int number) {
    auto const caption = field(number).caption.trimmed();
    picture.Cls();
    picture.CurrentX = picture.Width / 2 - picture.TextWidth(caption) / 2;
    picture.CurrentY = picture.Height / 2 - picture.TextHeight(caption) / 2;
    picture.Print(caption);
}

void paint_stretched(PictureBox& picture) {
    picture.PaintPicture(picture.Picture, 0, 0, picture.Width, picture.Height);
}

void refresh_image(int number) {
    auto const& one = field(number);
    if (!one.is(Style::IMG) || !fCard->img.has(number))
        return;
    auto& box = fCard->img(number);
    auto const fitted = painted_picture(box);
    if (box.Picture.get().empty() && fitted.empty()) {
        print_image_text(box, number);
    } else if (box.Picture.get().empty()) {
        box.Cls();
        paint_fitted(box, fitted);
    } else if (one.scaling == 1) {
        box.Cls();
        paint_stretched(box);
    }
}

bool has_readable_picture(int number) {
    return !readable_picture(field(number)).empty();
}

void show_scaled(int number) {
    auto& one = field(number);
    auto& box = fCard->img(number);
    auto const picture = readable_picture(one);
    take_record_size(box, one);
    if (picture.empty()) {
        box.Picture = Picture();
        print_image_text(box, number);
        return;
    }
    box.Cls();
    box.Picture = picture;
    if (one.scaling == 3)
        paint_fitted(box, picture);
    else
        apply_scaling(box, one.scaling);
}

void remove_image(int number) {
    auto& one = field(number);
    auto& box = fCard->img(number);
    one.list = "";
    take_record_size(box, one);
    box.Picture = Picture();
    print_image_text(box, number);
}

namespace {

constexpr std::string_view picture_filter =
    "Kuvatiedostot (*.bmp,*.wmf,*.jpg,*.gif,*.ico)|*.bmp;*.wmf;*.jpg;*.gif;*.ico|"
    "Kaikki tiedostot (*.*)|*.*";

void show_chosen_picture(int number, std::string const& path) {
    Hourglass const pointer;
    auto& one = field(number);
    auto const stored = decltype(Field::list)(path);
    auto const picture = LoadPicture(stored.trimmed());
    one.list = stored.trimmed();
    fCard->img(number).Cls();
    fCard->img(number).Picture = picture;
    PanelUpdate const filling;
    fEditor->txt_imgfile.Text = file_part(one.list.trimmed());
    MarkCardChanged();
}

} // namespace

std::string choose_picture() {
    try {
        return host().ShowOpen({".bmp", std::string(picture_filter), 0, 0, open_card_folder()});
    } catch (RuntimeError const& error) {
        if (error.is(ErrorNumber::cancelled))
            return {};
        throw;
    }
}

void report_unreadable_picture(RuntimeError const& error) {
    standard_report(" Kuvatiedoston avaaminen aiheutti virheen     ", error);
}

bool load_image(int number) {
    auto const path = choose_picture();
    if (path.empty())
        return false;
    try {
        show_chosen_picture(number, path);
        return true;
    } catch (RuntimeError const& error) {
        report_unreadable_picture(error);
        return false;
    }
}

} // namespace kehystin
