// FormMenus: the menus of a form in Qt's menu bar.
#pragma once

#include "desktop/event_gate.h"
#include "platform/controls.h"

#include <QHash>

class QAction;
class QMenu;
class QMenuBar;

namespace desktop {

/// Each Menu control is an action; one with entries of its own opens a menu. Access keys, shortcuts
/// and the keyboard are Qt's.
class FormMenus {
  public:
    FormMenus(QMenuBar& bar, EventGate& gate) : bar_(bar), gate_(gate) {}

    void update(platform::Menu const& menu);
    void remove(platform::Control const& menu);

  private:
    QAction* ensure(platform::Menu const& menu);
    QAction* makeAction(platform::Menu const& menu);
    QAction* actionBehind(platform::Menu const& menu) const;

    QMenuBar& bar_;
    EventGate& gate_;
    QHash<platform::Control const*, QAction*> actions_;
};

} // namespace desktop
