#include "panel/rows.h"

#include "model/session.h"

#include <algorithm>

namespace kehystin {

namespace {

constexpr double first_row_top = 30; // twips; the strips begin that much higher
constexpr Colour caption_strip = RGB(253, 253, 240);
constexpr Colour disabled_strip = RGB(222, 222, 222);

TextBox& editor_of(PanelRow const& row) {
    return (*fEditor).*row.editor;
}

void hide_row(PanelRow const& row) {
    fEditor->labProp(static_cast<int>(row.row)).Visible = false;
    editor_of(row).Visible = false;
    if (row.swatch)
        ((*fEditor).*row.swatch).Visible = false;
}

void show_row(PanelRow const& row, double top) {
    auto& caption = fEditor->labProp(static_cast<int>(row.row));
    caption.Top = top;
    caption.Visible = true;
    editor_of(row).Top = top;
    editor_of(row).Visible = true;
    if (row.button)
        ((*fEditor).*row.button).Top = top - first_row_top;
    if (row.scroll)
        ((*fEditor).*row.scroll).Top = top - first_row_top;
    if (row.swatch) {
        auto& swatch = (*fEditor).*row.swatch;
        swatch.Top = top;
        swatch.Visible = true;
    }
}

/// Tab and Shift+Tab walk the rows as they stand.
void order_tabs(std::span<Row const> rows) {
    int place = editor_of(panel_rows().front()).TabIndex;
    for (auto const& row : panel_rows())
        place = std::min<int>(place, editor_of(row).TabIndex);
    for (auto const row : rows)
        editor_of(panel_row(row)).TabIndex = place++;
}

/// A pale strip behind each caption and a white one behind each value, a gap between them.
void paint_strips() {
    auto& area = fEditor->proPic;
    area.Cls();
    for (double y = 0; y <= area.Height; y += row_step)
        area.DrawFilledBox(0, y, caption_right, y + row_height, caption_strip);
    for (double y = 0; y <= area.Height - 2 * row_step; y += row_step)
        area.DrawFilledBox(value_left, y, value_right, y + row_height, colours::white);
}

} // namespace

void set_pro(std::string_view prefix) {
    auto const* const kind = panel_kind(prefix);
    if (!kind)
        return;
    session.helpTopic = kind->help_page;
    lay_out_rows(kind->rows);
}

void lay_out_rows(std::span<Row const> rows) {
    auto& form = *fEditor;
    double top = first_row_top;
    bool has_link_row = false;
    for (auto const row : rows) {
        show_row(panel_row(row), top);
        has_link_row = has_link_row || row == Row::link;
        top += row_step;
    }
    order_tabs(rows);
    form.proPic.Height = top + row_height;
    paint_strips();
    if (has_link_row)
        show_link_mode();
    if ((form.proPic.Height > form.proBot.Height) != form.scr_pro.Visible)
        form.paintTimer.Enabled = true;
}

void hide_pro() {
    fEditor->proPic.Visible = false;
    hide_cmd();
    for (auto const& row : panel_rows())
        hide_row(row);
}

void hide_cmd() {
    for (auto const& row : panel_rows()) {
        if (row.button)
            ((*fEditor).*row.button).Visible = false;
        if (row.scroll)
            ((*fEditor).*row.scroll).Visible = false;
        if (row.list)
            ((*fEditor).*row.list).Visible = false;
    }
    fEditor->bot_list.Visible = false;
}

void show_link_mode() {
    auto& link = fEditor->txt_linkki;
    bool const manual = fEditor->txt_linkitys.Text.get() == "Manuaalinen";
    auto const colour = manual ? colours::white : disabled_strip;
    fEditor->proPic.DrawFilledBox(link.Left - 30, link.Top - 30, value_right,
                                  link.Top - 30 + row_height, colour);
    link.BackColor = colour;
    link.Enabled = manual;
}

void labProp_Click(int index) {
    auto const row = row_of(index);
    if (row != Row::none)
        editor_of(panel_row(row)).SetFocus();
}

void row_GotFocus(Row number) {
    auto const& row = panel_row(number);
    hide_cmd();
    if (row.button)
        ((*fEditor).*row.button).Visible = true;
    if (row.scroll)
        ((*fEditor).*row.scroll).Visible = true;
    editor_of(row).select_all();
    session.pro_focus = static_cast<int>(number);
}

} // namespace kehystin
