#include "properties/link_rows.h"

#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "panel/rows.h"
#include "properties/apply.h"
#include "properties/word_choice.h"

namespace kehystin {

namespace {

void show_title_of(Field& one) {
    PanelUpdate const filling;
    fEditor->txt_linkki.Text = row_text(Row::link, one);
}

} // namespace

void txt_link_Change() {
    auto const linkable = boolean_word(fEditor->txt_link.Text.get());
    if (session.pro_updating || !linkable)
        return;
    change_selected(Links::renew, [&](int, Field& one) { one.value = *linkable ? "" : no_link; });
}

void txt_linkitys_Change() {
    if (session.pro_updating)
        return;
    bool const manual = !contains(UCase(Trim(fEditor->txt_linkitys.Text.get())), "AUTO");
    show_link_mode(manual);
    int last = 0;
    for (int const number : selected_fields()) {
        field(number).linkitys = manual;
        last = number;
    }
    update_links();
    if (last != 0)
        show_title_of(field(last));
    finish_change(Links::keep);
    fEditor->txt_linkki.SetFocus(); // which an automatic link leaves closed
}

void lst_linkitys_Click() {
    auto& form = *fEditor;
    form.txt_linkitys.Text = form.lst_linkitys.chosen_text();
    if (form.txt_linkki.can_take_focus())
        form.txt_linkki.SetFocus();
    else
        form.txt_linkitys.SetFocus();
    form.lst_linkitys.Visible = false;
}

void txt_linkki_Change() {
    if (!session.pro_updating)
        finish_change(Links::renew);
}

void lst_linkki_Click() {
    auto& form = *fEditor;
    int const chosen = form.lst_linkki.ListIndex;
    if (chosen < 0)
        return;
    {
        PanelUpdate const filling;
        form.txt_linkki.Text = Trim(form.lst_linkki.chosen_text());
    }
    int const title = form.lst_linkki.ItemData(chosen);
    change_selected(Links::renew, [&](int, Field& one) { one.linkki = title; });
    form.txt_linkki.SetFocus();
    form.lst_linkki.Visible = false;
}

void txt_linkki_LostFocus() {
    auto const selected = selected_fields();
    if (session.pro_updating || keyboard_stays_in(Row::link) || selected.size() != 1)
        return;
    auto& one = field(selected.front());
    if (fEditor->txt_linkki.Text.get() != row_text(Row::link, one))
        show_title_of(one);
}

} // namespace kehystin
