#include "surface/undo.h"

#include "forms/editor_form.h"
#include "model/card.h"
#include "surface/rebuild.h"

namespace kehystin {

void undo(int mode) {
    auto& store = fEditor->undoFields;
    store.resize(static_cast<std::size_t>(int{card.fields}) + 1);
    for (int i = 1; i <= card.fields; ++i) {
        auto& kept = store[static_cast<std::size_t>(i)];
        if (mode == 0) {
            kept.left = field(i).left;
            kept.top = field(i).top;
        } else if (mode == 1) {
            field(i).left = kept.left;
            field(i).top = kept.top;
        }
    }
    if (mode == 1)
        rebuild();
}

} // namespace kehystin
