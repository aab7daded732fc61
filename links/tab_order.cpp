#include "links/tab_order.h"

#include "forms/card_form.h"
#include "model/card.h"

namespace kehystin {

void upd_tabIndex() {
    for (int i = 1; i <= card.fields; ++i) {
        auto const* const object = fCard->visual_of(i);
        if (object && object->control_class() != ControlClass::picture_box)
            field(i).tabIndex = int{object->TabIndex};
    }
}

} // namespace kehystin
