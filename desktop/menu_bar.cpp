#include "desktop/menu_bar.h"

#include "desktop/text.h"
#include "platform/form.h"
#include "platform/input.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

/// Blanks behind a caption once made room for a shortcut; Qt does that by itself.
QString displayed(platform::Menu const& menu) {
    auto text = toQtLine(menu.Caption.get());
    while (text.endsWith(u' '))
        text.chop(1);
    return menu.UseMnemonic ? text : text.replace(u'&', QLatin1String("&&"));
}

/// Entries stand in the order in which they were made; the elements of a collection, which may come
/// much later, behind the first of their name.
std::pair<int, int> placeOf(platform::Control const& menu) {
    auto const& siblings = menu.container()->children();
    auto const first = std::find_if(siblings.begin(), siblings.end(), [&](auto const* sibling) {
        return sibling->name() == menu.name();
    });
    return {static_cast<int>(first - siblings.begin()), menu.index()};
}

void takeOver(QAction& action, platform::Menu const& menu) {
    bool const separator = menu.Caption.get() == "-";
    action.setSeparator(separator);
    if (!separator)
        action.setText(displayed(menu));
    action.setEnabled(menu.Enabled);
    action.setVisible(menu.Visible);
    action.setShortcut(QKeySequence(toQt(menu.Shortcut.get())));
    // Only a checked entry has a mark; one without would look like an empty box to tick.
    action.setCheckable(menu.Checked);
    action.setChecked(menu.Checked);
}

/// A shortcut's keys go to the form, which may take them for itself before its menus do.
class ShortcutKeys : public QObject {
  public:
    ShortcutKeys(QAction& action, platform::Menu& menu, EventGate& gate)
        : QObject(&action), menu_(menu), gate_(gate) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Shortcut)
            return false;
        gate_.run([&] { platform::input::shortcut(menu_.form(), menu_.Shortcut.get()); });
        return true;
    }

  private:
    platform::Menu& menu_;
    EventGate& gate_;
};

} // namespace

void FormMenus::update(platform::Menu const& menu) {
    takeOver(*ensure(menu), menu);
}

QAction* FormMenus::ensure(platform::Menu const& menu) {
    if (auto* const found = actions_.value(&menu))
        return found;
    auto* const made = makeAction(menu);
    actions_.insert(&menu, made);
    return made;
}

QAction* FormMenus::makeAction(platform::Menu const& menu) {
    QWidget* parent = &bar_;
    if (menu.container() != &menu.form()) {
        auto* const above = ensure(static_cast<platform::Menu const&>(*menu.container()));
        if (!above->menu())
            above->setMenu(new QMenu(&bar_));
        parent = above->menu();
    }
    auto* const action = new QAction(parent);
    action->setObjectName(toQt(menu.full_name()));
    parent->insertAction(actionBehind(menu), action);
    auto* const control = const_cast<platform::Menu*>(&menu);
    action->installEventFilter(new ShortcutKeys(*action, *control, gate_));
    QObject::connect(action, &QAction::triggered, action, [this, control, action] {
        gate_.run([&] { platform::input::click(*control); });
        // Qt flips a check mark by itself; only the program may.
        if (actions_.value(control) == action)
            takeOver(*action, *control);
    });
    return action;
}

/// The action that this entry goes before; null for the end of its menu.
QAction* FormMenus::actionBehind(platform::Menu const& menu) const {
    QAction* nearest = nullptr;
    std::pair<int, int> nearestPlace;
    for (auto const* const sibling : menu.container()->children()) {
        auto* const action = actions_.value(sibling);
        if (!action || placeOf(*sibling) < placeOf(menu))
            continue;
        if (!nearest || placeOf(*sibling) < nearestPlace) {
            nearest = action;
            nearestPlace = placeOf(*sibling);
        }
    }
    return nearest;
}

void FormMenus::remove(platform::Control const& menu) {
    if (auto* const action = actions_.take(&menu)) {
        delete action->menu();
        action->setVisible(false);
        action->deleteLater(); // it may just be running
    }
}

} // namespace desktop
