// Files as the commands read and write them.
#pragma once

#include "card/reading.h"
#include "krt/commands.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace krt {

namespace base = kehystin::base;

/// Files up to this size are read, as by the editor.
inline constexpr std::size_t largest_input = 64U * 1024 * 1024;

/// Runs a command for each file; what one of them is too large for is told, and the next comes.
Status each(Files const& files, std::function<Status(std::string const&)> const& command);

kehystin::Date today();

/// The font that a card has for each name of its file, one after the other: the sample label of the
/// editor begins with one, and keeps the last that it took.
class SampleFont {
  public:
    std::string kept(std::string const& name);

  private:
    std::string name_ = "MS Sans Serif";
};

/// What a line for people calls a file.
std::string shown_name(std::string const& file);

/// A line on standard error: the file and what is wrong with it.
void complain(std::string const& file, std::string_view what);

/// The whole file, or standard input for "-". Nothing, with a complaint, for one that cannot be
/// read.
std::optional<std::string> read_bytes(std::string const& file);

enum class Pictures { looked_for, kept };

/// Reads a card as the editor does after Yes to every question; a picture beside the card keeps its
/// "+". Nothing, with a complaint, for a file that cannot be read or that is no card.
struct Reader {
    Pictures pictures = Pictures::looked_for;

    /// `fault` gets the words of the complaint too.
    std::optional<kehystin::Reading> read(std::string const& file, std::string_view bytes,
                                          std::string* fault = nullptr) const;
};

/// Says in a line on standard error that a card was read otherwise than it stands in its file.
/// True where there is nothing to say.
bool tell_faults(std::string const& file, kehystin::Reading const& reading);

/// Ends whatever the program is doing: standard output is a pipe that has been closed. It is no
/// failure of a file, nor worth a word.
struct NobodyReads {};

/// Writes standard output. False where it cannot be written, which finish_output tells; raises
/// NobodyReads.
bool print(std::string_view text);
/// Writes what print has kept back. False, with a complaint, where anything was not written; raises
/// NobodyReads.
bool finish_output();

/// False, with a complaint, where the target is the file from which it would be made, by whatever
/// name.
bool spares_source(std::string const& source, std::string const& target);

/// Writes a file whole or not at all, where it is one: into a device or a pipe it writes straight,
/// and "-" is standard output. It stands behind any links, and keeps its rights, owner and group.
/// With `backup` an old one is kept beside it, under its name and "~". False, with a complaint,
/// where it could not.
bool write_whole(std::string const& file, std::string_view bytes, bool backup = false);

} // namespace krt
