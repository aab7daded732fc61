// fEditor: the main window with its menus, bars and timers. Only what stands in it: the handlers
// are wired in app/.
#pragma once

#include "card/kinds.h"
#include "forms/picture_panel.h"
#include "platform/form.h"

#include <array>
#include <memory>
#include <vector>

namespace kehystin {

using namespace platform;
struct Field;

/// Lengths in twips. Names of entries and controls are those that the scenarios use.
class EditorForm : public Form {
  public:
    EditorForm();
    ~EditorForm() override;

    // Menus, in the order in which they stand. Captions and states: mainwindow/menu_table.
    Menu mnu_file{this, "mnu_file"};
    Menu cmd_new{&mnu_file, "cmd_new"};
    Menu cmd_open{&mnu_file, "cmd_open"};
    Menu cmd_close{&mnu_file, "cmd_close"};
    Menu wSave{&mnu_file, "wSave"};
    Menu cmdTallenna{&mnu_file, "cmdTallenna"};
    Menu cmdTallennaNimella{&mnu_file, "cmdTallennaNimella"};
    Menu wProperties{&mnu_file, "wProperties"};
    Menu cmd_properties{&mnu_file, "cmd_properties"};
    Menu wF{&mnu_file, "wF"};
    Collection<Menu> lastFile{&mnu_file, "lastFile"};
    Menu wExit{&mnu_file, "wExit"};
    Menu cmd_lopeta{&mnu_file, "cmd_lopeta"};

    Menu mnu_card{this, "mnu_card"};
    Menu cmd_card_autocenter{&mnu_card, "cmd_card_autocenter"};
    Menu cmd_card_center{&mnu_card, "cmd_card_center"};
    Menu cmd_card_autosize{&mnu_card, "cmd_card_autosize"};
    Menu cmd_card_size{&mnu_card, "cmd_card_size"};

    Menu mnu_field{this, "mnu_field"};
    Menu cmd_field_add{&mnu_field, "cmd_field_add"};
    Menu cmd_field_del{&mnu_field, "cmd_field_del"};
    Menu wCols{&mnu_field, "wCols"};
    Menu cmd_cols{&mnu_field, "cmd_cols"};
    Menu cmdSpecifield{&mnu_field, "cmdSpecifield"};
    Menu wAlign{&mnu_field, "wAlign"};
    Menu cmd_align{&mnu_field, "cmd_align"};
    Menu cmd_align_left{&cmd_align, "cmd_align_left"};
    Menu cmd_align_right{&cmd_align, "cmd_align_right"};
    Menu cmd_align_center{&cmd_align, "cmd_align_center"};
    Menu cmd_valign{&mnu_field, "cmd_valign"};
    Menu cmd_valign_top{&cmd_valign, "cmd_valign_top"};
    Menu cmd_valign_bottom{&cmd_valign, "cmd_valign_bottom"};
    Menu cmd_valign_center{&cmd_valign, "cmd_valign_center"};
    Menu cmd_dense{&mnu_field, "cmd_dense"};
    Menu cmd_expand{&mnu_field, "cmd_expand"};
    Menu cmd_align_ots{&mnu_field, "cmd_align_ots"};
    Menu cmd_a_left{&cmd_align_ots, "cmd_a_left"};
    Menu cmd_a_right{&cmd_align_ots, "cmd_a_right"};
    Menu cmd_a_center{&cmd_align_ots, "cmd_a_center"};
    Menu cmd_valign_link{&mnu_field, "cmd_valign_link"};
    Menu wLink{&mnu_field, "wLink"};
    Menu cmd_link_automatic{&mnu_field, "cmd_link_automatic"};
    Menu cmd_lock{&mnu_field, "cmd_lock"};

    Menu mnu_view{this, "mnu_view"};
    Menu cmd_fldBar{&mnu_view, "cmd_fldBar"};
    Menu cmd_proBar{&mnu_view, "cmd_proBar"};
    Menu cmd_linkBar{&mnu_view, "cmd_linkBar"};
    Menu wBars{&mnu_view, "wBars"};
    Menu cmd_icoBar{&mnu_view, "cmd_icoBar"};
    Menu cmd_stsBar{&mnu_view, "cmd_stsBar"};
    Menu wGrid{&mnu_view, "wGrid"};
    Menu cmd_grid_show{&mnu_view, "cmd_grid_show"};
    Menu cmd_grid_snap{&mnu_view, "cmd_grid_snap"};
    Menu wGuide{&mnu_view, "wGuide"};
    Menu cmd_guide_show{&mnu_view, "cmd_guide_show"};
    Menu cmd_guide_snap{&mnu_view, "cmd_guide_snap"};

