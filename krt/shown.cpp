#include "krt/shown.h"

#include "krt/files.h"
#include "krt/findings.h"

#include <algorithm>

namespace krt {

namespace {

using kehystin::Finding;

/// As check says them, but for the keys that an old file lacks.
void tell(std::string const& file, std::vector<Finding> const& findings) {
    constexpr int enough = 10;
    int told = 0;
    for (auto const& finding : findings) {
        if (!is_fault(finding) || ++told > enough)
            continue;
        int const field = field_of(finding.key);
        auto const place = field == 0 ? "" : "field " + std::to_string(field) + ": ";
        complain(file, place + text_of(finding));
    }
    if (told > enough)
        complain(file, "ja " + std::to_string(told - enough) + " muuta löydöstä, katso krt check");
}

} // namespace

std::optional<Shown> read_to_show(std::string const& file) {
    auto const bytes = read_bytes(file);
    auto reading = bytes ? Reader{}.read(file, *bytes) : std::nullopt;
    if (!reading)
        return std::nullopt;
    tell(file, reading->findings);
    auto linking = kehystin::link_card(reading->data);
    if (linking.failure)
        complain(file, text_of(*linking.failure));
    bool const faulty = linking.failure ||
                        std::any_of(reading->findings.begin(), reading->findings.end(), is_fault);
    return Shown{std::move(reading->data), std::move(linking),
                 faulty ? Status::findings : Status::quiet};
}

} // namespace krt
