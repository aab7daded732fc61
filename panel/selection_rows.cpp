#include "panel/selection_rows.h"

#include "forms/card_form.h"
#include "mainwindow/command_state.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "panel/rows.h"
#include "platform/system.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace kehystin {

namespace {

/// A property that can be compared over a selection: as a number or as a text.
struct Comparable {
    std::string_view key;
    Row row;
    int (*number)(Field const&) = nullptr;
    std::string (*text)(Field const&) = nullptr;
};

template <auto Member>
int number_of(Field const& one) {
    return one.*Member;
}

template <auto Member>
std::string text_of(Field const& one) {
    return (one.*Member).trimmed();
}

constexpr std::array comparables = {
    Comparable{"CAPTION", Row::caption, nullptr, text_of<&Field::caption>},
    Comparable{"ALIGN", Row::align, number_of<&Field::align>},
    Comparable{"LEFT", Row::left, number_of<&Field::left>},
    Comparable{"TOP", Row::top, number_of<&Field::top>},
    Comparable{"WIDTH", Row::width, number_of<&Field::width>},
    Comparable{"HEIGHT", Row::height, number_of<&Field::height>},
    Comparable{"FONTNAME", Row::font_name, nullptr, text_of<&Field::fontName>},
    Comparable{"FONTSIZE", Row::font_size, number_of<&Field::fontSize>},
    Comparable{"FONTBOLD", Row::bold, number_of<&Field::fontBold>},
    Comparable{"FONTITALIC", Row::italic, number_of<&Field::fontItalic>},
    Comparable{"FORECOLOR", Row::fore_color, number_of<&Field::foreColor>},
    Comparable{"BACKCOLOR", Row::back_color, number_of<&Field::backColor>},
    Comparable{"IMGFILE", Row::image_file, nullptr, text_of<&Field::list>},
    Comparable{"SCALING", Row::scaling, number_of<&Field::scaling>},
    Comparable{"BORDER", Row::border, number_of<&Field::border>},
    Comparable{"LINKITYS", Row::link_mode,
               [](Field const& one) -> int { return one.linkitys.number(); }},
    Comparable{"LINKKI", Row::link, number_of<&Field::linkki>},
};

/// Rows that several fields can show but that no key compares: they agree when their texts do.
constexpr Row rows_without_key[] = {Row::size, Row::list, Row::value, Row::linkable};

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

bool agree_on(Comparable const& property, std::vector<int> const& numbers) {
    return property.number ? agree(numbers, -333, property.number)
                           : agree(numbers, std::string("StartValue"), property.text);
}

/// The property that a row shows; null for a row without a key.
Comparable const* comparable_of(Row row) {
    for (auto const& property : comparables)
        if (property.row == row)
            return &property;
    return nullptr;
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

bool titles_only(Kinds const& selected) {
    return std::all_of(selected.begin(), selected.end(),
                       [](Kind const* kind) { return kind->style == Style::OTS; });
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
    using enum Row;
    std::vector<Row> rows;
    for (auto const row : {caption, align,      size,       list,   font_name, font_size, bold,
                           italic,  back_color, fore_color, left,   top,       width,     height,
                           value,   image_file, scaling,    border, linkable,  link_mode, link})
        if (share_row(selected, row))
            rows.push_back(row);
    return rows;
}

void show_difference(Row row) {
    auto& form = *fEditor;
    if (row == Row::fore_color)
        form.FC.BackColor = colours::white;
    else if (row == Row::back_color)
        form.BC.BackColor = colours::white;
    else
        (form.*panel_row(row).editor).Text = "";
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
    return comparable_of(row) ? numbers : fields_with(row, numbers);
}

bool agree_in(Row row, std::vector<int> const& compared) {
    if (auto const* const property = comparable_of(row))
        return agree_on(*property, compared);
    return agree(compared, std::string("StartValue"),
                 [row](Field& one) { return row_text(row, one); });
}

void fill_common_row(Row row, std::vector<int> const& numbers) {
    auto const compared = compared_fields(row, numbers);
    bool const agreed = !compared.empty() && agree_in(row, compared);
    if (agreed || (!comparable_of(row) && !compared.empty()))
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
    for (auto const& property : comparables)
        fill_common_row(property.row, numbers);
    for (auto const row : rows_without_key)
        fill_common_row(row, numbers);
}

/// Lists to choose from hang on more of a record than the text that stands in their row.
bool says_other(Row row, Field before, Field now) {
    if (row == Row::value || row == Row::list)
        return before.value != now.value || before.list != now.list;
    return row_text(row, before) != row_text(row, now);
}

/// One line of the card, column by column or row by row, that fields occupy.
class Occupancy {
  public:
    /// False when the stretch meets one that is taken already; takes it otherwise.
    bool take(int from, int length) {
        int const begin = std::max(from, 1);
        int const end = std::max(begin, from + length);
        if (static_cast<std::size_t>(end) > taken_.size())
            taken_.resize(static_cast<std::size_t>(end));
        auto const first = taken_.begin() + begin;
        auto const last = taken_.begin() + end;
        if (std::find(first, last, 'X') != last)
            return false;
        std::fill(first, last, 'X');
        return true;
    }

  private:
    std::vector<char> taken_;
};

struct Freedom {
    bool rows = true;
    bool columns = true;
};

/// Whether the fields could be aligned without piling them up: in rows when no two of them share a
/// stretch of height, in columns when no two share a stretch of width.
Freedom freedom_of(std::vector<int> const& numbers) {
    Freedom free;
    Occupancy across;
    Occupancy down;
    for (int const number : numbers) {
        auto const& one = field(number);
        free.columns = free.columns && across.take(one.left, one.width);
        free.rows = free.rows && down.take(one.top, one.height);
        if (!free.rows && !free.columns)
            break;
    }
    return free;
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

Code code(bool on) {
    return on ? Code::on : Code::off;
}

} // namespace

bool all_same(std::string_view key) {
    for (auto const& property : comparables)
        if (property.key == key)
            return agree_on(property, selected_fields());
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
    auto const free = freedom_of(numbers);
    UpdateCommandState(Code::keep, Code::on, code(free.rows), code(free.columns),
                       code(titles_only(kinds_of(numbers))), Code::keep);
    if (fEditor->stsBar.Visible)
        upd_sts();
}

} // namespace kehystin
