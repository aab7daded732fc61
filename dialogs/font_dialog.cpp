#include "dialogs/font_dialog.h"

#include "boxes/failure_report.h"
#include "dialogs/modal.h"
#include "forms/font_form.h"
#include "forms/velho_form.h"
#include "model/session.h"
#include "platform/base.h"
#include "platform/host.h"
#include "surface/visuals.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kehystin {

namespace {

struct FontStyle {
    std::string_view name;
    bool bold;
    bool italic;
};

constexpr std::array styles = {
    FontStyle{"Normaali", false, false},
    FontStyle{"Lihavoitu", true, false},
    FontStyle{"Kursivoitu", false, true},
    FontStyle{"Lihavoitu ja kursivoitu", true, true},
};

Label& target() {
    constexpr int titles = 1;
    return session.fontDialogMode == titles ? fVelho->fontOts : fVelho->fontTxt;
}

void copy_look(Label const& from, Label& to) {
    to.set_font(from.font());
    to.BackColor = from.BackColor;
    to.ForeColor = from.ForeColor;
}

void upd_ots(Label const& source) {
    copy_look(source, fFont->ots);
    fFont->BC.BackColor = source.BackColor;
    fFont->FC.BackColor = source.ForeColor;
}

void upd_field(Label& field_sample) {
    copy_look(fFont->ots, field_sample);
}

void center_ots() {
    center_sample(fFont->ots);
}

void put_text(TextBox& box, std::string const& text) {
    box.Text = text;
    box.select_all();
}

void lst_font_Click() {
    if (fFont->lst_font.ListIndex >= 0)
        put_text(fFont->txt_font, fFont->lst_font.chosen_text());
}

void lst_size_Click() {
    if (fFont->lst_size.ListIndex >= 0)
        put_text(fFont->txt_size, Format(fFont->lst_size.ListIndex + FontForm::smallest_size));
}

void lst_style_Click() {
    if (fFont->lst_style.ListIndex >= 0)
        put_text(fFont->txt_style, fFont->lst_style.chosen_text());
}

std::string comparable(std::string_view name) {
    return UCase(Trim(name));
}

/// The first family of that name, or -1.
int find_family(std::string const& wanted) {
    auto const& list = fFont->lst_font;
    for (int i = 0; i < list.ListCount(); ++i)
        if (comparable(list.List(i)) == wanted)
            return i;
    return -1;
}

/// True where the name may be the beginning of another one that is still being typed.
bool may_go_on(std::string const& wanted) {
    auto const& list = fFont->lst_font;
    for (int i = 0; i < list.ListCount(); ++i)
        if (auto const name = comparable(list.List(i)); name != wanted && name.starts_with(wanted))
            return true;
    return false;
}

/// Choosing selects the whole text, and the next key would then begin a new name: a name that may
/// go on is only shown as chosen.
void choose_family(int index, std::string const& wanted) {
    if (may_go_on(wanted))
        fFont->lst_font.ListIndex.show(index);
    else
        fFont->lst_font.ListIndex = index;
    try {
        auto const& name = fFont->lst_font.List(index);
        if (!is_usable_font(name))
            throw RuntimeError(ErrorNumber::invalid_property_value);
        fFont->ots.FontName = name;
    } catch (RuntimeError const& error) {
        standard_report(" Fontin valinta aiheutti virheen     ", error);
    }
}

void txt_font_Change() {
    if (session.pro_updating)
        return;
    auto const wanted = comparable(fFont->txt_font.Text.get());
    if (wanted.empty())
        return;
    if (int const index = find_family(wanted); index >= 0)
        choose_family(index, wanted);
    center_ots();
}

/// The box takes the name as the list writes it once nothing more is typed into it.
void commit_family() {
    int const index = find_family(comparable(fFont->txt_font.Text.get()));
    if (index >= 0 && fFont->txt_font.Text.get() != fFont->lst_font.List(index))
        fFont->lst_font.ListIndex = index;
}

void txt_size_Change() {
    if (session.pro_updating)
        return;
    double const size = round_to_even(Val(fFont->txt_size.Text.get()));
    if (size >= FontForm::smallest_size && size <= FontForm::largest_size)
        fFont->ots.FontSize = size;
    center_ots();
}

void txt_style_Change() {
    if (session.pro_updating)
        return;
    for (auto const& [name, bold, italic] : styles)
        if (fFont->txt_style.Text.get() == name) {
            fFont->ots.FontBold = bold;
            fFont->ots.FontItalic = italic;
        }
    center_ots();
}

/// Asks for a colour; a cancelled dialog leaves everything as it was.
void choose_colour(PictureBox& swatch, Property<Colour> TextControl::*part) {
    constexpr int flags = 3;
    auto& shown = fFont->ots.*part;
    try {
        shown = host().ShowColor(shown, flags);
        swatch.BackColor = shown.get();
    } catch (RuntimeError const& error) {
        if (!error.is(ErrorNumber::cancelled))
            throw;
    }
}

void BC_Click() {
    choose_colour(fFont->BC, &TextControl::BackColor);
}

void FC_Click() {
    choose_colour(fFont->FC, &TextControl::ForeColor);
}

void cmd_ok_Click() {
    commit_family();
    upd_field(target());
    fFont->Close();
}

void cmd_cancel_Click() {
    session.dialogCancelled = true;
    fFont->Close();
}

void Form_QueryUnload(bool user, bool&) {
    if (user)
        session.dialogCancelled = true;
}

void wire() {
    auto& form = *fFont;
    form.lst_font.Click = lst_font_Click;
    form.lst_style.Click = lst_style_Click;
    form.lst_size.Click = lst_size_Click;
    form.txt_font.Change = txt_font_Change;
    form.txt_font.LostFocus = commit_family;
    form.txt_style.Change = txt_style_Change;
    form.txt_size.Change = txt_size_Change;
    form.BC.Click = BC_Click;
    form.cmd_bc.Click = BC_Click;
    form.FC.Click = FC_Click;
    form.cmd_fc.Click = FC_Click;
    form.cmd_ok.Click = cmd_ok_Click;
    form.cmd_cancel.Click = cmd_cancel_Click;
    form.QueryUnload = Form_QueryUnload;
}

void fill_lists() {
    auto& form = *fFont;
    for (auto const& name : host().fonts()) {
        form.lst_font.AddItem(name);
        form.lst_font.set_ItemData(form.lst_font.NewIndex(), form.lst_font.NewIndex());
    }
    for (int size = FontForm::smallest_size; size <= FontForm::largest_size; ++size)
        form.lst_size.AddItem(std::to_string(size) + " pt");
    for (auto const& style : styles)
        form.lst_style.AddItem(style.name);
}

void select_look(Label const& source) {
    auto& form = *fFont;
    auto const family = find_family(comparable(source.FontName.get()));
    form.lst_font.ListIndex = family;
    if (family < 0) // a family that the machine lacks still says its name
        put_text(form.txt_font, source.FontName);
    form.lst_size.ListIndex = static_cast<int>(source.FontSize) - FontForm::smallest_size;
    auto const style = std::find_if(styles.begin(), styles.end(), [&](FontStyle const& one) {
        return one.bold == source.FontBold && one.italic == source.FontItalic;
    });
    form.lst_style.ListIndex = static_cast<int>(style - styles.begin());
}

void set_def() {
    session.dialogCancelled = false;
    PanelUpdate const updating;
    fill_lists();
    upd_ots(target());
    select_look(target());
    center_ots();
}

void Form_Load() {
    wire();
    set_def();
}

} // namespace

void show_font_dialog() {
    show_dialog(fFont, Form_Load);
}

void center_sample(Label& sample) {
    constexpr double off_middle = 30;
    constexpr double slant = 8; // pixels, for the overhang of slanted letters
    auto const size = host().measure_text(sample.font(), sample.Caption.get());
    sample.Width = (std::ceil(size.width) + slant) * twips_per_pixel;
    sample.Height = std::ceil(size.height) * twips_per_pixel;
    auto const& around = *sample.container();
    sample.Move(around.Width / 2 - sample.Width / 2 - off_middle,
                around.Height / 2 - sample.Height / 2 - off_middle);
}

} // namespace kehystin
