// What the process itself needs before it begins.
#pragma once

namespace krt {

/// Sees that bytes go through the standard streams as they are, that a console shows UTF-8, and
/// that memory goes back to the system.
void begin_process();

} // namespace krt
