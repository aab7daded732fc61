// The settings file: one record of 730 bytes in the settings folder.
#pragma once

#include "model/settings.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kehystin {

/// Reads and repairs the settings. False when there is no file; a failure shows its own box and
/// gives false too, and what was read so far stays.
bool ReadSettings();

/// Writes the settings. Raises what writing raises.
void WriteSettings();

/// The record's bytes, little-endian, without a header.
std::vector<std::byte> settings_record(Settings const& from);

/// Takes over as many members as the bytes hold, of a text that is cut off the part that is there;
/// the rest stays as it is.
void take_settings_record(Settings& to, std::span<std::byte const> bytes);

/// Puts members outside their range, and a window that does not fit the screen, back to what can
/// stand. The screen's size is in twips.
void repair_settings(Settings& record, double screen_width, double screen_height);

} // namespace kehystin
