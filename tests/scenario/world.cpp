#include "tests/scenario/world.h"

#include "disk/disk.h"
#include "platform/base.h"
#include "tests/scenario/pictures.h"
#include "tests/scenario/words.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace scenario {

namespace {

std::string read_file(std::string const& path, std::string_view name) {
    std::ifstream file(disk::path_of(path), std::ios::binary);
    if (!file || disk::kind_of(path) == disk::Kind::folder)
        throw StepError("expected the file " + std::string(name) + ", found none");
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

} // namespace

World::World(std::string folder, std::string beside)
    : folder_(platform::with_separator(std::move(folder))),
      beside_(platform::with_separator(std::move(beside))) {
    std::filesystem::create_directories(disk::path_of(folder_ + "windows"));
    std::filesystem::create_directories(disk::path_of(folder_ + "program"));
}

std::string World::path(std::string_view name) const {
    return folder_ + std::string(name);
}

void World::write(std::string_view name, std::string_view bytes) const {
    std::error_code ignored; // the opening tells
    auto const place = disk::path_of(path(name));
    std::filesystem::create_directories(place.parent_path(), ignored);
    std::ofstream file(place, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw StepError("expected to write the file " + std::string(name) +
                        ", found that it cannot be");
}

void World::create(std::string_view name, std::vector<std::string> const& lines) const {
    std::string bytes;
    for (auto const& line : lines)
        bytes.append(platform::to_code_page(line)).append(platform::line_break);
    write(name, bytes);
}

void World::create_picture(std::string_view name, int width, int height) const {
    auto const bytes = picture_bytes(name, width, height);
    if (!bytes)
        throw StepError("expected the name of a picture file and a size that it can have, found " +
                        std::string(name));
    write(name, *bytes);
}

void World::take(std::string_view name, std::string_view new_name) const {
    write(new_name, read_file(beside_ + std::string(name), name));
}

void World::remove(std::string_view name) const {
    std::error_code ignored; // what is not there cannot be removed either
    if (name.empty() || !std::filesystem::remove(disk::path_of(path(name)), ignored))
        throw StepError("expected the file " + std::string(name) + ", found none");
}

bool World::exists(std::string_view name) const {
    return disk::is_there(path(name));
}

std::string World::bytes(std::string_view name) const {
    return read_file(path(name), name);
}

std::vector<std::string> World::lines(std::string_view name) const {
    auto const all = bytes(name);
    std::vector<std::string> lines;
    for (std::string_view rest = all; !rest.empty();) {
        auto const end = std::min(rest.find('\n'), rest.size());
        auto line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(platform::from_code_page(line));
    }
    return lines;
}

} // namespace scenario
