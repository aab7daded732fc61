#include "desktop/bar_overflow.h"

#include "desktop/colours.h"
#include "desktop/control_painter.h"
#include "desktop/icons.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QMenu>
#include <QStyle>

#include <algorithm>

namespace desktop {

namespace {

constexpr int thickness = 18; // pixels that the way to the others takes from the bar

void press(platform::Button& button) {
    if (button.DragMode) // what is dragged by the mouse is dropped by the keyboard
        platform::input::press(button, platform::Key::enter);
    else
        platform::input::click(button);
}

} // namespace

BarOverflow::BarOverflow(platform::PictureBox& bar, QWidget& shown, FormWidgets const& widgets,
                         EventGate& gate)
    : QToolButton(&shown), bar_(bar), widgets_(widgets), gate_(gate) {
    setObjectName(toQt(bar.full_name()) + QStringLiteral(".more"));
    setAccessibleName(QStringLiteral("Muut painikkeet"));
    setToolTip(accessibleName());
    setAutoRaise(true);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::NoFocus); // the keyboard walks the buttons themselves
    setIcon(style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton));
    connect(this, &QToolButton::pressed, this, [this] {
        openMenu();
        setDown(false);
    });
    hide();
}

bool BarOverflow::lies() const {
    auto const side = static_cast<platform::Dock>(bar_.dock_side());
    return side == platform::Dock::top || side == platform::Dock::bottom;
}

/// Also by the place that the way to the others takes, once there are such.
bool BarOverflow::isCut(platform::Control const& button) const {
    auto const place = rectOf(button);
    auto const room = parentWidget()->size();
    int const end = lies() ? place.right() - room.width() : place.bottom() - room.height();
    return end >= (isHidden() ? 0 : -thickness);
}

QList<platform::Button*> BarOverflow::cutButtons() const {
    QList<platform::Button*> cut;
    for (auto* const child : bar_.children())
        if (auto* const button = dynamic_cast<platform::Button*>(child);
            button && button->Visible && isCut(*button))
            cut.append(button);
    return cut;
}

void BarOverflow::fit() {
    hide(); // it is not in its own way
    bool const wanted = !cutButtons().isEmpty();
    auto const room = parentWidget()->size();
    setGeometry(lies() ? QRect(room.width() - thickness, 0, thickness, room.height())
                       : QRect(0, room.height() - thickness, room.width(), thickness));
    setVisible(wanted);
    raise();
    for (auto* const child : bar_.children()) {
        auto* const widget = widgets_.find(*child);
        auto* const button = dynamic_cast<platform::Button*>(child);
        if (!widget || !button)
            continue;
        bool const comesIntoSight = wanted && widget->hasFocus() && isCut(*button);
        widget->setAutoFillBackground(comesIntoSight); // there is another below it
        if (comesIntoSight)
            showInSight(*button);
        else if (widget->geometry() != rectOf(*button))
            widget->setGeometry(rectOf(*button));
    }
}

void BarOverflow::showInSight(platform::Button const& button) {
    auto place = rectOf(button);
    if (lies())
        place.moveRight(x() - 1);
    else
        place.moveBottom(y() - 1);
    auto* const widget = widgets_.find(button);
    widget->setGeometry(place);
    widget->raise();
    raise();
}

void BarOverflow::openMenu() {
    QMenu menu(this);
    for (auto* const button : cutButtons()) {
        auto const name = toQt(button->spoken_name()).trimmed();
        auto const picture = toQt(button->Picture.get().name());
        auto* const entry = menu.addAction(
            QIcon(iconPixmap(picture, desktop::iconSize, devicePixelRatioF(), Ground::window)),
            name);
        entry->setEnabled(button->Enabled);
        connect(entry, &QAction::triggered, this, [this, button] {
            auto const& standing = bar_.children();
            if (std::find(standing.begin(), standing.end(), button) != standing.end())
                gate_.run([&] { press(*button); });
        });
    }
    menu.exec(mapToGlobal(lies() ? QPoint(0, height()) : QPoint(width(), 0)));
}

} // namespace desktop
