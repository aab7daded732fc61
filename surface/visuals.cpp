#include "surface/visuals.h"

#include "commands/document_state.h"
#include "commands/failure_report.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"
#include "platform/files.h"
#include "surface/hourglass.h"

#include <cmath>

namespace kehystin {

namespace {

/// The number in a field's `value`, after trimming it in the record.
double value_number(Field& one) {
    return Val(one.value.trim());
}

void fill_list(ComboBox& box, Field& one) {
    if (box.ListCount() > 0)
        box.Clear();
    // What stands behind the last bar is no item.
    std::string const list = one.list.str();
    std::size_t start = 0;
    for (std::size_t bar; (bar = list.find('|', start)) != std::string::npos; start = bar + 1)
        box.AddItem(std::string_view(list).substr(start, bar - start));
    double const chosen = round_to_even(value_number(one));
    if (chosen >= -1 && chosen < box.ListCount())
        box.ListIndex = static_cast<int>(chosen);
}

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

void fill_image(PictureBox& picture, int number) {
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

void fill_content(Style style, int number) {
    auto& one = field(number);
    switch (style) {
    case Style::OTS:
        fCard->ots(number).Caption = one.caption.trim();
        fCard->ots(number).Alignment = one.align;
        fCard->ots(number).BackStyle =
            card.transp != 0 ? int(BackStyle::transparent) : int(BackStyle::opaque);
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
        fill_image(fCard->img(number), number);
        break;
    case Style::LST:
        fCard->lst(number).AddItem("C:\\malli_kansio\\malli_tiedosto.doc");
        break;
    }
}

TextControl& load_visual(Style style, int number) {
    switch (style) {
    case Style::OTS:
        return fCard->ots.Load(number);
    case Style::TXT:
        return fCard->txt.Load(number);
    case Style::CHK:
        return fCard->chk.Load(number);
    case Style::OPT:
        return fCard->opt.Load(number);
    case Style::CMB:
        return fCard->cmb.Load(number);
    case Style::IMG:
        return fCard->img.Load(number);
    case Style::LST:
        return fCard->lst.Load(number);
    case Style::STX:
        return fCard->stx.Load(number);
    }
    throw RuntimeError(ErrorNumber::subscript_out_of_range);
}

} // namespace

bool shows_card_colour(Kind const& kind) {
    bool const label =
        kind.style == Style::OTS || kind.style == Style::CHK || kind.style == Style::OPT;
    return label && card.transp != 0;
}

namespace {

/// The object of a field with the look and place of its record, hidden and without content.
TextControl& make_visual(Kind const& kind, int number, bool card_colour) {
    auto& one = field(number);
    auto& visual = load_visual(kind.style, number);
    visual.Tag = std::to_string(number);
    visual.FontName = one.fontName.trim();
    visual.FontSize = int{one.fontSize};
    visual.FontBold = one.fontBold != 0;
    visual.FontItalic = one.fontItalic != 0;
    visual.ForeColor = one.foreColor;
    visual.BackColor = card_colour ? card.color : one.backColor;
    visual.Move(int{one.left}, int{one.top});
    visual.Width = int{one.width};
    visual.Height = kind.style == Style::CMB ? drop_down_height(visual) : int{one.height};
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
        shows_card_colour(kind) || (kind.style == Style::IMG && card.transp != 0);
    auto& visual = make_visual(kind, number, card_colour);
    fill_dropped_content(kind.style, number);
    visual.Visible = true;
    visual.TabIndex = number;
}

double drop_down_height(TextControl const& box) {
    // Frame and room above and below the text: in the usual font the height of a text box.
    constexpr double around = 9;
    return round_to_even(host().measure_text(box.font(), "Äy").height) + around;
}

void restore_check(int number) {
    fCard->chk(number).Value = int{Integer(std::fabs(value_number(field(number))))};
}

void restore_option(int number) {
    fCard->opt(number).Value = value_number(field(number)) != 0;
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

namespace {

constexpr std::string_view picture_filter =
    "Kuvatiedostot (*.bmp,*.wmf,*.jpg,*.gif,*.ico)|*.bmp;*.wmf;*.jpg;*.gif;*.ico|"
    "Kaikki tiedostot (*.*)|*.*";

void show_chosen_picture(int number, std::string const& path) {
    Hourglass const pointer;
    auto& one = field(number);
    auto const stored = FixedText<400>(path);
    auto const picture = LoadPicture(stored.trimmed());
    one.list = stored.trimmed();
    fCard->img(number).Cls();
    fCard->img(number).Picture = picture;
    PanelUpdate const filling;
    fEditor->txt_imgfile.Text = file_part(one.list.trimmed());
    MarkCardChanged();
}

} // namespace

void load_image(int number) {
    std::string path;
    try {
        path = host().ShowOpen({".bmp", std::string(picture_filter), 0, 0});
    } catch (RuntimeError const& error) {
        if (error.is(ErrorNumber::cancelled))
            return;
        throw;
    }
    if (path.empty())
        return;
    try {
        show_chosen_picture(number, path);
    } catch (RuntimeError const& error) {
        standard_report(" Kuvatiedoston avaaminen aiheutti virheen     ", error);
    }
}

} // namespace kehystin
