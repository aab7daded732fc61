// The start of the session.
#pragma once

namespace kehystin {

/// Fills all first values and the fixed lists of the panel.
void set_def();

/// Everything between the making of the main window and the first event of the user: first values,
/// settings, window place, icon bar, command line. Failures show their own boxes.
void MDIForm_Load();

} // namespace kehystin
