#include "krt/commands.h"
#include "krt/files.h"
#include "krt/findings.h"

#include "disk/disk.h"
#include "rescue/store.h"

#include <cerrno>
#include <filesystem>

namespace krt {

namespace {

char const* name_of(rescue::What kind) {
    switch (kind) {
    case rescue::What::work:
        return "tallentamaton kortti";
    case rescue::What::before:
        return "tiedosto ennen keskeytynyttä tallennusta";
    case rescue::What::after:
        return "keskeytyneen tallennuksen kortti";
    }
    return "";
}

/// A folder that is not there is one where nothing has been kept yet.
bool is_readable(std::string const& folder) {
    std::error_code fault;
    std::filesystem::directory_iterator const first(disk::path_of(folder), fault);
    return !fault || (disk::kind_of(folder) == disk::Kind::missing && errno == ENOENT);
}

Status list(rescue::Store const& store) {
    if (store.keeps() && !is_readable(store.folder())) {
        complain(store.folder(), "ei voi lukea");
        return Status::failed;
    }
    auto const found = rescue::look_for_rescues(store);
    for (auto const& [name, one] : found.rescues)
        print(plain(name) + ": " + rescue::time_text(one.time) + ", " + name_of(one.kind) + ", " +
              (one.file.empty() ? "uusi kortti" : plain(one.file)) + "\n");
    for (auto const& name : found.unknown)
        complain(store.folder() + name, "ei ole pelastettu kortti, tai on vahingoittunut");
    return found.rescues.empty() && found.unknown.empty() ? Status::quiet : Status::findings;
}

Status fetch(rescue::Store const& store, std::string const& name, std::string const& target) {
    auto const bytes = store.bytes_of(name);
    auto const one = bytes ? rescue::from_file(*bytes) : std::nullopt;
    if (!one) {
        complain(store.folder() + name, "ei ole pelastettu kortti, tai on vahingoittunut");
        return Status::failed;
    }
    bool const done = target.empty() ? print(one->bytes) : write_whole(target, one->bytes);
    return done ? Status::quiet : Status::failed;
}

} // namespace

Status rescue_cards(Files const& names, std::string const& target) {
    rescue::Store const store(rescue::usual_folder());
    return names.empty() ? list(store) : fetch(store, names.front(), target);
}

} // namespace krt
