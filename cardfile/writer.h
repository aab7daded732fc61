// Writes the open card to its file.
#pragma once

namespace kehystin {

/// Writes the whole file that cardFile names, from the records. False when it could not, which it
/// has then told the user itself; the old file is gone from the moment of opening.
///
/// The records change with a file that was written: texts are trimmed, and the commas of `list` and
/// `value` stay replaced until the card is read again. After a failure they are as before.
bool SaveCardFile();

} // namespace kehystin
