// NamePath: a name in its parts, "session.default(OTS).fontName" as session, default(OTS),
// fontName.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenario {

struct NamePart {
    std::string name;
    std::optional<std::string> index; ///< what stands in parentheses behind the name

    /// The index as a whole number, -1 without one; raises StepError for another index.
    int number() const;
    bool is_plain(std::string_view plain_name) const { return !index && name == plain_name; }
};

using NamePath = std::vector<NamePart>;

/// Raises StepError for what cannot be a name.
NamePath read_path(std::string_view name);

} // namespace scenario
