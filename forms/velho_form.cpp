#include "forms/velho_form.h"

#include "forms/dialog_layout.h"

namespace kehystin {

std::unique_ptr<VelhoForm> fVelho;

namespace {

using namespace layout;

constexpr double page_left = 270;
constexpr double page_top = 1290;
constexpr double page_width = 5850;
constexpr double page_height = 3000;
constexpr double inner_width = page_width + 2 * page_left;
constexpr double check_top = page_top + page_height + gap / 2;
constexpr double band_top = check_top + row + gap;
constexpr double inner_height = band_top + margin + button_height + margin;

constexpr double title_row = 285; // the rows of page 2 stand as close as those of the panel
constexpr double title_row_height = 255;
constexpr double first_title_row = 45;
constexpr double title_text_height = 225; // too low for a frame: the strip behind it is one
constexpr double caption_right = 990;
constexpr double value_left = 1020;
constexpr double value_right = 5520;

void build_header(VelhoForm& form) {
    constexpr double band = 900;
    constexpr double picture = 720;
    form.labInfo.Caption = "1 / 4   Valitse tekstikenttien lukumäärä";
    form.labInfo.BackStyle = static_cast<int>(BackStyle::transparent);
    form.labInfo.FontSize = 9;
    form.labInfo.FontBold = true;
    form.labInfo.Move(page_left, (band - row) / 2, page_width - picture - gap, row);
    form.imgVelho.Picture = Picture::named("imgVelho");
    form.imgVelho.BackColor = colours::white;
    form.imgVelho.Move(inner_width - page_left - picture, (band - picture) / 2, picture, picture);
}

void build_count_page(VelhoForm& form) {
    constexpr double top = 300;
    constexpr double label_width = 2880;
    form.Label5.Caption = "Montako tekstikenttää haluat kortille?";
    form.Label5.Move(0, top + 60, label_width, box - 60);
    form.txtMaara.Text = "8";
    form.txtMaara.set_spoken_name(form.Label5.Caption.get());
    form.Label5.caption_of = &form.txtMaara;
    form.txtMaara.BackColor = colours::white;
    form.txtMaara.Move(label_width + gap, top, 720, box);
}

void build_title_page(VelhoForm& form) {
    constexpr double rows_top = 360;
    constexpr double rows_width = 5565;
    constexpr double rows_height = VelhoForm::rows_in_view * title_row + first_title_row;
    constexpr double bar_width = 255;
    form.labOhje.Caption = "Kirjoita tekstikentille kuvaavat otsikot";
    form.labOhje.Move(0, 0, page_width, row);
    form.picOtsikko.Move(0, rows_top, rows_width, rows_height);
    form.botOtsikko.Move(0, 0, rows_width, rows_height);
    auto& label = form.labOtsikko.prototype();
    label.BackStyle = static_cast<int>(BackStyle::transparent);
    label.Move(60, 0, 900, title_row_height);
    auto& text = form.txtOtsikko.prototype();
    text.BackColor = colours::white;
    text.Move(value_left + 30, 0, value_right - value_left - 30, title_text_height);
    form.scrOtsikko.Move(rows_width + 15, rows_top, bar_width, rows_height);
    form.scrOtsikko.Visible = false;
    form.scrOtsikko.set_spoken_name("Vieritä otsikoita");
    form.scrOtsikko.Max = 0;
    form.scrOtsikko.SmallChange = static_cast<int>(title_row);
    form.scrOtsikko.LargeChange = static_cast<int>(VelhoForm::rows_in_view * title_row);
}

void build_placement_page(VelhoForm& form) {
    constexpr double indent = 180;
    constexpr double option_width = 2400;
    constexpr double second_group = 3 * row + margin;
    constexpr double picture = 2400;
    form.Label2.Caption = "Sijoita otsikot";
    form.Label2.Move(0, 0, option_width, row);
    form.optPosTop.Caption = "Yläpuolelle";
    form.optPosTop.Move(indent, row, option_width, row);
    form.optPosLeft.Caption = "Vasemmalle";
    form.optPosLeft.Move(indent, 2 * row, option_width, row);
    form.Label1.Caption = "Tasaa otsikot";
    form.Label1.Move(0, second_group, option_width, row);
    form.optAlignLeft.Caption = "Vasemmalle";
    form.optAlignLeft.Move(indent, second_group + row, option_width, row);
    form.optAlignRight.Caption = "Oikealle";
    form.optAlignRight.Move(indent, second_group + 2 * row, option_width, row);
    for (auto* const option : {&form.optPosTop, &form.optPosLeft})
        option->set_spoken_name(form.Label2.Caption.get() + ": " + option->Caption.get());
    for (auto* const option : {&form.optAlignLeft, &form.optAlignRight})
        option->set_spoken_name(form.Label1.Caption.get() + ": " + option->Caption.get());
    form.optPosTop.Value = true;
    form.optAlignLeft.Value = true;
    for (auto* const shown : form.placement_pictures()) {
        shown->Picture = Picture::named(shown->name());
        shown->Move(page_width - picture, 0, picture, picture);
        shown->Visible = false;
    }
}

/// One half of page 4: what the sample is for, the sample, its describing line and its button.
void place_sample(Label& caption, PicturePanel& box_of_sample, Label& sample, Label& description,
                  Button& button, double top) {
    constexpr double sample_width = 3750;
    constexpr double sample_height = 1050;
    constexpr double right_left = sample_width + margin;
    constexpr double right_width = page_width - right_left;
    caption.Move(0, top, page_width, 240);
    top += 270;
    box_of_sample.BorderStyle = 1;
    box_of_sample.BackColor = colours::white;
    box_of_sample.Move(0, top, sample_width, sample_height);
    sample.Caption = "AbBbÄäÖö";
    sample.is_sample = true;
    sample.Alignment = static_cast<int>(Alignment::centre);
    description.Move(right_left, top, right_width, sample_height - button_height - 30);
    button.Caption = "Muokkaa...";
    button.set_spoken_name(caption.Caption.get() + ": muokkaa"); // there are two of them
    button.Move(right_left, top + sample_height - button_height, button_width, button_height);
}

void build_font_page(VelhoForm& form) {
    constexpr double second_half = 1635;
    form.Label7.Caption = "Tekstikentät";
    place_sample(form.Label7, form.botTxt, form.fontTxt, form.labFontTxt, form.cmdFontTxt, 0);
    form.Label8.Caption = "Otsikot";
    place_sample(form.Label8, form.botOts, form.fontOts, form.labFontOts, form.cmdFontOts,
                 second_half);
}

void build_bottom(VelhoForm& form) {
    form.chkShow.Caption = " Näytä velho uutta korttia luotaessa";
    form.chkShow.Value = 1;
    form.chkShow.Move(page_left, check_top, page_width, row);
    form.cmdEdellinen.Caption = "&Peruuta";
    form.cmdEdellinen.Cancel = true;
    form.cmdSeuraava.Caption = "&Seuraava >";
    form.cmdSeuraava.Default = true;
    place_buttons({&form.cmdEdellinen, &form.cmdSeuraava}, nullptr, inner_width, inner_height);
}

} // namespace

VelhoForm::VelhoForm() : Form("fVelho", FormKind::dialog) {
    Caption = " Luo uusi kortti korttivelholla";
    set_inner_size(*this, inner_width, inner_height);
    for (auto* const control : controls())
        if (auto* const panel = dynamic_cast<PicturePanel*>(control))
            panel->BorderStyle = 0;
    for (int i = 1; i <= pages; ++i)
        picVaihe(i).Move(page_left, page_top, page_width, page_height);
    build_header(*this);
    build_count_page(*this);
    build_title_page(*this);
    build_placement_page(*this);
    build_font_page(*this);
    build_bottom(*this);
}

VelhoForm::~VelhoForm() {
    begin_unload();
}

void VelhoForm::load_row(int number) {
    double const top = number * title_row - title_row + first_title_row;
    auto& label = labOtsikko.Load(number);
    auto& text = txtOtsikko.Load(number);
    label.Top = top;
    label.caption_of = &text;
    text.Top = top;
    text.TabIndex = int{scrOtsikko.TabIndex};
}

void VelhoForm::paint_rows() {
    constexpr Colour caption_strip = RGB(253, 253, 240);
    botOtsikko.Cls();
    for (int i = 1; i <= maara; ++i) {
        double const top = i * title_row - title_row + first_title_row;
        double const bottom = top + title_row_height;
        botOtsikko.DrawFilledBox(0, top, caption_right, bottom, caption_strip);
        botOtsikko.DrawFilledBox(value_left, top, value_right, bottom, colours::white);
    }
}

void VelhoForm::paint_frame() {
    constexpr double band = 900;
    constexpr Colour dark = system_colour(16);
    constexpr Colour light = system_colour(20);
    Cls();
    DrawFilledBox(0, 0, inner_width, band, colours::white);
    DrawLine(0, 915, inner_width, 915, dark);
    DrawLine(0, 930, inner_width, 930, light);
    DrawFilledBox(0, band_top, inner_width, inner_height, colours::white);
    DrawLine(0, band_top, inner_width, band_top, dark);
    auto& fonts = picVaihe(4);
    fonts.Cls();
    fonts.DrawLine(0, 1500, page_width, 1500, dark);
    fonts.DrawLine(0, 1515, page_width, 1515, light);
}

double VelhoForm::height_of_rows(int count) {
    return count * title_row + 90;
}

} // namespace kehystin
