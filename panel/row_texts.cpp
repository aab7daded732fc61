#include "panel/row_texts.h"

#include "platform/files.h"

#include <iterator>

namespace kehystin {

namespace {

/// The word of a row at a place, nothing where it has none.
std::string word(Words words, int place) {
    bool const known = place >= 0 && place < std::ssize(words);
    return known ? std::string(words[static_cast<std::size_t>(place)].text) : std::string();
}

/// The item that the value of a drop-down names. Digits that name none are shown as they are.
std::string chosen_item(Field& one) {
    auto const text = one.value.trim();
    auto const number = round_to_even(Val(text));
    auto const items = items_of(one);
    if (number >= 0 && number < static_cast<double>(items.size()))
        return items[static_cast<std::size_t>(number)];
    return number == -1 ? "" : text;
}

std::string value_text(Field& one) {
    if (one.holds(Value::mark))
        return word(mark_words, Val(one.value.trim()) != 0 ? 1 : 0);
    return one.holds(Value::choice) ? chosen_item(one) : one.value.trim();
}

std::string image_file_text(Field& one) {
    auto const path = one.list.trim();
    return names_a_file(path) ? file_part(path) : std::string(no_image_file);
}

/// A link kept by hand may name a field that is no longer there.
std::string link_text(Field const& one) {
    bool const exists = one.linkki >= 1 && one.linkki <= card.fields;
    return exists ? field(one.linkki).caption.trimmed() : std::string();
}

std::string first_item(Field const& one) {
    auto const items = items_of(one);
    return items.empty() ? std::string() : items.front();
}

/// Scroll bars run negative, so that up means more. A negative place is taken as it is.
void fill_scroll_bar(ScrollBar& bar, int value) {
    bar.Value = value < 0 ? value : -value;
}

void fill_value_list(Field& one) {
    auto& list = fEditor->lst_value;
    list.Clear();
    if (one.holds(Value::mark)) {
        for (auto const& mark : mark_words)
            list.AddItem(mark.text);
        return;
    }
    if (!one.holds(Value::choice))
        return;
    list.AddItem("");
    for (auto const& item : items_of(one))
        list.AddItem(item);
    // The empty item stands before the first: it means that none is chosen.
    auto const chosen = round_to_even(Val(one.value.trim())) + 1;
    if (chosen >= 0 && chosen < list.ListCount())
        list.ListIndex.show(static_cast<int>(chosen));
}

void fill_list_editor(Field const& one) {
    auto& form = *fEditor;
    form.lst_list.Clear();
    for (auto const& item : items_of(one))
        form.lst_list.AddItem(item);
    for (auto* const button : {&form.cmd_list_add, &form.cmd_list_change, &form.cmd_list_del,
                               &form.cmd_list_up, &form.cmd_list_down})
        button->Picture = Picture::named(list_button_picture(*button));
}

} // namespace

std::vector<std::string> items_of(Field const& one) {
    std::vector<std::string> items;
    std::string const list = one.list.str();
    std::size_t start = 0;
    for (std::size_t bar; (bar = list.find('|', start)) != std::string::npos; start = bar + 1)
        items.push_back(list.substr(start, bar - start));
    return items;
}

std::string list_button_picture(Button const& button) {
    return "img" + button.name().substr(button.name().find('_'));
}

std::optional<bool> boolean_word(std::string_view text) {
    auto const word = UCase(Trim(text));
    if (word == "KYLLÄ" || word == "YES")
        return true;
    if (word == "EI" || word == "NO")
        return false;
    return std::nullopt;
}

std::optional<int> word_number(Row row, std::string_view text) {
    if (!panel_row(row).value.tag.empty()) {
        auto const yes = boolean_word(text);
        return yes ? std::optional(*yes ? 0 : 1) : std::nullopt;
    }
    auto const& list = list_of(row);
    auto const word = UCase(Trim(text));
    for (int i = 0; i < list.ListCount(); ++i)
        if (UCase(Trim(list.List(i))) == word)
            return i;
    return std::nullopt;
}

std::string_view yes_no(bool yes) {
    return boolean_words[yes ? 0 : 1].text;
}

std::string row_text(Row row, Field& one) {
    switch (row) {
    case Row::caption:
        return one.caption.trim();
    case Row::list:
        return first_item(one);
    case Row::font_name:
        return one.fontName.trim();
    case Row::value:
        return value_text(one);
    case Row::image_file:
        return image_file_text(one);
    case Row::link:
        return link_text(one);
    default:
        break;
    }
    auto const& value = panel_row(row).value;
    if (value.word)
        return word(value.words, value.word(one));
    return value.number ? Format(one.*value.number) : std::string();
}

void fill_row_scroll_bar(Row number, Field const& one) {
    auto const& row = panel_row(number);
    if (row.scroll)
        fill_scroll_bar((*fEditor).*row.scroll, one.*row.value.number);
}

void fill_row(Row number, Field& one) {
    auto const& row = panel_row(number);
    if (row.value.colour) {
        ((*fEditor).*row.swatch).BackColor = one.*row.value.colour;
        return;
    }
    if (number == Row::value)
        fill_value_list(one);
    else if (number == Row::list)
        fill_list_editor(one);
    fill_row_scroll_bar(number, one);
    editor_of(number).Text = row_text(number, one);
}

void show_picture_text(std::string text) {
    fEditor->txt_picture.Tag = text;
    fEditor->txt_picture.Text = std::move(text);
}

void fill_card_rows() {
    auto& form = *fEditor;
    form.txt_name.Text = card.name.trim();
    form.BC.BackColor = card.color;
    form.txt_transp.Text = std::string(yes_no(card.transp != 0));
    form.txt_width.Text = Format(card.width);
    form.txt_height.Text = Format(card.height);
    fill_scroll_bar(form.scr_width, card.width);
    fill_scroll_bar(form.scr_height, card.height);
    auto const picture = card.picture.trim();
    if (names_a_file(picture))
        show_picture_text(file_part(picture));
    else
        // The text of "Taustakuva" stays, and without a picture nothing counts as transparent.
        form.txt_transp.Text = std::string(yes_no(false));
}

} // namespace kehystin
