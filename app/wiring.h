// Which handler serves which event of the main window.
#pragma once

namespace kehystin {

void wire_editor_form();
/// The part of it that is the property panel.
void wire_panel();

} // namespace kehystin
