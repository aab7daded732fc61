#include "surface/visuals.h"

#include "forms/card_form.h"
#include "model/card.h"
#include "panel/row_texts.h"
#include "platform/host.h"
#include "surface/frames.h"
#include "surface/images.h"

#include <cmath>

namespace kehystin {

namespace {

/// The number in a field's `value`, after trimming it in the record.
double value_number(Field& one) {
    return Val(one.value.trim());
}

void take_back_style(Label& title) {
    title.BackStyle = card.transp != 0 ? int(BackStyle::transparent) : int(BackStyle::opaque);
}

void fill_list(ComboBox& box, Field& one) {
    if (box.ListCount() > 0)
        box.Clear();
    for (auto const& item : items_of(one))
        box.AddItem(item);
    double const chosen = round_to_even(value_number(one));
    if (chosen >= -1 && chosen < box.ListCount())
        box.ListIndex = static_cast<int>(chosen);
}

void fill_content(Style style, int number) {
    auto& one = field(number);
    switch (style) {
    case Style::OTS:
        fCard->ots(number).Caption = one.caption.trim();
        fCard->ots(number).Alignment = one.align;
        take_back_style(fCard->ots(number));
        break;
    case Style::TXT:
        fCard->txt(number).Text = one.value.trim();
        break;
    case Style::STX:
        fCard->stx(number).Text = one.value.trim();
        break;
    case Style::CHK:
        fCard->chk(number).Caption = one.caption.trim();
        restore_check(number);
        break;
    case Style::OPT:
        fCard->opt(number).Caption = one.caption.trim();
        restore_option(number);
        break;
    case Style::CMB:
        fill_list(fCard->cmb(number), one);
        break;
    case Style::IMG:
        fill_image(number);
        break;
    case Style::LST:
        fCard->lst(number).AddItem("C:\\malli_kansio\\malli_tiedosto.doc");
        break;
    }
}

} // namespace

bool shows_card_colour(Kind const& kind) {
    return kind.look == Look::label && card.transp != 0;
}

namespace {

bool has_height_of_font(Field const& one) {
    return one.kind() && one.kind()->height_of_font;
}

void take_font(TextControl& visual, Field& one) {
    // A font that cannot be taken must not keep the card from being shown.
    if (auto const name = one.fontName.trim(); host().accepts_font(name))
        visual.FontName = name;
    visual.FontSize = int{one.fontSize};
    visual.FontBold = one.fontBold != 0;
    visual.FontItalic = one.fontItalic != 0;
    if (has_height_of_font(one))
        visual.Height = drop_down_height(visual);
}

void take_place(TextControl& visual, Field const& one) {
    visual.Move(int{one.left}, int{one.top});
    visual.Width = int{one.width};
    if (!has_height_of_font(one))
        visual.Height = int{one.height};
}

/// The object of a field with the look and place of its record, hidden and without content.
TextControl& make_visual(Kind const& kind, int number, bool card_colour) {
    auto& one = field(number);
    auto& visual = fCard->with_visuals(
        kind.style, [number](auto& visuals) -> TextControl& { return visuals.Load(number); });
    visual.Tag = std::to_string(number);
    take_font(visual, one);
    visual.ForeColor = one.foreColor;
    visual.BackColor = card_colour ? card.color : one.backColor;
    take_place(visual, one);
    return visual;
}

void fill_dropped_content(Style style, int number) {
    switch (style) {
    case Style::TXT:
        fCard->txt(number).MaxLength = int{field(number).size};
        break;
    case Style::STX:
        fCard->stx(number).MaxLength = int{field(number).size};
        break;
    case Style::IMG:
        fCard->img(number).FontUnderline = true;
        print_image_text(fCard->img(number), number);
        break;
    case Style::LST:
        fCard->lst(number).AddItem("c:\\tekstit\\malli.doc");
        break;
    default:
        fill_content(style, number);
        break;
    }
}

} // namespace

void build_visual(Kind const& kind, int number) {
    auto& visual = make_visual(kind, number, shows_card_colour(kind));
    fill_content(kind.style, number);
    visual.Visible = true;
}

void build_dropped_visual(Kind const& kind, int number) {
    bool const card_colour =
        shows_card_colour(kind) || (kind.look == Look::image && card.transp != 0);
    auto& visual = make_visual(kind, number, card_colour);
    fill_dropped_content(kind.style, number);
    visual.Visible = true;
    visual.TabIndex = number;
}

void show_place(int number) {
    fCard->place_frame(number);
    auto* const visual = fCard->visual_of(number);
    if (!visual)
        return;
    take_place(*visual, field(number));
    refresh_image(number);
}

void show_font(int number) {
    auto* const visual = fCard->visual_of(number);
    if (!visual)
        return;
    take_font(*visual, field(number));
    refresh_image(number);
}

void show_fore_color(int number) {
    if (auto* const visual = fCard->visual_of(number))
        visual->ForeColor = field(number).foreColor;
    refresh_image(number);
}

void show_background(int number) {
    auto* const visual = fCard->visual_of(number);
    if (!visual)
        return;
    auto const& one = field(number);
    visual->BackColor = shows_card_colour(*one.kind()) ? card.color : one.backColor;
    if (one.is_title())
        take_back_style(fCard->ots(number));
}

void show_image_background(int number) {
    if (auto* const image = dynamic_cast<PictureBox*>(fCard->visual_of(number)))
        image->BackColor = card.transp != 0 ? card.color : field(number).backColor;
}

void show_caption(int number) {
    auto* const visual = fCard->visual_of(number);
    if (!visual)
        return;
    auto const caption = field(number).caption.trimmed();
    if (auto* const label = dynamic_cast<Label*>(visual))
        label->Caption = caption;
    else if (auto* const check = dynamic_cast<CheckBox*>(visual))
        check->Caption = caption;
    else if (auto* const option = dynamic_cast<OptionButton*>(visual))
        option->Caption = caption;
    else
        refresh_image(number);
}

void show_value(int number) {
    auto* const visual = fCard->visual_of(number);
    if (!visual)
        return;
    if (auto* const box = dynamic_cast<TextBox*>(visual))
        box->Text = field(number).value.trimmed();
    else if (dynamic_cast<CheckBox*>(visual))
        restore_check(number);
    else if (dynamic_cast<OptionButton*>(visual))
        restore_option(number);
    else
        show_list(number);
}

void show_size_limit(int number) {
    if (auto* const box = dynamic_cast<TextBox*>(fCard->visual_of(number)))
        box->MaxLength = int{field(number).size};
}

void show_align(int number) {
    if (auto* const title = dynamic_cast<Label*>(fCard->visual_of(number)))
        title->Alignment = int{field(number).align};
}

void show_border(int number) {
    if (auto* const image = dynamic_cast<PictureBox*>(fCard->visual_of(number)))
        image->BorderStyle = int{field(number).border};
}

void show_list(int number) {
    if (auto* const box = dynamic_cast<ComboBox*>(fCard->visual_of(number)))
        fill_list(*box, field(number));
}

bool is_usable_font(std::string const& name) {
    return decltype(Field::fontName)(name).trimmed() == name && host().accepts_font(name);
}

double drop_down_height(TextControl const& box) {
    // Frame and room above and below the text: in the usual font the height of a text box.
    constexpr double around = 9;
    return round_to_even(host().measure_text(box.font(), "Äy").height) + around;
}

void restore_check(int number) {
    if (!fCard->chk.has(number))
        return;
    fCard->chk(number).Value = int{Integer(std::fabs(value_number(field(number))))};
}

void restore_option(int number) {
    if (!fCard->opt.has(number))
        return;
    fCard->opt(number).Value = value_number(field(number)) != 0;
}

} // namespace kehystin
