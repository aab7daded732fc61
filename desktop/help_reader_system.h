// What reading a help file in a process of its own wants of the system.
#pragma once

struct chmFile;

namespace desktop::help_reader {

/// The process may only fail in silence, soon, and without the machine's memory. Its standard
/// output takes bytes as they are.
void limitMyself();

/// Null for a file that cannot be opened. The name is UTF-8.
chmFile* openHelpFile(char const* path);

} // namespace desktop::help_reader
