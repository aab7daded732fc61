#include "krt/commands.h"
#include "krt/files.h"
#include "krt/findings.h"

#include "card/linking.h"

#include <map>
#include <nlohmann/json.hpp>

namespace krt {

namespace {

using Json = nlohmann::ordered_json;

std::string as_text(std::string const& file, kehystin::CardData const& card,
                    kehystin::Linking const& linking) {
    std::map<int, std::string> lines;
    for (auto const& link : linking.links) {
        auto& line = lines[link.title];
        line += (line.empty() ? "" : ", ") + std::to_string(link.data);
    }
    std::string text;
    for (auto const& [title, data] : lines)
        text += shown_name(file) + ": " + std::to_string(title) + " " +
                plain(card.field(title).caption.trimmed()) + ": " + data + "\n";
    return text;
}

std::string as_json(std::string const& file, kehystin::Linking const& linking) {
    Json object = {{"file", file}};
    auto& links = object["links"] = Json::array();
    for (auto const& link : linking.links)
        links.push_back({{"title", link.title}, {"data", link.data}});
    return object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

Status links_of_file(std::string const& file, Form form) {
    auto const bytes = read_bytes(file);
    auto reading = bytes ? Reader{Pictures::kept}.read(file, *bytes) : std::nullopt;
    if (!reading)
        return Status::failed;
    auto const linking = kehystin::link_card(reading->data);
    print(form == Form::json ? as_json(file, linking) : as_text(file, reading->data, linking));
    if (linking.failure)
        complain(file, text_of(*linking.failure));
    bool const whole = tell_faults(file, *reading) && !linking.failure;
    return whole ? Status::quiet : Status::findings;
}

} // namespace

Status links(Files const& files, Form form) {
    return each(files, [&](std::string const& file) { return links_of_file(file, form); });
}

} // namespace krt
