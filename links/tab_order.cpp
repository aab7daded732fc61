#include "links/tab_order.h"

#include "forms/card_form.h"
#include "model/card.h"

namespace kehystin {

void upd_tabIndex() {
    for (int i = 1; i <= card.fields; ++i) {
        auto const* kind = kind_of(field(i).style);
        if (kind && kind->style != Style::IMG)
            field(i).tabIndex = int{fCard->visual(kind->style, i).TabIndex};
    }
}

} // namespace kehystin
