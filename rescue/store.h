// The folder of the rescues: files of the program's own, whole or not at all, for the user alone.
#pragma once

#include "rescue/rescue.h"

#include <functional>
#include <string>
#include <vector>

namespace rescue {

/// Where the programs of this user keep their files: `$XDG_STATE_HOME/kehystin/`, by default in
/// `~/.local/state`; on Windows `%APPDATA%\kehystin\rescue\`. Empty for a user without a home.
std::string usual_folder();

/// A folder that is made when the first file is put into it. Without a path it keeps nothing.
class Store {
  public:
    /// `before_operation` is called before each operation on the disk, and may raise.
    explicit Store(std::string folder = {}, std::function<void()> before_operation = {});

    bool keeps() const { return !folder_.empty(); }
    std::string const& folder() const { return folder_; } ///< with its closing separator

    /// Writes a file under a name of its own, flushes it to the disk and gives it its name: at no
    /// moment is there half a file of that name. Raises base::RuntimeError.
    void put(std::string const& name, std::string_view bytes) const;
    /// Nothing is said where there is none.
    void remove(std::string const& name) const;
    /// The file has the other name from here on. Nothing is said where it has not.
    void rename(std::string const& name, std::string const& other) const;
    /// Nothing for a file that cannot be read.
    std::optional<std::string> bytes_of(std::string const& name) const;
    /// Of all files but sessions' locks and what they are writing.
    std::vector<std::string> names() const;

    void before_operation() const;

  private:
    std::string folder_;
    std::function<void()> before_operation_;
};

/// One running session of the program in the folder. Its lock ends with the process, however that
/// ends.
class RunningSession {
  public:
    /// Takes a name that no other session has. Raises base::RuntimeError.
    explicit RunningSession(Store const& store);
    ~RunningSession();
    RunningSession(RunningSession const&) = delete;
    RunningSession& operator=(RunningSession const&) = delete;

    std::string const& name() const { return name_; }
    /// False where the lock has gone, as with the folder: others take the session for a dead one.
    bool is_locked() const;
    /// Makes it again where it has gone. Raises base::RuntimeError.
    void lock_again();
    /// Says which card file this session has open. Failing is no fault.
    void note_file(std::string const& file) const;

  private:
    Store const& store_;
    std::string name_;
    std::string lock_; ///< its path, for an end without memory
    int descriptor_ = -1;
};

/// Locks and unfinished files that killed sessions left go. New ones stay for a minute: a lock may
/// not be locked yet.
void remove_remains(Store const& store);

/// The name of a session's file: its unsaved card. Of the session "20040517-093012-1a2b3c4d" it is
/// "20040517-093012-1a2b3c4d.work".
std::string name_of_work(std::string_view session);
/// Of what lies beside that, by a number of its own: "20040517-093012-1a2b3c4d+1.before".
std::string name_beside(std::string_view session, int number, What kind);
/// Of what the user did not want yet: it is offered after everything else.
std::string name_of_declined(std::string_view name);
int times_declined(std::string_view name);
/// The session of such a name.
std::string session_of(std::string_view name);

/// True while the process of that session runs, and where that cannot be told.
bool is_running(Store const& store, std::string const& session);
/// True where another running session has that card file open.
bool is_open_elsewhere(Store const& store, std::string const& own_session, std::string const& file);

/// A rescue that can be had again, and its name in the folder.
struct Found {
    std::string name;
    Rescue rescue;
};
struct Findings {
    /// Of sessions that no longer run: those of the session that kept something last come first, of
    /// each its newest. What was declined comes after all others, the oftener the later.
    std::vector<Found> rescues;
    std::vector<std::string> unknown; ///< names of files that are no rescues, or damaged ones
    /// Names of rescues without which nothing is lost: the card's file holds the same, or another
    /// rescue does.
    std::vector<std::string> needless;
};
/// Everything that sessions which no longer run have left. Changes nothing.
Findings look_for_rescues(Store const& store);

} // namespace rescue
