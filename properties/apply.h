// What all rows of the panel have in common when they carry a value to the selected fields.
#pragma once

#include "forms/card_form.h"
#include "forms/panel_rows.h"
#include "model/card.h"
#include "model/default_looks.h"

namespace kehystin {

/// Ends the change of a row: links where it needs them, and the card has changed.
void finish_change(Links links);

/// Runs `change(number, record)` for every selected field, in ascending number, and ends the
/// change.
template <class Change>
void change_selected(Links links, Change const& change) {
    for (int const number : selected_fields())
        change(number, field(number));
    finish_change(links);
}

/// The same for a change that the next new field of the kind starts with: `remember(look)` changes
/// the default look of each kind that has a selected field.
template <class Change, class Remember>
void change_selected(Links links, Change const& change, Remember const& remember) {
    change_selected(links, [&](int number, Field& one) {
        change(number, one);
        if (auto const* const kind = one.kind())
            remember(default_look(kind->style));
    });
}

/// True when the panel edits the card and not fields.
bool edits_card();

/// True while the keyboard is in a row: leaving its editor for its own scroll bar, button or list
/// is not leaving the row.
bool keyboard_stays_in(Row row);

/// The code of the Escape key.
inline constexpr char32_t escape_key = 27;

/// Shows what the model has, for a text that cannot stand. With several fields selected the text
/// stays as it is.
void reload_rows();

} // namespace kehystin
