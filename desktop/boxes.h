// The boxes that ask the user something: message, input, file and colour.
#pragma once

#include "platform/host.h"

#include <QList>
#include <QRect>

class QWidget;

namespace desktop {

/// Each returns when the user has answered; `owner` may be null. Texts stand as they are given,
/// blanks included. A message covers as few as it can of the places on the screen that are to stay
/// in sight. One that asks for yes or no alone closes by its buttons only.
platform::Answer showMessage(QWidget* owner, std::string_view text, int flags,
                             std::string_view title, QList<QRect> const& inSight = {});
/// One line: each line break becomes a blank, of the default text as of what is pasted. Empty when
/// cancelled.
std::string askText(QWidget* owner, std::string_view prompt, std::string_view title,
                    std::string_view defaultText);
enum class FileTask { open, save };
/// The chosen path. The dialog starts in the folder that it names, if there is such a one, or else
/// in that of the file chosen last. Raises `cancelled`.
std::string askFile(QWidget* owner, platform::CommonDialog const& dialog, FileTask task);
/// Raises `cancelled`.
platform::Colour askColour(QWidget* owner, platform::Colour start);

} // namespace desktop
