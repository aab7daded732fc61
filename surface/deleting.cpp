#include "surface/deleting.h"

#include "forms/card_form.h"
#include "links/link_list.h"
#include "model/card.h"
#include "platform/host.h"
#include "surface/rebuild.h"

namespace kehystin {

namespace {

/// Roles above this one are not renumbered when a field goes: they name the old number.
constexpr std::size_t last_renumbered_role = 14;

/// Takes a field out of the array, which keeps its length. A role that names the field itself goes
/// on naming its number, and so the field that came next.
void remove_field(int number) {
    for (int i = number; i < card.fields; ++i)
        field(i) = field(i + 1);
    for (std::size_t role = 1; role <= last_renumbered_role; ++role)
        if (card.fldSpeci[role] > number)
            card.fldSpeci[role] -= 1;
    card.fields -= 1;
}

} // namespace

void cmd_field_del_Click() {
    if (MsgBox(" Poistetaan valitut kentät kortilta?     ", box::information + box::ok_cancel,
               " Kentän poisto") == Answer::cancel)
        return;
    // From the highest down, so that the frames still tell which of the others are selected.
    for (int i = card.fields; i >= 1; --i)
        if (fCard->is_selected(i))
            remove_field(i);
    if (rebuild_in_place())
        FillLinkList();
}

} // namespace kehystin
