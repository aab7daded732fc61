// A rescue: the bytes of a card that would be lost, and whose they are.
#pragma once

#include "base/date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rescue {

namespace base = kehystin::base;

enum class What {
    work,   ///< the open card, with changes that were not saved
    before, ///< what a card's file held when a save began to write it
    after,  ///< what that save was to write
};

struct Rescue {
    What kind = What::work;
    std::string file;      ///< full path of the card's own file; empty for one never saved
    std::int64_t time = 0; ///< milliseconds, by the clock of dates, for people
    /// The how manieth of its session: clocks are set back.
    std::uint64_t step = 0;
    bool new_id = false; ///< the next save gives the card a new identity
    /// Checksum of what the file held when the session had it in hand last, 0 for nothing.
    std::uint64_t file_sum = 0;
    std::string bytes; ///< as in a card file; of `before` whatever the file held
};

/// As it is kept: a head of a few lines, then the bytes as they are. The reader of cards passes
/// over the head, so that the whole opens as a card file too.
std::string to_file(Rescue const& rescue);
/// Nothing where the bytes are no rescue, or are not all there any more.
std::optional<Rescue> from_file(std::string_view bytes);

std::int64_t time_of(base::Date date);
/// "17.5.2004 klo 9.30"
std::string time_text(std::int64_t time);

/// A number that other bytes hardly share.
std::uint64_t checksum(std::string_view bytes);

} // namespace rescue
