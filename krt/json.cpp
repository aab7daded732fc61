#include "krt/card_json.h"
#include "krt/commands.h"
#include "krt/files.h"

#include "card/writing.h"

namespace krt {

namespace {

constexpr std::size_t largest_json =
    2U * 1024 * 1024; // more than any card, even with each letter escaped

Status json_of_file(std::string const& file) {
    auto const bytes = read_bytes(file);
    auto reading = bytes ? Reader{Pictures::kept}.read(file, *bytes) : std::nullopt;
    if (!reading)
        return Status::failed;
    constexpr int indent = 2;
    auto const text =
        card_to_json(reading->data).dump(indent, ' ', false, Json::error_handler_t::replace);
    if (!print(text + "\n"))
        return Status::failed;
    return tell_faults(file, *reading) ? Status::quiet : Status::findings;
}

} // namespace

Status to_json(Files const& files) {
    return each(files, [](std::string const& file) { return json_of_file(file); });
}

Status make(std::string const& source, std::string const& target) {
    auto const bytes = spares_source(source, target) ? read_bytes(source) : std::nullopt;
    if (!bytes)
        return Status::failed;
    try {
        if (bytes->size() > largest_json)
            throw BadJson("", "on liian suuri kortiksi");
        auto card = json_to_card(parse_json(*bytes), today());
        auto const written = kehystin::write_card(card);
        bool const done = target.empty() ? print(written) : write_whole(target, written);
        return done ? Status::quiet : Status::failed;
    } catch (BadJson const& bad) {
        complain(source, bad.what());
    }
    return Status::failed;
}

} // namespace krt
