// Metafiles: pictures that are drawings of another system.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace desktop {

/// The pixels of a metafile, at most 3000 each way; null for a file that is none. Raises
/// platform::RuntimeError with a text where it cannot be tried.
QImage readMetafile(QString const& path);

/// The size that a metafile says it has, in pixels at 96 dots an inch; empty when it does not say.
QSize sizeOfMetafile(QString const& path);

/// Pixels of a metafile each way: as many as a card can have.
inline constexpr int largestMetafile = 3000;

} // namespace desktop
