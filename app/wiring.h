// Which handler serves which event of the main window.
#pragma once

namespace kehystin {

void wire_editor_form();

} // namespace kehystin
