#include "surface/record_watch.h"

#include "model/session.h"
#include "panel/selection_rows.h"
#include "surface/visuals.h"

#include <algorithm>

namespace kehystin {

void RecordWatch::refresh() const {
    if (!session.cardFormLoaded)
        return;
    int const count = std::min<int>(card.fields, static_cast<int>(before_.size()) - 1);
    for (int i = 1; i <= count; ++i) {
        auto const& before = before_[static_cast<std::size_t>(i)];
        auto const& now = field(i);
        if (before.value.bytes() != now.value.bytes() || before.list.bytes() != now.list.bytes())
            show_value(i);
    }
    refill_changed_rows(before_);
}

} // namespace kehystin
