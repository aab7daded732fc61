#include "forms/font_form.h"

#include "forms/dialog_layout.h"

namespace kehystin {

std::unique_ptr<FontForm> fFont;

namespace {

using namespace layout;

constexpr double font_width = 2760;
constexpr double style_width = 2400;
constexpr double size_width = 1080;
constexpr double style_left = margin + font_width + gap;
constexpr double size_left = style_left + style_width + gap;
constexpr double inner_width = size_left + size_width + margin;
constexpr double label_height = 240;
constexpr double list_top = margin + label_height;
constexpr double list_height = 2010;
constexpr double text_top = list_top + list_height + gap / 2;
constexpr double sample_top = text_top + box + margin;
// The largest size fits, bold and slanted, also in the wide faces that stand in for missing ones.
constexpr double sample_width = 4050;
constexpr double sample_height = 1200;
constexpr double colours_left = margin + sample_width + gap;
constexpr double inner_height = sample_top + sample_height + margin + button_height + margin;

/// A list with its label above it and, below, the text box that the chosen item goes to.
void place_column(Label& label, ListBox& list, TextBox& text, double left, double width) {
    label.Move(left, margin, width, label_height);
    list.Move(left, list_top, width, list_height);
    list.BackColor = colours::white;
    text.Move(left, text_top, width, box);
    text.BackColor = colours::white;
    label.caption_of = &list;
    list.set_spoken_name(label.Caption.get());
    text.set_spoken_name(label.Caption.get());
}

void place_swatch(Button& button, PicturePanel& swatch, double top) {
    constexpr double color_button_width = 1635;
    constexpr double swatch_left = colours_left + color_button_width + gap;
    button.Move(colours_left, top, color_button_width, button_height);
    swatch.Move(swatch_left, top, inner_width - margin - swatch_left, button_height);
}

} // namespace

FontForm::FontForm() : Form("fFont", FormKind::dialog) {
    Caption = " Fontti...";
    set_inner_size(*this, inner_width, inner_height);
    lab_font.Caption = "&Fontti";
    place_column(lab_font, lst_font, txt_font, margin, font_width);
    lab_style.Caption = "&Tyyli";
    place_column(lab_style, lst_style, txt_style, style_left, style_width);
    lab_size.Caption = "&Koko";
    place_column(lab_size, lst_size, txt_size, size_left, size_width);
    bot.BackColor = colours::white;
    bot.Move(margin, sample_top, sample_width, sample_height);
    ots.Caption = "AaBbYyZz";
    ots.Alignment = static_cast<int>(Alignment::centre);
    cmd_bc.Caption = "T&austan väri...";
    for (TextControl* const shown :
         {static_cast<TextControl*>(&ots), static_cast<TextControl*>(&BC),
          static_cast<TextControl*>(&FC)})
        shown->is_sample = true;
    place_swatch(cmd_bc, BC, sample_top);
    cmd_fc.Caption = "T&ekstin väri...";
    place_swatch(cmd_fc, FC, sample_top + sample_height - button_height);
    cmd_ok.Caption = "OK";
    cmd_ok.Default = true;
    cmd_cancel.Caption = "Peruuta";
    cmd_cancel.Cancel = true;
    place_buttons({&cmd_ok, &cmd_cancel}, nullptr, inner_width, inner_height);
}

FontForm::~FontForm() {
    begin_unload();
}

} // namespace kehystin
