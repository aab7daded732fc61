#include "layout/placing.h"

#include "forms/card_form.h"
#include "links/link_engine.h"
#include "mainwindow/document_state.h"
#include "model/card.h"

namespace kehystin {

namespace {

void place(Places const& places, Integer Field::*member, Property<double> Control::*coordinate) {
    for (auto const& [number, where] : places) {
        field(number).*member = where;
        if (fCard->focus.has(number))
            fCard->focus(number).*coordinate = where - 1.0;
        auto* const object = fCard->visual_of(number);
        // The object of a file list stays where it is until the card is shown anew.
        if (object && !field(number).looks(Look::list))
            (*object).*coordinate = int{where};
    }
}

} // namespace

void place_lefts(Places const& places) {
    place(places, &Field::left, &Control::Left);
}

void place_tops(Places const& places) {
    place(places, &Field::top, &Control::Top);
}

void finish_layout() {
    update_links();
    MarkCardChanged();
}

int first_linked(int title) {
    return Integer(Val(field(title).list.trimmed()));
}

} // namespace kehystin
