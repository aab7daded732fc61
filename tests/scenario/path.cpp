#include "tests/scenario/path.h"

#include "tests/scenario/words.h"

#include <cmath>

namespace scenario {

namespace {

[[noreturn]] void refuse(std::string_view name) {
    throw StepError("expected a name, found \"" + std::string(name) + "\"");
}

} // namespace

int NamePart::number() const {
    if (!index)
        return -1;
    auto const value = read_number(*index);
    if (!value || *value < 0 || *value > 1e6 || *value != std::floor(*value))
        throw StepError("expected a number behind " + name + ", found (" + *index + ")");
    return static_cast<int>(*value);
}

NamePath read_path(std::string_view name) {
    NamePath path;
    for (auto rest = name;;) {
        auto const end = std::min(rest.find_first_of(".("), rest.size());
        NamePart part{std::string(rest.substr(0, end)), std::nullopt};
        if (part.name.empty())
            refuse(name);
        rest.remove_prefix(end);
        if (rest.starts_with('(')) {
            auto const closing = rest.find(')');
            if (closing == std::string_view::npos)
                refuse(name);
            part.index = rest.substr(1, closing - 1);
            rest.remove_prefix(closing + 1);
        }
        path.push_back(std::move(part));
        if (rest.empty())
            return path;
        if (!rest.starts_with('.'))
            refuse(name);
        rest.remove_prefix(1);
    }
}

} // namespace scenario
