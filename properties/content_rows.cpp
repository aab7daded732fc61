#include "properties/content_rows.h"

#include "forms/editor_form.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "properties/apply.h"
#include "surface/visuals.h"

#include <algorithm>

namespace kehystin {

namespace {

constexpr std::string_view on = "-1";
constexpr std::string_view off = "0";
constexpr std::string_view none_chosen = "-1";

/// At most one option of a card is on; options are not grouped.
void clear_other_options(int chosen) {
    for (int i = 1; i <= card.fields; ++i)
        if (i != chosen && field(i).is(Style::OPT)) {
            field(i).value = off;
            show_value(i);
        }
}

void choose_item(Field& one, std::string const& text) {
    auto const items = items_of(one);
    if (fEditor->lst_value.ListIndex == 0 && text.empty()) {
        one.value = none_chosen;
        return;
    }
    // Of several equal items the one that was chosen counts; the list has an empty one before them.
    auto const chosen = static_cast<std::size_t>(fEditor->lst_value.ListIndex);
    if (fEditor->lst_value.ListIndex > 0 && chosen <= items.size() && items[chosen - 1] == text) {
        one.value = std::to_string(chosen - 1);
        return;
    }
    auto const found = std::find(items.begin(), items.end(), text);
    if (found != items.end())
        one.value = std::to_string(found - items.begin());
    else if (text.empty())
        one.value = none_chosen;
}

void take_value(int number, Field& one, std::string const& text) {
    bool const marked = UCase(Trim(text)) == "VALITTU";
    switch (one.kind() ? one.kind()->value : Value::none) {
    case Value::mark:
        one.value = marked ? on : off;
        if (marked && one.is(Style::OPT))
            clear_other_options(number);
        break;
    case Value::choice:
        choose_item(one, text);
        break;
    case Value::text:
        one.value = Trim(text);
        break;
    case Value::linkable: // the row stands beside titles too
    case Value::none:
        return;
    }
    show_value(number);
}

} // namespace

void txt_caption_Change() {
    if (session.pro_updating)
        return;
    auto const caption = Trim(fEditor->txt_caption.Text.get());
    change_selected(Links::keep, [&](int i, Field& one) {
        one.caption = caption;
        show_caption(i);
    });
}

void txt_value_Change() {
    if (session.pro_updating)
        return;
    auto const text = fEditor->txt_value.Text.get();
    change_selected(Links::keep, [&](int i, Field& one) { take_value(i, one, text); });
}

} // namespace kehystin
