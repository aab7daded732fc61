#include "properties/word_choice.h"

#include "forms/card_form.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "properties/apply.h"

#include <algorithm>

namespace kehystin {

namespace {

/// "Alkuarvo" has words only for check and option fields. Titles may stand beside them.
bool value_has_words() {
    bool found = false;
    for (int const number : selected_fields()) {
        bool const mark = field(number).holds(Value::mark);
        if (!mark && !field(number).is_title())
            return false;
        found = found || mark;
    }
    return found;
}

/// What "Alkuarvo" can hold of a drop-down: nothing, an item of its record, or what stands there.
bool names_item(std::string const& text) {
    if (text.empty())
        return true;
    for (int const number : selected_fields()) {
        auto& one = field(number);
        if (!one.holds(Value::choice))
            continue;
        auto const items = items_of(one);
        return std::find(items.begin(), items.end(), text) != items.end() ||
               row_text(Row::value, one) == text;
    }
    return true;
}

Words words_of(Row row) {
    if (row == Row::value)
        return value_has_words() ? Words(mark_words) : Words();
    return panel_row(row).value.words;
}

bool is_word(Row row, std::string const& text) {
    if (row == Row::value && !value_has_words())
        return names_item(text);
    return word_number(row, text).has_value();
}

} // namespace

void word_KeyPress(Row row, char32_t& key) {
    auto const words = words_of(row);
    auto const chosen = std::find_if(words.begin(), words.end(), [key](Word const& word) {
        return key <= 0x7f && word.letters.find(static_cast<char>(key)) != std::string_view::npos;
    });
    if (chosen == words.end())
        return;
    key = 0;
    list_of(row).ListIndex = static_cast<int>(chosen - words.begin()); // its Click carries it on
}

void word_DblClick(Row row) {
    auto& list = list_of(row);
    if (row == Row::value && !value_has_words())
        return;
    if (list.ListCount() > 0)
        list.ListIndex = (list.ListIndex + 1) % list.ListCount();
}

void word_LostFocus(Row row) {
    if (!session.pro_updating && !keyboard_stays_in(row) &&
        !is_word(row, editor_of(row).Text.get()))
        reload_rows();
}

void drop_button_Click(Row row) {
    auto& list = list_of(row);
    if (list.ListCount() == 0)
        return editor_of(row).SetFocus();
    list.Visible = true;
    list.SetFocus();
}

void word_list_Click(Row row) {
    auto& list = list_of(row);
    auto& editor = editor_of(row);
    bool const stood = editor.Text.get() == list.chosen_text();
    editor.Text = list.chosen_text();
    // Several fields may differ where the row shows nothing, and items may be equal.
    if (stood && row == Row::value)
        editor.Change(editor.index());
    editor.SetFocus();
    editor.select_all();
    list.Visible = false;
}

Row row_of_boolean_list() {
    auto const& tag = fEditor->lst_boolean.Tag.get();
    for (auto const& row : panel_rows())
        if (!tag.empty() && row.value.tag == tag)
            return row.row;
    return Row::none;
}

void lst_boolean_Click() {
    if (auto const row = row_of_boolean_list(); row != Row::none)
        word_list_Click(row);
}

void word_list_KeyPress(Row row, char32_t& key) {
    if (key == escape_key)
        editor_of(row).SetFocus();
}

void word_list_LostFocus(Row row) {
    list_of(row).Visible = false;
    word_LostFocus(row);
}

} // namespace kehystin
