#include "panel/focus_memory.h"

#include "forms/panel_rows.h"
#include "model/session.h"

namespace kehystin {

namespace {

/// Two rows select as many characters as another editor holds.
TextBox const& measured_editor(PanelRow const& row) {
    if (row.row == Row::caption)
        return fEditor->txt_name;
    if (row.row == Row::link)
        return fEditor->txt_linkitys;
    return (*fEditor).*row.editor;
}

void select_and_focus(TextBox& editor, TextBox const& measured) {
    editor.SelStart = 0;
    editor.SelLength = static_cast<int>(Len(measured.Text.get()));
    editor.SetFocus();
}

bool return_to_row_in_use() {
    auto const number = row_of(session.pro_focus);
    if (number == Row::none)
        return false;
    auto const& row = panel_row(number);
    auto& editor = (*fEditor).*row.editor;
    if (!editor.can_take_focus())
        return false;
    // The row of the list is in use only while its list editor is open.
    if (number == Row::list && !fEditor->lst_list.is_shown())
        return false;
    select_and_focus(editor, measured_editor(row));
    return true;
}

void take_first_that_stands() {
    session.pro_focus = 0;
    for (auto* const editor : {&fEditor->txt_name, &fEditor->txt_caption, &fEditor->txt_size})
        if (editor->can_take_focus())
            return select_and_focus(*editor, *editor);
    auto& form = *fEditor;
    if (!form.txt_list.can_take_focus())
        form.cmb_field.SetFocus();
    else if (form.bot_list.Visible)
        form.cmd_list_add.SetFocus();
    else
        form.txt_list.SetFocus();
}

} // namespace

void focusTimer_Timer() {
    if (!return_to_row_in_use())
        take_first_that_stands();
    fEditor->focusTimer.Enabled = false;
}

} // namespace kehystin
