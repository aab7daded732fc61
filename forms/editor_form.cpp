#include "forms/editor_form.h"

#include "forms/panel_rows.h"
#include "model/card.h"

#include <initializer_list>

namespace kehystin {

std::unique_ptr<EditorForm> fEditor;
std::unique_ptr<TipForm> fTip;

namespace {

constexpr Colour face = system_colour(15);

void place_bar(PictureBox& bar, Dock side, double thickness) {
    bar.Align = static_cast<int>(side);
    bar.BorderStyle = 0;
    bar.BackColor = face;
    bool const lies = side == Dock::top || side == Dock::bottom;
    (lies ? bar.Height : bar.Width) = thickness;
}

void build_field_bar(EditorForm& form) {
    place_bar(form.fldBar, Dock::left, 600);
    double top = 90;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        auto& button = form.*form.drag_buttons[i];
        button.Tag = std::string(kinds[i].prefix);
        button.set_spoken_name("Lisää " + std::string(kinds[i].name));
        button.Picture = Picture::named(button.name());
        button.DragMode = true;
        button.Move(60, top, 480, 480);
        top += 510;
    }
    form.pic_lock.Picture = Picture::named("pic_lock");
    form.pic_lock.BorderStyle = 0;
    form.pic_lock.BackColor = face;
    form.pic_lock.Move(120, top + 90, 360, 360);
    form.pic_lock.Visible = false;
    form.pic_lock.set_spoken_name("Kentät lukittu");
    form.fldBar.set_spoken_name("Kenttäpalkki");
    form.fldBar.Visible = false;
}

void build_panel(EditorForm& form) {
    place_bar(form.proBar, Dock::right, 2970);
    form.labPro.Caption = "Ominaisuudet";
    form.labPro.BackStyle = 0;
    form.labPro.Move(90, 90, 2400, 240);
    form.cmd_close_pro.Caption = "×";
    form.cmd_close_pro.Move(2640, 60, 270, 270);
    form.cmd_close_pro.set_spoken_name("Sulje ominaisuudet");
    form.cmb_field.set_spoken_name("Valittu kenttä");
    form.cmb_field.Move(60, 390, 2850, 330);
    form.cmb_field.BackColor = face;
    form.cmb_field.Enabled = false;
    form.peitto.Move(60, 390, 2850, 330);
    form.peitto.BackColor = face;
    form.peitto.bring_to_front();

    form.proBot.BorderStyle = 0;
    form.proBot.BackColor = face;
    form.proBot.Move(60, 810, 2850, 0);
    form.proPic.BorderStyle = 0;
    form.proPic.BackColor = face;
    form.proPic.Move(0, 0, 2820, 0);
    form.proPic.Visible = false;
    form.scr_pro.Move(2640, 0, 180, 0);
    form.scr_pro.SmallChange = static_cast<int>(row_step);
    form.scr_pro.LargeChange = static_cast<int>(row_step) * 4;
    form.scr_pro.Visible = false;
    form.scr_pro.set_spoken_name("Vieritä ominaisuuksia");
    for (auto* const area : {&form.proBar, &form.proBot})
        area->set_spoken_name(form.labPro.Caption.get());
    form.proPic.set_spoken_name(form.labPro.Caption.get());
    form.proBar.Visible = false;
}

void place_button(EditorForm& form, PanelRow const& row) {
    auto& button = form.*row.button;
    bool const opens_dialog = !row.list && row.row != Row::list;
    button.Caption = opens_dialog ? "…" : "▾";
    button.Move(row_button_left, 0, 270, row_height);
    button.Visible = false;
}

/// Characters: more than any record holds, and no more than a line of text can be edited with ease.
constexpr int longest_text = 32767;

/// A row's parts bear its caption; what each of them is says the rest.
void name_row(EditorForm& form, PanelRow const& row) {
    (form.*row.editor).set_spoken_name(row.caption);
    if (row.scroll)
        (form.*row.scroll).set_spoken_name(row.caption);
    if (row.button)
        (form.*row.button).set_spoken_name(row.caption);
    if (row.swatch)
        (form.*row.swatch).set_spoken_name(row.caption);
    if (row.list)
        (form.*row.list).set_spoken_name(row.caption);
}

void build_row(EditorForm& form, PanelRow const& row) {
    auto& caption = form.labProp.Load(static_cast<int>(row.row));
    caption.Caption = std::string(row.caption);
    caption.BackStyle = 0;
    caption.Move(60, 0, caption_right - 60, row_height - 60);
    auto& editor = form.*row.editor;
    editor.Move(value_left + 30, 0, row.width, row_height - 60);
    editor.BackColor = colours::white;
    editor.MaxLength = longest_text;
    editor.Visible = false;
    caption.caption_of = &editor;
    editor.opener = row.button ? &(form.*row.button) : nullptr;
    editor.stepper = row.scroll ? &(form.*row.scroll) : nullptr;
    if (row.scroll) {
        auto& scroll = form.*row.scroll;
        scroll.Min = -32768;
        scroll.Move(row_scroll_left, 0, 180, row_height);
        scroll.Visible = false;
    }
    if (row.button)
        place_button(form, row);
    if (row.swatch) {
        auto& swatch = form.*row.swatch;
        swatch.Move(value_left + 105, 0, 900, row_height - 60);
        swatch.is_sample = true;
        swatch.Visible = false;
    }
    if (row.list) {
        (form.*row.list).pops_up = true;
        (form.*row.list).BackColor = colours::white;
        (form.*row.list).Visible = false;
    }
    name_row(form, row);
}

void build_list_editor(EditorForm& form) {
    form.bot_list.Move(0, 0, value_right, 1845);
    form.bot_list.BackColor = face;
    form.bot_list.Visible = false;
    form.lst_list.BackColor = colours::white;
    form.lst_list.Move(60, 60, value_right - 120, 1320);
    form.bot_list.set_spoken_name(panel_row(Row::list).caption);
    form.lst_list.set_spoken_name(panel_row(Row::list).caption);
    form.cmd_list_add.set_spoken_name("Lisää rivi");
    form.cmd_list_change.set_spoken_name("Muuta riviä");
    form.cmd_list_del.set_spoken_name("Poista rivi");
    form.cmd_list_up.set_spoken_name("Siirrä riviä ylös");
    form.cmd_list_down.set_spoken_name("Siirrä riviä alas");
    double left = 60;
    for (auto* const button : {&form.cmd_list_add, &form.cmd_list_change, &form.cmd_list_del,
                               &form.cmd_list_up, &form.cmd_list_down}) {
        button->Move(left, 1425, 345, 345);
        left += 375;
    }
}

void build_rows(EditorForm& form) {
    for (auto const& row : panel_rows())
        build_row(form, row);
    build_list_editor(form);
    // Tab walks the rows, not what they stand in or what belongs to one of them.
    for (Control* const part : form.proPic.children())
        part->TabStop = dynamic_cast<TextBox*>(part) != nullptr;
    for (Control* const area : std::initializer_list<Control*>{
             &form.proPic, &form.proBot, &form.proBar, &form.fldBar, &form.icoBar, &form.bot_list,
             &form.cmd_close_pro, &form.scr_pro})
        area->TabStop = false;
}

} // namespace

EditorForm::EditorForm() : Form("fEditor", FormKind::main) {
    place_bar(icoBar, Dock::top, 555);
    ico.prototype().Move(90, 60, 435, 435);
    icoBar.set_spoken_name("Kuvakepalkki");
    stsBar.Height = 330;
    stsBar.set_panel_count(5);
    build_field_bar(*this);
    build_panel(*this);
    build_rows(*this);
    testFont.Visible = false;
}

EditorForm::~EditorForm() {
    begin_unload();
}

TipForm::TipForm() : Form("fTip", FormKind::tooltip) {
    BackColor = system_colour(24);
    lblTip.BackStyle = 0;
    lblTip.Move(15, 15);
}

TipForm::~TipForm() {
    begin_unload();
}

} // namespace kehystin
