// The session's variables: flags, paths and numbers that all folders share. They live from the
// start of the program to its end; nothing of them is stored.
#pragma once

#include "card/member_ref.h"
#include "platform/base.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace platform {
class Control;
}

namespace kehystin {

using namespace platform;

struct Session {
    std::string appTitle;
    std::string cardFile;   ///< full path of the open card; empty for one never saved
    std::string cardFolder; ///< folder of the card opened last, for the "+" form of a picture
    /// Of the file that stands on the surface: cardFile may name one that was refused.
    std::string open_folder;
    std::string startFile;        ///< file that the next open takes without a dialog
    std::string startText;        ///< the file that this start was given with "-k"
    std::string readFile;         ///< path handed to the reader
    std::string windowsDir;       ///< folder of the settings file, with its closing separator
    bool settings_unread = false; ///< the file is there, and could not be read
    std::string appPath;          ///< folder of the program, with its closing separator
    std::string helpFile;
    std::string helpTopic; ///< page that the help command opens
    Flag pro_updating;     ///< code fills the panel or rebuilds the surface: handlers stand aside
    Flag isSizing;         ///< window sizes are being set: resize handlers stand aside
    Flag cardFormLoaded;
    Flag cardModified;
    Flag centring_due; ///< asked for while the user had hold of the card
    Flag needNewID;    ///< the next save gives the card a new identity
    Flag fieldsLocked;
    Flag dialogCancelled;
    Flag tipShown;
    Integer pro_focus; ///< panel row with the keyboard focus, 0 none
    Integer iconCount;
    Integer fontDialogMode; ///< which of the wizard's fonts the font dialog serves
    Integer link_count;     ///< link lines on the surface
    Integer link_reach;     ///< how far right of a title a field may start, pixels
    Integer frame_x;        ///< width of a window's sizing frame, pixels
    Integer caption_y;      ///< height of a window's caption, pixels
    Integer menu_y;         ///< height of a menu bar, pixels
    Integer small_caption_y;
    Integer scroll_bar_x; ///< width of a vertical scroll bar, twips
    /// What the mouse rested on when tips were last looked for. Only compared: it may be gone.
    Control const* tip_control = nullptr;
};

struct SessionMember {
    std::string_view name;
    MemberRef (*ref)(Session&);
};

std::span<SessionMember const> session_members();

extern Session session;

/// Puts records, settings and variables back to what they are before anything has run.
void reset_session();

/// Holds pro_updating while code fills or empties rows of the panel. The flag stands as before
/// when the fill ends, however it ends.
class PanelUpdate {
  public:
    PanelUpdate() : before_(session.pro_updating) { session.pro_updating = true; }
    ~PanelUpdate() { session.pro_updating = before_; }
    PanelUpdate(PanelUpdate const&) = delete;
    PanelUpdate& operator=(PanelUpdate const&) = delete;

  private:
    Flag before_;
};

} // namespace kehystin