    Menu mnu_help{this, "mnu_help"};
    Menu cmd_help_index{&mnu_help, "cmd_help_index"};
    Menu wInfo{&mnu_help, "wInfo"};
    Menu cmd_info{&mnu_help, "cmd_info"};
    Menu cmdAutoPlace{&mnu_help, "cmdAutoPlace"};

    // The icon bar; ico(1) up are made by set_ico.
    PictureBox icoBar{this, "icoBar"};
    Collection<Button> ico{&icoBar, "ico"};
    /// The width for which the bar's upper edge is drawn, 0 before.
    double relief_width = 0;

    StatusBar stsBar{this, "stsBar"};

    // The field bar: a button for each kind of field, its Tag the kind's prefix.
    PictureBox fldBar{this, "fldBar"};
    Button drag_ots{&fldBar, "drag_ots"};
    Button drag_txt{&fldBar, "drag_txt"};
    Button drag_stx{&fldBar, "drag_stx"};
    Button drag_chk{&fldBar, "drag_chk"};
    Button drag_opt{&fldBar, "drag_opt"};
    Button drag_cmb{&fldBar, "drag_cmb"};
    Button drag_img{&fldBar, "drag_img"};
    Button drag_lst{&fldBar, "drag_lst"};
    /// The same in the order of `kinds`.
    static constexpr std::array<Button EditorForm::*, kinds.size()> drag_buttons = {
        &EditorForm::drag_ots, &EditorForm::drag_txt, &EditorForm::drag_stx, &EditorForm::drag_chk,
        &EditorForm::drag_opt, &EditorForm::drag_cmb, &EditorForm::drag_img, &EditorForm::drag_lst};
    static_assert(drag_buttons.back() != nullptr, "a button for each kind");
    /// Shown while the fields are locked.
    PictureBox pic_lock{&fldBar, "pic_lock"};

    // The property panel: selector, and the rows on proPic, which scrolls inside proBot.
    PictureBox proBar{this, "proBar"};
    Label labPro{&proBar, "labPro"};
    Button cmd_close_pro{&proBar, "cmd_close_pro"};
    ComboBox cmb_field{&proBar, "cmb_field"};
    /// Covers the selector until the first card is there.
    Label peitto{&proBar, "peitto"};
    PictureBox proBot{&proBar, "proBot"};
    PicturePanel proPic{&proBot, "proPic"};
    ScrollBar scr_pro{&proBot, "scr_pro"};

