// Signals by which a system asks a process to end.
#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace desktop {

/// `keep` is called from the event loop when one comes, and the process ends by it. Null where the
/// system has none. There is one of these in a process; with it the watch ends.
std::unique_ptr<QObject> watchEndSignals(std::function<void()> keep);

} // namespace desktop
