#include "dialogs/cols.h"

#include "card/column_order.h"
#include "dialogs/modal.h"
#include "forms/cols_form.h"
#include "forms/editor_form.h"
#include "links/link_list.h"
#include "mainwindow/document_state.h"
#include "model/card.h"
#include "model/session.h"
#include "surface/rebuild.h"

#include <vector>

namespace kehystin {

namespace {

void lst_Click() {
    fCols->cmd_up.Enabled = fCols->lst.ListIndex > 0;
    fCols->cmd_down.Enabled =
        fCols->lst.ListIndex >= 0 && fCols->lst.ListIndex < fCols->lst.ListCount() - 1;
}

/// Titles with links. A list that fills its member may have been cut in the middle of a number.
void fill_list() {
    auto& lst = fCols->lst;
    for (int i = 1; i <= card.fields; ++i) {
        if (!field(i).is_title())
            continue;
        auto const length = trimmed_view(field(i).list.bytes()).size();
        if (length == 0 || length >= decltype(Field::list)::length)
            continue;
        lst.AddItem(field(i).caption.trimmed() + " ");
        lst.set_ItemData(lst.NewIndex(), i);
    }
    if (lst.ListCount() > 0)
        lst.ListIndex = 0;
    else
        lst_Click();
}

void cmd_up_Click() {
    fCols->lst.move_chosen(-1);
}

void cmd_down_Click() {
    fCols->lst.move_chosen(1);
}

void cmd_ok_Click() {
    std::vector<int> titles;
    for (int i = 0; i < fCols->lst.ListCount(); ++i)
        titles.push_back(fCols->lst.ItemData(i));
    if (session.cardFormLoaded) // the titles are the card's
        order_columns(open_card, titles);
    fCols->Close();
}

void cmd_cancel_Click() {
    session.dialogCancelled = true;
    fCols->Close();
}

/// Whoever closes the window by its own button wants nothing changed.
void Form_QueryUnload(bool user, bool&) {
    if (user)
        session.dialogCancelled = true;
}

void Form_Load() {
    fCols->lst.Click = lst_Click;
    fCols->cmd_up.Click = cmd_up_Click;
    fCols->cmd_down.Click = cmd_down_Click;
    fCols->cmd_ok.Click = cmd_ok_Click;
    fCols->cmd_cancel.Click = cmd_cancel_Click;
    fCols->QueryUnload = Form_QueryUnload;
    session.dialogCancelled = false;
    fill_list();
}

} // namespace

void cmd_cols_Click() {
    fEditor->focusTimer.Enabled = false;
    show_dialog(fCols, Form_Load);
    if (session.dialogCancelled || !session.cardFormLoaded || !rebuild_in_place())
        return;
    FillLinkList();
    MarkCardChanged();
}

} // namespace kehystin
