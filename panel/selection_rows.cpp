#include "panel/selection_rows.h"

#include "forms/card_form.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "panel/rows.h"
#include "panel/selection_commands.h"
#include "platform/system.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace kehystin {

namespace {

/// The rows that several fields can show, top to bottom.
constexpr Row shared_rows[] = {
    Row::caption,  Row::align,     Row::size,       Row::list,       Row::font_name, Row::font_size,
    Row::bold,     Row::italic,    Row::back_color, Row::fore_color, Row::left,      Row::top,
    Row::width,    Row::height,    Row::value,      Row::image_file, Row::scaling,   Row::border,
    Row::linkable, Row::link_mode, Row::link};

/// A value that is `unseen` itself counts as not seen yet, as in every walk over the selection.
template <class T, class Get>
bool agree(std::vector<int> const& numbers, T unseen, Get const& get) {
    T seen = unseen;
    for (int const number : numbers) {
        auto value = get(field(number));
        if (seen == unseen)
            seen = std::move(value);
        else if (seen != value)
            return false;
    }
    return true;
}

bool agree_on(RowValue const& value, std::vector<int> const& numbers) {
    if (value.text)
        return agree(numbers, std::string("StartValue"), value.text);
    return agree(numbers, -333, [&](Field const& one) -> int {
        return value.word     ? value.word(one)
               : value.colour ? one.*value.colour
                              : int{one.*value.number};
    });
}

bool has_key(Row row) {
    return !panel_row(row).value.key.empty();
}

/// The kinds of some fields, each once.
using Kinds = std::vector<Kind const*>;

Kinds kinds_of(std::vector<int> const& numbers) {
    Kinds found;
    for (int const number : numbers) {
        auto const* const kind = field(number).kind();
        if (kind && std::find(found.begin(), found.end(), kind) == found.end())
            found.push_back(kind);
    }
    return found;
}

/// Values of one sort; titles stand in the way of texts only.
bool share_value_row(Kinds const& selected) {
    bool has_title = false;
    auto sort = Value::none;
    for (auto const* const kind : selected) {
        if (kind->value == Value::linkable)
            has_title = true;
        else if (kind->value == Value::none || (sort != Value::none && sort != kind->value))
            return false;
        else
            sort = kind->value;
    }
    return sort != Value::none && !(has_title && sort == Value::text);
}

/// File lists count for "Alkuarvo" alone: several of them show the rows of all kinds at once.
bool share_row(Kinds const& selected, Row row) {
    if (row == Row::value)
        return share_value_row(selected);
    return std::all_of(selected.begin(), selected.end(), [row](Kind const* kind) {
        return kind->look == Look::list || has_row(*kind, row);
    });
}

std::vector<Row> common_rows(Kinds const& selected) {
    std::vector<Row> rows;
    std::copy_if(std::begin(shared_rows), std::end(shared_rows), std::back_inserter(rows),
                 [&](Row row) { return share_row(selected, row); });
    return rows;
}

void show_difference(Row number) {
    auto const& row = panel_row(number);
    if (row.swatch)
        ((*fEditor).*row.swatch).BackColor = colours::white;
    else
        editor_of(number).Text = "";
}

/// Those whose kind has the row: a row of several fields can stand beside a field that has it not.
std::vector<int> fields_with(Row row, std::vector<int> numbers) {
    std::erase_if(numbers, [row](int number) {
        auto const* const kind = field(number).kind();
        return !kind || !has_row(*kind, row);
    });
    return numbers;
}

/// The selected fields whose values a row compares: those of its key are all, other rows go by the
/// fields that have them.
std::vector<int> compared_fields(Row row, std::vector<int> const& numbers) {
    return has_key(row) ? numbers : fields_with(row, numbers);
}

bool agree_in(Row row, std::vector<int> const& compared) {
    if (has_key(row))
        return agree_on(panel_row(row).value, compared);
    return agree(compared, std::string("StartValue"),
                 [row](Field& one) { return row_text(row, one); });
}

void fill_common_row(Row row, std::vector<int> const& numbers) {
    auto const compared = compared_fields(row, numbers);
    bool const agreed = !compared.empty() && agree_in(row, compared);
    if (agreed || (!has_key(row) && !compared.empty()))
        fill_row(row, field(compared.front())); // with the lists to choose from, in any case
    else if (row == Row::value)
        fEditor->lst_value.Clear();
    else if (row == Row::list)
        fEditor->lst_list.Clear();
    if (!agreed)
        show_difference(row);
}

void fill_common_values(std::vector<int> const& numbers) {
    PanelUpdate const filling;
    for (auto const row : shared_rows)
        fill_common_row(row, numbers);
}

/// Lists to choose from hang on more of a record than the text that stands in their row.
bool says_other(Row row, Field before, Field now) {
    if (row == Row::value || row == Row::list)
        return before.value != now.value || before.list != now.list;
    return row_text(row, before) != row_text(row, now);
}

void show_common_rows(std::vector<int> const& numbers) {
    auto* const keyboard = System::current().focused();
    hide_pro();
    fill_common_values(numbers); // first: what "Linkitys" says decides how "Linkki" looks
    lay_out_rows(common_rows(kinds_of(numbers)));
    fEditor->proPic.Visible = true;
    fEditor->focusTimer.Enabled = true;
    give_keyboard_back(keyboard);
}

/// The first of the selected fields that have the row, when they agree in it; else 0.
int agreed_field(Row row) {
    auto const compared = compared_fields(row, selected_fields());
    return !compared.empty() && agree_in(row, compared) ? compared.front() : 0;
}

} // namespace

bool all_same(Row row) {
    return agree_in(row, compared_fields(row, selected_fields()));
}

bool all_same(std::string_view key) {
    for (auto const& row : panel_rows())
        if (!key.empty() && row.value.key == key)
            return all_same(row.row);
    return true;
}

void refill_changed_rows(std::vector<Field> const& before) {
    auto const numbers = selected_fields();
    PanelUpdate const filling;
    for (auto const& row : panel_rows()) {
        bool const changed = std::any_of(numbers.begin(), numbers.end(), [&](int number) {
            auto const place = static_cast<std::size_t>(number);
            return place < before.size() && says_other(row.row, before[place], field(number));
        });
        if (changed && editor_of(row.row).Visible)
            fill_common_row(row.row, numbers);
    }
}

bool follow_in_scroll_bar(Row row) {
    int const spokesman = agreed_field(row);
    if (spokesman == 0)
        return false;
    PanelUpdate const filling;
    fill_row_scroll_bar(row, field(spokesman));
    return true;
}

std::string common_text(Row row) {
    int const spokesman = agreed_field(row);
    return spokesman == 0 ? std::string() : row_text(row, field(spokesman));
}

void set_pro() {
    auto const numbers = selected_fields();
    if (numbers.size() == 1) {
        fEditor->cmb_field.ListIndex = numbers.front();
        return;
    }
    fEditor->cmb_field.ListIndex = -1;
    show_common_rows(numbers);
    fCard->focus(0).Visible = false;
    command_state_of_selection(numbers);
    if (fEditor->stsBar.Visible)
        upd_sts();
}

} // namespace kehystin
