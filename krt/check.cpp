#include "krt/commands.h"
#include "krt/files.h"
#include "krt/findings.h"

#include <nlohmann/json.hpp>

namespace krt {

namespace {

using kehystin::Check;
using Json = nlohmann::ordered_json;

/// Everything that there is to tell of one card.
struct Checked {
    std::vector<kehystin::Finding> findings;
    std::vector<std::pair<Check, std::vector<int>>> checks;
    kehystin::Linking linking;

    bool is_quiet() const { return findings.empty() && checks.empty() && !linking.failure; }
};

Checked check_card(kehystin::Reading reading) {
    Checked checked{std::move(reading.findings), {}, kehystin::link_card(reading.data)};
    for (auto const check : kehystin::all_checks)
        if (auto fields = told(check, reading.data); !fields.empty())
            checked.checks.emplace_back(check, std::move(fields));
    return checked;
}

std::string line_of(std::string const& file, int field, std::string const& text) {
    auto const place = field == 0 ? "" : "field " + std::to_string(field) + ": ";
    return shown_name(file) + ": " + place + text + "\n";
}

std::string as_text(std::string const& file, Checked const& checked) {
    std::string lines;
    for (auto const& finding : checked.findings)
        lines += line_of(file, field_of(finding.key), text_of(finding));
    if (checked.linking.failure)
        lines += line_of(file, 0, text_of(*checked.linking.failure));
    for (auto const& [check, fields] : checked.checks) {
        auto const text = text_of(check, fields.size());
        if (check == Check::columns)
            lines += line_of(file, 0, text);
        else
            for (int const field : fields)
                lines += line_of(file, field, text);
    }
    return lines;
}

std::string dumped(Json const& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json as_json(kehystin::Finding const& finding, std::string const& text) {
    return {{"what", name_of(finding.what)},
            {"key", finding.key},
            {"found", finding.found},
            {"kept", finding.kept},
            {"text", text}};
}

/// Printed piece by piece: a hostile file has findings of a size that should not stand twice.
void print_json(std::string const& file, Checked const& checked, bool readable,
                std::string const& fault = {}) {
    print("{\"file\":" + dumped(file) + ",\"readable\":" + (readable ? "true" : "false") +
          ",\"findings\":[");
    auto const* separator = "";
    for (auto const& finding : checked.findings) {
        print(separator + dumped(as_json(finding, fault.empty() ? text_of(finding) : fault)));
        separator = ",";
    }
    Json checks = Json::array();
    for (auto const& [check, fields] : checked.checks)
        checks.push_back({{"check", name_of(check)}, {"fields", fields}});
    Json links = Json::array();
    for (auto const& link : checked.linking.links)
        links.push_back({{"title", link.title}, {"data", link.data}});
    print("],\"checks\":" + dumped(checks) + ",\"links\":" + dumped(links) + "}\n");
}

Status check_file(std::string const& file, Form form) {
    auto const bytes = read_bytes(file);
    std::string fault;
    auto reading = bytes ? Reader{}.read(file, *bytes, &fault) : std::nullopt;
    if (!reading) {
        Checked nothing;
        if (bytes)
            nothing.findings.push_back({kehystin::Finding::What::not_a_card, {}, {}, {}, {}});
        if (form == Form::json)
            print_json(file, nothing, false, fault);
        return Status::failed;
    }
    auto const checked = check_card(std::move(*reading));
    if (form == Form::text)
        print(as_text(file, checked));
    else {
        print_json(file, checked, true);
        // The object has no member for it.
        if (checked.linking.failure)
            complain(file, text_of(*checked.linking.failure));
    }
    return checked.is_quiet() ? Status::quiet : Status::findings;
}

} // namespace

Status check(Files const& files, Form form) {
    return each(files, [&](std::string const& file) { return check_file(file, form); });
}

} // namespace krt
