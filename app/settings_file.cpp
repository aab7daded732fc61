#include "app/settings_file.h"

#include "boxes/failure_report.h"
#include "disk/disk.h"
#include "model/session.h"
#include "platform/files.h"
#include "platform/host.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace kehystin {

namespace {

constexpr std::string_view file_name = "editor53.ini";

template <class Whole>
void append(std::vector<std::byte>& bytes, Whole number) {
    for (std::size_t i = 0; i < sizeof number; ++i)
        bytes.push_back(static_cast<std::byte>(number >> (8 * i)));
}

template <class Whole>
Whole taken(std::span<std::byte const> bytes) {
    Whole number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i)
        number |= static_cast<Whole>(static_cast<Whole>(bytes[i]) << (8 * i));
    return number;
}

void append_member(std::vector<std::byte>& bytes, MemberRef const& member) {
    if (auto* const* number = std::get_if<Integer*>(&member))
        append(bytes, static_cast<std::uint16_t>(int{**number}));
    else if (auto* const* real = std::get_if<float*>(&member))
        append(bytes, std::bit_cast<std::uint32_t>(**real));
    else
        for (char const character : std::get<FixedTextRef>(member).bytes())
            bytes.push_back(static_cast<std::byte>(character));
}

void take_member(MemberRef const& member, std::span<std::byte const> bytes) {
    if (auto* const* number = std::get_if<Integer*>(&member))
        **number = Integer(static_cast<std::int16_t>(taken<std::uint16_t>(bytes)));
    else if (auto* const* real = std::get_if<float*>(&member))
        **real = std::bit_cast<float>(taken<std::uint32_t>(bytes));
    else
        std::get<FixedTextRef>(member).assign_bytes(
            {reinterpret_cast<char const*>(bytes.data()), bytes.size()});
}

/// A size that is no size, or does not fit the screen, becomes four fifths of it.
void repair_size(float& size, double screen) {
    if (!(size >= 4200 && size <= screen + 300))
        size = static_cast<float>(screen * 4 / 5);
}

void repair_place(float& place, float size, double screen) {
    if (!(place >= 0))
        place = 0;
    else if (place > screen - 300)
        place = static_cast<float>(screen) - size;
}

void report(RuntimeError const& error) {
    MsgBox(lines({" Asetustiedoston editor53.ini avaaminen aiheutti virheen     ", "",
                  " " + error.text() + "   (" + std::to_string(error.number()) + ")     ", "",
                  " Asetustiedoston lataaminen on keskeytetty. "}),
           box::warning, " Tiedoksi");
}

/// Takes over what was read, however much it is.
void take_repaired(std::span<std::byte const> record) {
    if (record.empty())
        return;
    take_settings_record(settings, record);
    auto const screen = host().metrics();
    repair_settings(settings, screen.width * screen.TwipsPerPixelX,
                    screen.height * screen.TwipsPerPixelY);
}

std::string file_path() {
    return session.windowsDir + std::string(file_name);
}

/// A name that nothing has: what was kept before may be the settings that the user wants back.
std::string free_old_name() {
    auto const name = file_path() + ".old";
    if (!names_a_file(name))
        return name;
    int number = 2;
    while (names_a_file(name + std::to_string(number)))
        ++number;
    return name + std::to_string(number);
}

/// Settings that the disk did not give at the start may be whole: they are not written over.
void keep_unread_file() {
    if (!std::exchange(session.settings_unread, false) || !names_a_file(file_path()))
        return;
    if (!disk::rename(file_path(), free_old_name())) {
        session.settings_unread = true;
        throw RuntimeError(ErrorNumber::path_file_access);
    }
}

} // namespace

std::vector<std::byte> settings_record(Settings const& from) {
    Settings record = from;
    std::vector<std::byte> bytes;
    bytes.reserve(settings_bytes);
    for (auto const& member : settings_members())
        for (int i = 0; i < member.count; ++i)
            append_member(bytes, member.ref(record, i));
    return bytes;
}

void take_settings_record(Settings& to, std::span<std::byte const> bytes) {
    for (auto const& member : settings_members())
        for (int i = 0; i < member.count; ++i) {
            auto const ref = member.ref(to, i);
            auto size = static_cast<std::size_t>(member.bytes);
            if (std::holds_alternative<FixedTextRef>(ref))
                size = std::min(size, bytes.size()); // the beginning of a text is a text
            if (bytes.size() < size || bytes.empty())
                return;
            take_member(ref, bytes.first(size));
            bytes = bytes.subspan(size);
        }
}

void repair_settings(Settings& record, double screen_width, double screen_height) {
    for (auto const& member : settings_members()) {
        if (member.lowest == 0 && member.highest == 0)
            continue;
        auto& number = *std::get<Integer*>(member.ref(record, 0));
        if (number < member.lowest || number > member.highest)
            number = member.repaired;
    }
    for (std::size_t i = 1; i < record.lastFile.size(); ++i) {
        auto& name = record.lastFile[i];
        name.trim();
        if (name.bytes().front() == '\0')
            name = "";
    }
    repair_size(record.windowWidth, screen_width);
    repair_size(record.windowHeight, screen_height);
    repair_place(record.windowLeft, record.windowWidth, screen_width);
    repair_place(record.windowTop, record.windowHeight, screen_height);
}

bool ReadSettings() {
    std::vector<std::byte> record;
    try {
        if (!file_exists(file_path())) {
            session.settings_unread = disk::is_there(file_path()); // or nobody can tell
            return false;
        }
        read_record(file_path(), settings_bytes, record);
        take_repaired(record);
        return true;
    } catch (RuntimeError const& error) {
        take_repaired(record);
        session.settings_unread = names_a_file(file_path());
        report(error);
        return false;
    }
}

void WriteSettings() {
    keep_unread_file();
    write_record(file_path(), settings_record(settings));
}

} // namespace kehystin
