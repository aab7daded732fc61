#include "panel/card_rows.h"

#include "commands/document_state.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "model/card.h"
#include "model/session.h"

namespace kehystin {

void txt_name_Change() {
    if (session.pro_updating || !session.cardFormLoaded)
        return;
    card.name = Trim(fEditor->txt_name.Text.get());
    fCard->Caption = " " + card.name.trimmed();
    MarkCardChanged();
}

} // namespace kehystin
