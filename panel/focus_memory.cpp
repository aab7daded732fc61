#include "panel/focus_memory.h"

#include "forms/panel_rows.h"
#include "model/session.h"

namespace kehystin {

namespace {

constexpr int caption_row = 1;
constexpr int link_row = 25;

/// Two rows select as many characters as another editor holds.
TextBox const& measured_editor(PanelRow const& row) {
    if (row.number == caption_row)
        return fEditor->txt_name;
    if (row.number == link_row)
        return fEditor->txt_linkitys;
    return (*fEditor).*row.editor;
}

void select_and_focus(TextBox& editor, TextBox const& measured) {
    editor.SelStart = 0;
    editor.SelLength = static_cast<int>(Len(measured.Text.get()));
    editor.SetFocus();
}

bool return_to_row_in_use() {
    int const number = session.pro_focus;
    if (number < 1 || number > static_cast<int>(panel_rows().size()))
        return false;
    auto const& row = panel_rows()[static_cast<std::size_t>(number) - 1];
    auto& editor = (*fEditor).*row.editor;
    if (!editor.can_take_focus())
        return false;
    select_and_focus(editor, measured_editor(row));
    return true;
}

void take_first_that_stands() {
    session.pro_focus = 0;
    for (auto* const editor : {&fEditor->txt_name, &fEditor->txt_caption, &fEditor->txt_size})
        if (editor->can_take_focus())
            return select_and_focus(*editor, *editor);
    if (fEditor->txt_list.can_take_focus())
        fEditor->txt_list.SetFocus();
    else
        fEditor->cmb_field.SetFocus();
}

} // namespace

void focusTimer_Timer() {
    if (!return_to_row_in_use())
        take_first_that_stands();
    fEditor->focusTimer.Enabled = false;
}

} // namespace kehystin
