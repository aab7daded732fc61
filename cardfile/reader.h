// Reads a card file into the records, repairs what is wrong in it and tells of it.
#pragma once

#include "cardfile/key_index.h"
#include "platform/files.h"

#include <optional>
#include <string>
#include <string_view>

namespace kehystin {

/// True when the records hold a card to show. False when the file was not read or the user gave up:
/// until the file is recognised the records are untouched, behind that they may be half filled.
///
/// All questions and messages are its own. Changes testFont's font name along the way.
bool ReadCardFile(std::string const& path);

/// A card file in reading.
class CardFileSource {
  public:
    /// Opens the file; raises what opening raises.
    explicit CardFileSource(std::string const& path) : path_(path), file_(path) {}

    std::string const& path() const { return path_; }
    platform::InputFile& file() { return file_; }

    /// The first item from the present position that holds the key; the position is then behind it.
    /// Nothing when the file ends first.
    std::optional<std::string_view> search(std::string_view key);
    /// Closes the file and opens it again from the top.
    void rewind();

  private:
    std::string path_;
    platform::InputFile file_;
    std::optional<KeyIndex> index_;         ///< made when a key is not where it is expected
    std::size_t found_at_ = KeyIndex::npos; ///< the item that the index led to last
    std::string_view found_;
    std::size_t behind_found_ = 0;
};

/// Looks for a key from where the last one ended, once around the file. On return `key` holds the
/// value as code page bytes: of the item, or the default of a key that older files lack, or empty.
/// False when the user gave up on a missing key.
bool ReadCardKey(std::string& key, CardFileSource& source);

} // namespace kehystin
