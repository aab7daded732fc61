#include "boxes/failure_report.h"

#include "platform/base.h"
#include "platform/host.h"

namespace kehystin {

using namespace platform;

std::string lines(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        if (part != parts.begin())
            text += line_break;
        text += *part;
    }
    return text;
}

std::string number_and_text(RuntimeError const& error) {
    return "  (" + std::to_string(error.number()) + ")  " + error.text();
}

std::string support_address_line() {
    return " osoitteeseen " + std::string(maker::support_address) + "     ";
}

std::string support_lines() {
    return lines({" Jos saat toistuvasti tämän ilmoituksen, ole hyvä ja ilmoita     ",
                  support_address_line()});
}

void standard_report(std::string_view line, RuntimeError const& error, std::string_view extra) {
    auto const closing = support_lines();
    auto const failure = number_and_text(error);
    MsgBox(extra.empty() ? lines({line, failure, closing}) : lines({line, failure, extra, closing}),
           box::warning, " Tiedoksi");
}

} // namespace kehystin
