// The user's settings: one record of 730 bytes that survives between runs.
#pragma once

#include "card/member_ref.h"
#include "platform/base.h"

#include <array>
#include <span>
#include <string_view>

namespace kehystin {

using namespace platform;

// What grid and guide can take, in pixels.
inline constexpr int least_grid = 2;
inline constexpr int least_guide = 5;
inline constexpr int largest_density = 200;

inline constexpr int icon_places = 40;

struct Settings {
    Integer spareFlag1 = -1;
    Integer spareFlag2;
    Integer gridX = 5; ///< pixels, as the other densities
    Integer gridY = 5;
    Integer spareFlag3;
    Integer spareFlag4;
    Integer guideX = 20;
    Integer guideY = 20;
    std::array<Integer, icon_places + 1> icoList{}; ///< icon numbers; index 0 is not used
    Integer showIconBar = -1;
    Integer showStatusBar = -1;
    Integer spareFlag5 = -1;
    Integer icoLarge;
    Integer icoWrap = -1;
    Integer keepLastFiles = -1;
    std::array<FixedText<100>, 6> lastFile; ///< 1 to 4 are the list; 0 and 5 are only stored
    Integer saveWindowPos = -1;
    float windowLeft = 0; ///< twips, as the other three
    float windowTop = 0;
    float windowWidth = 0;
    float windowHeight = 0;
    Integer showVelho = -1;
};

/// One member of the record, in the order of the record.
struct SettingsMember {
    std::string_view name;
    int count; ///< elements, 1 for a plain member
    int bytes; ///< of one element in the record
    MemberRef (*ref)(Settings&, int element);
    int lowest; ///< a number outside lowest to highest is repaired; no test when both are 0
    int highest;
    int repaired;
};

inline constexpr std::size_t settings_bytes = 730;

std::span<SettingsMember const> settings_members();

extern Settings settings;

/// The first values, on a screen of this size in twips. The icon list is filled elsewhere.
Settings first_settings(double screen_width, double screen_height);

} // namespace kehystin
