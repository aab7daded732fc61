// No work is lost: the open card is kept beside the user's files while it is unsaved, and so are
// both sides of a save under way. What an earlier session left: rescue_offer.
#pragma once

#include <string>
#include <string_view>

namespace kehystin {

/// From here on the session keeps its work in the host's folder for it.
void begin_rescue();
/// The session is over. What it has kept stays, unless it was dropped.
void end_rescue();

/// Keeps the card if it has changed since the last time and the user's hands are off it, and drops
/// what was kept when there is nothing unsaved any more. A card that has gone without being given
/// up stays kept for the next session. The disk is written in the background.
void keep_work();
/// The same when a box is about to wait for the user: it may wait for hours.
void keep_work_before_box();
/// The same at once, whatever is under way; the disk has it on return. For a process that must end.
void keep_work_now();
/// Other sessions are told which file is open here, as far as the folder can be written.
void note_open_file();
/// The user does not want the changes.
void drop_work();
/// The records are another card's from here on, and what was kept of the one before was kept for an
/// answer that has been given.
void begin_other_card();
/// The session ends with the card unsaved, for the next one to offer. Tells where it could not be
/// kept.
void leave_work();

/// Tells the first time that something could not be kept; the program works on.
void tell_failure_to_keep();

/// Both sides of a save of `bytes` into a file lie on the disk from here until it is finished. A
/// save that is never finished leaves them.
class SaveRescue {
  public:
    SaveRescue(std::string const& file, std::string_view bytes);
    /// True when the disk holds the file with these bytes: then nothing is kept any more. Raises
    /// what the disk raises.
    bool finish();

  private:
    std::string file_;
    std::string_view bytes_;
};

/// True where the running session of somebody else has that card file open.
bool is_open_in_another_session(std::string const& file);

} // namespace kehystin
