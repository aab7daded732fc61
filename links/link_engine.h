// The link engine: pairs every data field with a title from the geometry of the card alone.
#pragma once

namespace kehystin {

/// Links all fields anew, unless "Linkitä automaattisesti" is unchecked: then nothing changes.
///
/// Writes `group` of every field, `list` of every title and `linkki` of every data field that finds
/// its title by geometry; makes the link lines anew, link_count with them; switches the commands
/// that need links. A failure, such as a manual link to a field that is not there, ends the run
/// where it is and shows its own box.
void update_links();

/// "Linkitä automaattisesti": flips the mark and links.
void cmd_link_automatic_Click();
/// "Linkit": flips the mark and shows or hides the lines, which links anew whatever the automatic
/// mode says. Without a link it says so.
void cmd_linkBar_Click();

} // namespace kehystin
