#include "forms/card_form.h"

namespace kehystin {

std::unique_ptr<CardForm> fCard;

CardForm::CardForm() : Form("fCard", FormKind::child, ScaleMode::pixels) {
    stx.prototype().MultiLine = true;
    stx.prototype().ScrollBars = true;
    bigfocus.Visible = false;
    tmpImg.Visible = false;
}

CardForm::~CardForm() {
    begin_unload();
}

TextControl& CardForm::visual(Style style, int number) {
    return with_visuals(style, [number](auto& visuals) -> TextControl& { return visuals(number); });
}

TextControl* CardForm::visual_of(int number) {
    auto const* const kind = field(number).kind();
    // Frame and object of a field are made together.
    return kind && focus.has(number) ? &visual(kind->style, number) : nullptr;
}

void CardForm::place_frame(int number) {
    if (!focus.has(number))
        return;
    auto const& around = field(number);
    focus(number).Move(around.left - 1.0, around.top - 1.0, around.width + 2.0,
                       around.height + 2.0);
}

bool CardForm::is_selected(int number) {
    return focus.has(number) && focus(number).Visible;
}

std::vector<int> selected_fields() {
    std::vector<int> numbers;
    if (fCard)
        for (int i = 1; i <= card.fields; ++i)
            if (fCard->is_selected(i))
                numbers.push_back(i);
    return numbers;
}

} // namespace kehystin
