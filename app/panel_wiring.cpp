#include "app/wiring.h"
#include "forms/panel_rows.h"
#include "panel/panel_fit.h"
#include "panel/rows.h"
#include "panel/selector.h"
#include "properties/card_rows.h"
#include "properties/content_rows.h"
#include "properties/font_colour_rows.h"
#include "properties/image_rows.h"
#include "properties/link_rows.h"
#include "properties/list_editor.h"
#include "properties/number_rows.h"
#include "properties/word_choice.h"

namespace kehystin {

namespace {

/// Rows of numbers with a scroll bar.
void wire_numbers() {
    for (auto const& one : panel_rows()) {
        if (!one.scroll)
            continue;
        auto const row = one.row;
        editor_of(row).Change = [row] { number_Change(row); };
        editor_of(row).LostFocus = [row] { number_LostFocus(row); };
        auto& scroll = (*fEditor).*one.scroll;
        scroll.Change = [row] { number_scr_Change(row); };
        scroll.QueryScroll = [row] { return number_can_scroll(row); };
        scroll.LostFocus = [row] { number_LostFocus(row); };
    }
    fEditor->txt_tabindex.Change = txt_tabindex_Change;
}

bool is_link_row(Row row) {
    return row == Row::link_mode || row == Row::link;
}

/// Rows with a list of words share everything but what a change does, and the letters and the
/// double click that only fixed words have. The rows of links hand the keyboard on in their own
/// way.
void wire_words() {
    for (auto const& one : panel_rows()) {
        if (!one.list)
            continue;
        auto const row = one.row;
        auto& editor = editor_of(row);
        auto& button = (*fEditor).*one.button;
        auto& list = (*fEditor).*one.list;
        button.Click = [row] { drop_button_Click(row); };
        list.KeyPress = [row](int, char32_t& key) { word_list_KeyPress(row, key); };
        if (!is_link_row(row)) {
            editor.LostFocus = [row] { word_LostFocus(row); };
            button.LostFocus = [row] { word_LostFocus(row); };
            list.Click = [row] { word_list_Click(row); };
            list.LostFocus = [row] { word_list_LostFocus(row); };
        }
        if (one.value.words.empty() && row != Row::value)
            continue;
        editor.KeyPress = [row](int, char32_t& key) { word_KeyPress(row, key); };
        editor.DblClick = [row] { word_DblClick(row); };
    }
    auto& booleans = fEditor->lst_boolean;
    booleans.Click = lst_boolean_Click;
    booleans.LostFocus = [] {
        if (auto const row = row_of_boolean_list(); row != Row::none)
            word_list_LostFocus(row);
    };
    booleans.KeyPress = [](int, char32_t& key) {
        if (auto const row = row_of_boolean_list(); row != Row::none)
            word_list_KeyPress(row, key);
    };
}

void wire_looks() {
    auto& form = *fEditor;
    form.txt_fontName.Change = txt_fontName_Change;
    form.txt_fontSize.Change = txt_fontSize_Change;
    form.txt_fontBold.Change = txt_fontBold_Change;
    form.txt_fontItalic.Change = txt_fontItalic_Change;
    form.txt_align.Change = txt_align_Change;
    for (Control* const source : std::initializer_list<Control*>{&form.FC, &form.cmd_fc})
        source->Click = FC_Click;
    for (Control* const source : std::initializer_list<Control*>{&form.BC, &form.cmd_bc})
        source->Click = BC_Click;
    form.txt_fc.DblClick = FC_Click;
    form.txt_bc.DblClick = BC_Click;
    form.txt_fc.Change = txt_fc_Change;
    form.txt_bc.Change = txt_bc_Change;
}

void wire_contents() {
    auto& form = *fEditor;
    form.txt_caption.Change = txt_caption_Change;
    form.txt_value.Change = txt_value_Change;
    form.txt_scale.Change = txt_scale_Change;
    form.txt_border.Change = txt_border_Change;
    form.cmd_imgfile.Click = cmd_imgfile_Click;
    form.txt_imgfile.DblClick = txt_imgfile_DblClick;
    form.txt_imgfile.Change = txt_imgfile_Change;
}

void wire_card() {
    auto& form = *fEditor;
    form.txt_name.Change = txt_name_Change;
    form.txt_transp.Change = txt_transp_Change;
    form.cmd_picture.Click = cmd_picture_Click;
    form.txt_picture.DblClick = txt_picture_DblClick;
    form.txt_picture.Change = txt_picture_Change;
}

/// "Linkitys" takes any text and is never put back, and the two lists hand the keyboard on.
void wire_links() {
    auto& form = *fEditor;
    form.txt_link.Change = txt_link_Change;
    form.txt_linkitys.Change = txt_linkitys_Change;
    form.lst_linkitys.LostFocus = [] { fEditor->lst_linkitys.Visible = false; };
    form.lst_linkitys.Click = lst_linkitys_Click;
    form.txt_linkki.Change = txt_linkki_Change;
    form.txt_linkki.LostFocus = txt_linkki_LostFocus;
    form.cmd_linkki.LostFocus = txt_linkki_LostFocus;
    form.lst_linkki.LostFocus = [] {
        fEditor->lst_linkki.Visible = false;
        txt_linkki_LostFocus();
    };
    form.lst_linkki.Click = lst_linkki_Click;
}

void wire_list_editor() {
    auto& form = *fEditor;
    form.cmd_list.Click = cmd_list_Click;
    form.cmd_list_add.Click = cmd_list_add_Click;
    form.cmd_list_change.Click = cmd_list_change_Click;
    form.cmd_list_del.Click = cmd_list_del_Click;
    form.cmd_list_up.Click = cmd_list_up_Click;
    form.cmd_list_down.Click = cmd_list_down_Click;
    form.lst_list.Click = lst_list_Click;
    form.txt_list.Change = txt_list_Change;
    auto parts = form.bot_list.children();
    parts.push_back(&form.bot_list);
    for (auto* const part : parts) {
        part->KeyPress = [](int, char32_t& key) { bot_list_KeyPress(key); };
        part->LostFocus = bot_list_LostFocus;
    }
}

} // namespace

void wire_panel() {
    fEditor->cmb_field.Click = cmb_field_Click;
    fEditor->cmb_field.Picked = cmb_field_Picked;
    fEditor->scr_pro.Change = scr_pro_Change;
    fEditor->proPic.MouseDown = proPic_MouseDown;
    for (auto const& one : panel_rows()) {
        fEditor->labProp(static_cast<int>(one.row)).Click = labProp_Click;
        editor_of(one.row).GotFocus = [row = one.row] { row_GotFocus(row); };
    }
    wire_numbers();
    wire_words();
    wire_looks();
    wire_contents();
    wire_card();
    wire_links();
    wire_list_editor();
}

} // namespace kehystin
