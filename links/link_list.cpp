#include "links/link_list.h"

#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"

namespace kehystin {

void FillLinkList() {
    PanelUpdate const filling;
    auto& list = fEditor->lst_linkki;
    list.Clear();
    for (int i = 1; i <= card.fields; ++i) {
        if (!field(i).is_title())
            continue;
        list.AddItem(field(i).caption.trim());
        list.set_ItemData(list.NewIndex(), i);
    }
}

} // namespace kehystin
