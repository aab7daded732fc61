#include "properties/list_editor.h"

#include "boxes/failure_report.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "panel/rows.h"
#include "panel/selection_rows.h"
#include "platform/host.h"
#include "platform/system.h"
#include "properties/apply.h"
#include "surface/visuals.h"

namespace kehystin {

namespace {

constexpr std::string_view title = " Alasvetovalikko";

ListBox& items() {
    return fEditor->lst_list;
}

/// Each item ends with a bar.
std::string joined_items() {
    std::string joined;
    for (int i = 0; i < items().ListCount(); ++i)
        joined += items().List(i) + "|";
    return joined;
}

/// With the characters that a record can hold; a line break would end its line in the file.
std::string as_stored(std::string_view text) {
    return from_code_page(to_code_page(in_one_line(text)));
}

void show_in_rows(Field* first) {
    PanelUpdate const filling;
    auto& form = *fEditor;
    form.lst_value.Clear();
    form.lst_value.AddItem("");
    for (int i = 0; i < items().ListCount(); ++i)
        form.lst_value.AddItem(items().List(i));
    form.txt_list.Text = items().ListCount() > 0 ? items().List(0) : "";
    if (first)
        form.txt_value.Text = row_text(Row::value, *first);
}

void warn_of_length(std::size_t length) {
    auto const last = items().List(items().ListCount() - 1);
    MsgBox(lines({" Voit tallentaa alasvetovalikkoon yhteensä korkeintaan 400 merkkiä.     ",
                  // Three n's on purpose: the words of the boxes are not to change.
                  " Annnettujen arvojen yhteispituus on tällä hetkellä " +
                      Format(static_cast<double>(length)) + " merkkiä.     ",
                  "", " Nykyisen listan viimeisenä oleva rivi ei tule näkymään rekisterissä:",
                  " '" + last + "'     ", "",
                  " Voit lyhentää antamiesi tekstirivien pituutta tai käyttää muita     ",
                  " kenttätyyppejä tietojen keräämiseen.     "}),
           box::warning, " Alasvetovalikon arvoille varattu tila on ylitetty");
}

void set_button(Button& button, bool enabled) {
    button.Enabled = enabled;
    button.Picture = Picture::named(list_button_picture(button) + (enabled ? "" : "0"));
}

void move_item(int step) {
    if (items().move_chosen(step))
        UpdateCombo(Overlong::cut_silently);
}

} // namespace

void cmd_list_Click() {
    auto& form = *fEditor;
    place_pop_up(form.bot_list, Row::list, form.bot_list.Height);
    // Tab goes on from its last part to the row that follows.
    int place = form.txt_list.TabIndex;
    for (auto* const part : form.bot_list.children())
        part->TabIndex = part->TabIndex < place ? place : ++place;
    form.bot_list.Visible = true;
    lst_list_Click();
    form.lst_list.SetFocus();
    session.pro_focus = static_cast<int>(Row::list);
}

void cmd_list_add_Click() {
    while (true) {
        auto const item = as_stored(InputBox("Lisää listaan arvo", title));
        if (item.empty())
            return;
        int const chosen = items().ListIndex;
        int const place = chosen < 0 ? items().ListCount() : chosen + 1;
        items().AddItem(item, place);
        items().ListIndex = place;
        if (!UpdateCombo(Overlong::warn))
            return items().SetFocus(); // at the item that is too much
        if (MsgBox(lines({"", " Lisätäänkö uusi arvo?     "}), box::question + box::yes_no,
                   title) != Answer::yes)
            return;
    }
}

void cmd_list_change_Click() {
    int const chosen = items().ListIndex;
    if (chosen < 0)
        return;
    auto const item = as_stored(InputBox("Muuta arvo", title, items().List(chosen)));
    if (item.empty())
        return;
    items().set_List(chosen, item);
    if (!UpdateCombo(Overlong::warn))
        items().SetFocus();
}

void cmd_list_del_Click() {
    int const chosen = items().ListIndex;
    if (chosen < 0)
        return;
    auto const question =
        lines({"", " Poistetaan listalta arvo '" + items().List(chosen) + "'    "});
    if (MsgBox(question, box::information + box::ok_cancel, title) == Answer::cancel)
        return;
    items().RemoveItem(chosen);
    items().ListIndex = -1; // its Click brings the buttons up to date
    UpdateCombo(Overlong::cut_silently);
}

void cmd_list_up_Click() {
    move_item(-1);
}

void cmd_list_down_Click() {
    move_item(1);
}

void lst_list_Click() {
    auto& form = *fEditor;
    int const chosen = items().ListIndex;
    set_button(form.cmd_list_change, chosen >= 0);
    set_button(form.cmd_list_del, chosen >= 0);
    set_button(form.cmd_list_up, chosen != 0);
    set_button(form.cmd_list_down, chosen < 0 || chosen != items().ListCount() - 1);
    // A button that was disabled under the user's hand leaves the keyboard to the list.
    if (form.bot_list.Visible && !System::current().focused())
        form.lst_list.SetFocus();
}

void bot_list_LostFocus() {
    auto const* const now = System::current().focused();
    auto const* const editor = &fEditor->bot_list;
    if (now && now != editor && now->container() != editor)
        fEditor->bot_list.Visible = false;
}

void txt_list_Change() {
    if (session.pro_updating)
        return;
    PanelUpdate const filling;
    fEditor->txt_list.Text = common_text(Row::list);
}

void bot_list_KeyPress(char32_t& key) {
    if (key == escape_key)
        fEditor->txt_list.SetFocus(); // hides all pop-ups
}

bool UpdateCombo(Overlong overlong) {
    auto const joined = joined_items();
    Field* first = nullptr;
    change_selected(Links::keep, [&](int i, Field& one) {
        one.list = joined;
        show_list(i);
        if (one.holds(Value::choice) && !first)
            first = &one;
    });
    show_in_rows(first);
    auto const length = Len(joined);
    if (length <= decltype(Field::list)::length)
        return true;
    if (overlong == Overlong::warn)
        warn_of_length(length);
    return false;
}

} // namespace kehystin
