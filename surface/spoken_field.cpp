#include "surface/spoken_field.h"

#include "forms/card_form.h"
#include "model/card.h"
#include "model/session.h"

#include <iterator>

namespace kehystin {

namespace {

std::string name_of(Field const& one, int number) {
    auto const& kind = *one.kind();
    auto name = kind.has_caption() ? one.caption.trimmed() : one.group.trimmed();
    return name.empty() ? "Kenttä (" + std::to_string(number) + ")" : name;
}

} // namespace

std::optional<Spoken> describe_field(Control const& control) {
    int const number = control.index();
    // A card that is being read may say more fields than it has by then.
    if (!fCard || number < 1 || number > card.fields || number >= std::ssize(open_card.fields))
        return std::nullopt;
    auto const& one = field(number);
    auto const* const kind = one.kind();
    if (!kind || UCase(control.name()) != kind->prefix)
        return std::nullopt;
    return Spoken{.kind = std::string(kind->name),
                  .name = name_of(one, number),
                  .selected = fCard->is_selected(number),
                  .locked = static_cast<bool>(session.fieldsLocked)};
}

} // namespace kehystin