    /// Captions of the rows, 1 to 25. Which controls a row has: forms/panel_rows.
    Collection<Label> labProp{&proPic, "labProp"};
    TextBox txt_caption{&proPic, "txt_caption"};
    TextBox txt_size{&proPic, "txt_size"};
    TextBox txt_list{&proPic, "txt_list"};
    TextBox txt_fontName{&proPic, "txt_fontName"};
    TextBox txt_fontSize{&proPic, "txt_fontSize"};
    TextBox txt_fontBold{&proPic, "txt_fontBold"};
    TextBox txt_fontItalic{&proPic, "txt_fontItalic"};
    TextBox txt_fc{&proPic, "txt_fc"};
    TextBox txt_bc{&proPic, "txt_bc"};
    TextBox txt_left{&proPic, "txt_left"};
    TextBox txt_top{&proPic, "txt_top"};
    TextBox txt_width{&proPic, "txt_width"};
    TextBox txt_height{&proPic, "txt_height"};
    TextBox txt_value{&proPic, "txt_value"};
    TextBox txt_name{&proPic, "txt_name"};
    TextBox txt_transp{&proPic, "txt_transp"};
    TextBox txt_link{&proPic, "txt_link"};
    TextBox txt_picture{&proPic, "txt_picture"};
    TextBox txt_tabindex{&proPic, "txt_tabindex"};
    TextBox txt_align{&proPic, "txt_align"};
    TextBox txt_scale{&proPic, "txt_scale"};
    TextBox txt_imgfile{&proPic, "txt_imgfile"};
    TextBox txt_border{&proPic, "txt_border"};
    TextBox txt_linkitys{&proPic, "txt_linkitys"};
    TextBox txt_linkki{&proPic, "txt_linkki"};
    // The colours of rows 8 and 9.
    PictureBox FC{&proPic, "FC"};
    PictureBox BC{&proPic, "BC"};
    ScrollBar scr_size{&proPic, "scr_size"};
    ScrollBar scr_left{&proPic, "scr_left"};
    ScrollBar scr_top{&proPic, "scr_top"};
    ScrollBar scr_width{&proPic, "scr_width"};
    ScrollBar scr_height{&proPic, "scr_height"};
    // Drop buttons, at the right end of their rows.
    Button cmd_list{&proPic, "cmd_list"};
    Button cmd_fontName{&proPic, "cmd_fontName"};
    Button cmd_fontSize{&proPic, "cmd_fontSize"};
    Button cmd_fontBold{&proPic, "cmd_fontBold"};
    Button cmd_fontItalic{&proPic, "cmd_fontItalic"};
    Button cmd_fc{&proPic, "cmd_fc"};
    Button cmd_bc{&proPic, "cmd_bc"};
    Button cmd_value{&proPic, "cmd_value"};
    Button cmd_transp{&proPic, "cmd_transp"};
    Button cmd_link{&proPic, "cmd_link"};
    Button cmd_picture{&proPic, "cmd_picture"};
    Button cmd_alignment{&proPic, "cmd_alignment"};
    Button cmd_scale{&proPic, "cmd_scale"};
    Button cmd_imgfile{&proPic, "cmd_imgfile"};
    Button cmd_border{&proPic, "cmd_border"};
    Button cmd_linkitys{&proPic, "cmd_linkitys"};
    Button cmd_linkki{&proPic, "cmd_linkki"};
    // Pop-up lists. They stand over rows and scroll bar, and below the last row where there is
    // room.
    ListBox lst_fontName{&proBot, "lst_fontName"};
    ListBox lst_fontSize{&proBot, "lst_fontSize"};
    ListBox lst_boolean{&proBot, "lst_boolean"};
    ListBox lst_value{&proBot, "lst_value"};
    ListBox lst_align{&proBot, "lst_align"};
    ListBox lst_scale{&proBot, "lst_scale"};
    ListBox lst_border{&proBot, "lst_border"};
    ListBox lst_linkitys{&proBot, "lst_linkitys"};
    ListBox lst_linkki{&proBot, "lst_linkki"};
    // The list editor of a drop-down field.
    PictureBox bot_list{&proBot, "bot_list"};
    ListBox lst_list{&bot_list, "lst_list"};
    Button cmd_list_add{&bot_list, "cmd_list_add"};
    Button cmd_list_change{&bot_list, "cmd_list_change"};
    Button cmd_list_del{&bot_list, "cmd_list_del"};
    Button cmd_list_up{&bot_list, "cmd_list_up"};
    Button cmd_list_down{&bot_list, "cmd_list_down"};

    /// Invisible sample of the font that new fields start with; the reader tries font names on it.
    Label testFont{this, "testFont"};

    /// Where the fields stood when surface/undo last looked; element 0 is not used.
    std::vector<Field> undoFields;

    Timer startFocus{this, "startFocus", 50, true};
    Timer closeTimer{this, "closeTimer", 10, false};
    Timer paintTimer{this, "paintTimer", 50, false};
    Timer focusTimer{this, "focusTimer", 20, false};
    Timer tipTimer{this, "tipTimer", 500, true};
    Timer rescueTimer{this, "rescueTimer", 1000, true};
};

/// The main window; it lives as long as the session.
extern std::unique_ptr<EditorForm> fEditor;

/// fTip: the tooltip.
class TipForm : public Form {
  public:
    TipForm();
    ~TipForm() override;
    Label lblTip{this, "lblTip"};
};

/// Null while no tip stands.
extern std::unique_ptr<TipForm> fTip;

} // namespace kehystin
