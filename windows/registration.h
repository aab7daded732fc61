// Cards that a double click opens, for the user alone.
#pragma once

namespace windows {

/// Says to the system that this program opens `.krt` files. An exit status: 0 when it is done.
int registerCards();
/// Takes that back, and nothing that another program has said.
int unregisterCards();

} // namespace windows
