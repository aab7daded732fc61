#include "model/settings.h"

namespace kehystin {

Settings settings;

namespace {

template <auto Member>
MemberRef plain(Settings& record, int) {
    return &(record.*Member);
}

MemberRef icon(Settings& record, int element) {
    return &record.icoList.at(static_cast<std::size_t>(element));
}

MemberRef last_file(Settings& record, int element) {
    return static_cast<FixedTextRef>(record.lastFile.at(static_cast<std::size_t>(element)));
}

template <auto Member>
constexpr SettingsMember number(std::string_view name, int lowest = 0, int highest = 0,
                                int repaired = 0) {
    return {name, 1, 2, plain<Member>, lowest, highest, repaired};
}

template <auto Member>
constexpr SettingsMember real(std::string_view name) {
    return {name, 1, 4, plain<Member>, 0, 0, 0};
}

constexpr std::array table = {
    number<&Settings::spareFlag1>("spareFlag1", -1, 0, 0),
    number<&Settings::spareFlag2>("spareFlag2", -1, 0, 0),
    number<&Settings::gridX>("gridX", least_grid, largest_density, 10),
    number<&Settings::gridY>("gridY", least_grid, largest_density, 10),
    number<&Settings::spareFlag3>("spareFlag3", -1, 0, 0),
    number<&Settings::spareFlag4>("spareFlag4", -1, 0, 0),
    number<&Settings::guideX>("guideX", least_guide, largest_density, 15),
    number<&Settings::guideY>("guideY", least_guide, largest_density, 15),
    SettingsMember{"icoList", icon_places + 1, 2, icon, 0, 0, 0},
    number<&Settings::showIconBar>("showIconBar"),
    number<&Settings::showStatusBar>("showStatusBar"),
    number<&Settings::spareFlag5>("spareFlag5"),
    number<&Settings::icoLarge>("icoLarge"),
    number<&Settings::icoWrap>("icoWrap"),
    number<&Settings::keepLastFiles>("keepLastFiles"),
    SettingsMember{"lastFile", 6, 100, last_file, 0, 0, 0},
    number<&Settings::saveWindowPos>("saveWindowPos"),
    real<&Settings::windowLeft>("windowLeft"),
    real<&Settings::windowTop>("windowTop"),
    real<&Settings::windowWidth>("windowWidth"),
    real<&Settings::windowHeight>("windowHeight"),
    number<&Settings::showVelho>("showVelho"),
};

constexpr std::size_t table_bytes() {
    std::size_t sum = 0;
    for (auto const& member : table)
        sum += static_cast<std::size_t>(member.count * member.bytes);
    return sum;
}
static_assert(table_bytes() == settings_bytes);

} // namespace

std::span<SettingsMember const> settings_members() {
    return table;
}

Settings first_settings(double screen_width, double screen_height) {
    Settings first;
    for (auto& name : first.lastFile)
        name = "";
    first.windowWidth = static_cast<float>(screen_width * 4 / 5);
    first.windowHeight = static_cast<float>(screen_height * 4 / 5);
    return first;
}

} // namespace kehystin
