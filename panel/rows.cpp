#include "panel/rows.h"

#include "model/session.h"
#include "panel/row_texts.h"
#include "platform/base.h"
#include "platform/system.h"

#include <algorithm>
#include <cmath>

namespace kehystin {

namespace {

constexpr double first_row_top = 30; // twips; the strips begin that much higher
constexpr Colour caption_strip = RGB(253, 253, 240);
constexpr Colour disabled_strip = RGB(222, 222, 222);

void hide_row(PanelRow const& row) {
    fEditor->labProp(static_cast<int>(row.row)).Visible = false;
    editor_of(row.row).Visible = false;
    if (row.swatch)
        ((*fEditor).*row.swatch).Visible = false;
}

void show_row(PanelRow const& row, double top) {
    auto& caption = fEditor->labProp(static_cast<int>(row.row));
    caption.Top = top;
    caption.Visible = true;
    editor_of(row.row).Top = top;
    editor_of(row.row).Visible = true;
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
    int place = editor_of(panel_rows().front().row).TabIndex;
    for (auto const& row : panel_rows())
        place = std::min<int>(place, editor_of(row.row).TabIndex);
    for (auto const number : rows) {
        auto const& row = panel_row(number);
        editor_of(number).TabIndex = place++;
        // Who clicked what stands beside an editor goes on from there.
        if (row.button)
            ((*fEditor).*row.button).TabIndex = place++;
        if (row.scroll)
            ((*fEditor).*row.scroll).TabIndex = place++;
    }
}

} // namespace

void paint_strips() {
    auto& area = fEditor->proPic;
    area.Cls();
    for (double y = 0; y <= area.Height; y += row_step)
        area.DrawFilledBox(0, y, caption_right, y + row_height, caption_strip);
    for (double y = 0; y <= area.Height - 2 * row_step; y += row_step)
        area.DrawFilledBox(value_left, y, value_right, y + row_height, colours::white);
}

namespace {

/// A row that is scrolled out of sight comes back when it gets the keyboard.
void scroll_into_view(PanelRow const& row) {
    auto& bar = fEditor->scr_pro;
    if (!bar.Visible)
        return;
    double const top = editor_of(row.row).Top - first_row_top;
    double const bottom = top + row_step;
    double const seen_to = bar.Value + fEditor->proBot.Height;
    if (top < bar.Value)
        bar.Value = static_cast<int>(top);
    else if (bottom > seen_to)
        bar.Value = std::min(
            bar.Max.get(),
            static_cast<int>(std::ceil((bottom - fEditor->proBot.Height) / row_step) * row_step));
}

/// The item of that text; of several the one that is chosen already.
int place_of_item(ListBox const& list, std::string const& text) {
    return list.chosen_text() == text && list.ListIndex >= 0 ? int{list.ListIndex}
                                                             : list.find_item(text);
}

/// The list of a row stands under its editor and on the item that the editor shows. Nothing is
/// chosen by that.
void prepare_list(PanelRow const& row) {
    constexpr double wider = 300; // twips than the editor
    constexpr double item_height = 210;
    constexpr int most_items = 8;
    auto& list = (*fEditor).*row.list;
    auto const& editor = editor_of(row.row);
    // Tab goes on from an open list as from its editor, also where rows share the list.
    int const place = editor.TabIndex;
    list.TabIndex = list.TabIndex < place ? place : place + 1;
    list.Left = fEditor->proPic.Left + editor.Left;
    list.Width = editor.Width + (row.row == Row::link ? 0 : wider);
    place_pop_up(list, row.row, std::clamp(list.ListCount(), 1, most_items) * item_height + 60);
    list.set_spoken_name(row.caption);
    if (!row.value.tag.empty())
        list.Tag = std::string(row.value.tag); // tells the shared list whom it serves
    if (row.row == Row::link_mode)
        list.ListIndex.show(contains(UCase(editor.Text.get()), "AUTO") ? 0 : 1);
    else if (row.row == Row::value && list.find_item(editor.Text.get()) >= 0)
        list.ListIndex.show(place_of_item(list, editor.Text.get()));
    else if (row.row != Row::link)
        list.ListIndex.show(word_number(row.row, editor.Text.get()).value_or(-1));
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
    if (has_link_row)
        show_link_mode(form.txt_linkitys.Text.get() == link_mode_words[1].text);
    else
        paint_strips();
    bool const need_scrolling = form.proPic.Height > form.proBot.Height;
    if (need_scrolling != form.scr_pro.Visible)
        form.paintTimer.Enabled = true;
    else if (need_scrolling)
        fit_scroll_range();
}

void fit_scroll_range() {
    auto& bar = fEditor->scr_pro;
    double const range = fEditor->proPic.Height - fEditor->proBot.Height + row_step;
    bar.Min = 0;
    bar.Max = static_cast<int>(range - std::fmod(range, row_step)); // whole rows
    bar.Value = std::min(bar.Value.get(), bar.Max.get());
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
    }
    hide_pop_ups();
}

void hide_pop_ups() {
    for (auto const& row : panel_rows())
        if (row.list)
            ((*fEditor).*row.list).Visible = false;
    fEditor->bot_list.Visible = false;
}

void show_link_mode(bool manual) {
    auto& link = fEditor->txt_linkki;
    auto const colour = manual ? colours::white : disabled_strip;
    paint_strips();
    fEditor->proPic.DrawFilledBox(link.Left - 30, link.Top - 30, value_right,
                                  link.Top - 30 + row_height, colour);
    link.BackColor = colour;
    link.Enabled = manual;
}

void labProp_Click(int index) {
    auto const row = row_of(index);
    if (row != Row::none)
        editor_of(row).SetFocus();
}

void proPic_MouseDown(int, MouseArguments const& mouse) {
    if (mouse.X < value_left)
        return;
    for (auto const& row : panel_rows()) {
        auto& editor = editor_of(row.row);
        double const top = editor.Top - first_row_top;
        if (editor.Visible && mouse.Y >= top && mouse.Y < top + row_height)
            return editor.SetFocus();
    }
}

void row_GotFocus(Row number) {
    auto const& row = panel_row(number);
    hide_cmd();
    scroll_into_view(row);
    if (row.button)
        ((*fEditor).*row.button).Visible = true;
    if (row.scroll)
        ((*fEditor).*row.scroll).Visible = true;
    editor_of(row.row).select_all();
    session.pro_focus = static_cast<int>(number);
    if (row.list)
        prepare_list(row);
}

void place_pop_up(Control& pop_up, Row number, double height) {
    auto const& editor = editor_of(number);
    auto const& area = fEditor->proPic;
    constexpr double gap = 30;
    double const below = area.Top + editor.Top + editor.Height + gap;
    double const above = area.Top + editor.Top - gap - height;
    bool const fits_below = below + height <= fEditor->proBot.Height;
    pop_up.Top = fits_below || above < 0 ? below : above;
    pop_up.Height = height;
    pop_up.bring_to_front();
}

bool belongs_to_row(Control const* control, Row number) {
    auto const& row = panel_row(number);
    auto& form = *fEditor;
    return control &&
           (control == &(form.*row.editor) || (row.button && control == &(form.*row.button)) ||
            (row.scroll && control == &(form.*row.scroll)) ||
            (row.list && control == &(form.*row.list)));
}

void give_keyboard_back(Control* before) {
    // Without a row to go back to, focusTimer is to find the first one.
    bool const has_row = session.pro_focus != 0;
    if (before && has_row && !System::current().focused())
        before->SetFocus();
}

} // namespace kehystin
