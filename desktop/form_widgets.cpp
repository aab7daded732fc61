#include "desktop/form_widgets.h"

#include "desktop/control_painter.h"
#include "desktop/keyboard.h"
#include "desktop/mouse.h"
#include "desktop/painted_widgets.h"
#include "desktop/spoken_painted.h"
#include "desktop/text.h"
#include "platform/input.h"
#include "platform/system.h"

#include <utility>

namespace desktop {

namespace {

using platform::ControlClass;

/// A name without what a caption has for the eye alone.
QString spoken(std::string_view name) {
    return toQt(name).remove(u'&').trimmed();
}

bool hasWidget(platform::Control const& control) {
    auto const kind = control.control_class();
    return kind != ControlClass::form && kind != ControlClass::menu && kind != ControlClass::timer;
}

} // namespace

FormWidgets::FormWidgets(platform::Form& form, QWidget& surface, EventGate& gate)
    : form_(form), surface_(surface), gate_(gate) {
    letPaintedSpeak();
}

void FormWidgets::showAll() {
    showChildren(form_);
}

void FormWidgets::showChildren(platform::Control& container) {
    for (auto* const child : container.children())
        if (!widgets_.contains(child))
            takeOver(*child);
}

void FormWidgets::takeOver(platform::Control& control) {
    if (!hasWidget(control))
        return;
    bool const had = widgets_.contains(&control);
    if (!had && !control.is_shown())
        return;
    auto* const shown = ensure(control);
    if (!shown)
        return;
    if (control.container()->children().back() == &control)
        unordered_.insert(control.container()); // it may have come to the front
    place(*shown);
    if (control.Visible)
        showChildren(control);
}

ControlWidget* FormWidgets::ensure(platform::Control& control) {
    if (auto* const found = widgets_.value(&control))
        return found;
    return make(control);
}

ControlWidget* FormWidgets::make(platform::Control& control) {
    auto* parent = &surface_;
    if (control.container() != &form_) {
        // A container that has had no widget yet is brought up whole, perhaps with this control.
        if (!widgets_.contains(control.container()))
            takeOver(*control.container());
        auto* const container = widgets_.value(control.container());
        if (!container)
            return nullptr;
        if (auto* const made = widgets_.value(&control))
            return made;
        parent = &container->widget();
    }
    auto* const made = makeControlWidget(control, *parent, gate_);
    if (!made)
        return nullptr;
    widgets_.insert(&control, made);
    unordered_.insert(control.container());
    auto& widget = made->widget();
    widget.setObjectName(toQt(control.full_name()));
    for (auto* const watched : {&widget, &made->mouseWidget()}) {
        owners_.insert(watched, made);
        watched->installEventFilter(this);
        watched->setMouseTracking(true);
    }
    if (auto const* const label = dynamic_cast<platform::Label const*>(&control);
        label && label->caption_of)
        uncaptioned_.insert(label);
    bool const painted = control.control_class() == ControlClass::label ||
                         control.control_class() == ControlClass::picture_box;
    bool const link = control.control_class() == ControlClass::label;
    if ((!painted || link) && control.takes_focus())
        widget.setFocusPolicy(Qt::StrongFocus);
    return made;
}

void FormWidgets::place(ControlWidget& shown) {
    auto& widget = shown.widget();
    auto const& control = *shown.control();
    bool const line = control.control_class() == ControlClass::line;
    auto const wanted =
        line ? lineBounds(static_cast<platform::Line const&>(control)) : rectOf(control);
    if (widget.geometry() != wanted)
        widget.setGeometry(wanted);
    if (widget.isEnabledTo(widget.parentWidget()) != control.Enabled)
        widget.setEnabled(control.Enabled);
    if (auto const tip = toQt(control.ToolTipText.get()); widget.toolTip() != tip)
        widget.setToolTip(tip);
    shown.takeOver();
    if (auto const name = spoken(control.spoken_name());
        !name.isEmpty() && widget.accessibleName() != name)
        widget.setAccessibleName(name);
    if (widget.isVisibleTo(widget.parentWidget()) != control.Visible)
        widget.setVisible(control.Visible);
}

void FormWidgets::remove(platform::Control const& control) {
    auto* const gone = widgets_.take(&control);
    unordered_.remove(const_cast<platform::Control*>(&control));
    uncaptioned_.remove(&control);
    if (!gone)
        return;
    owners_.remove(&gone->widget());
    owners_.remove(&gone->mouseWidget());
    gone->forgetControl();
    gone->widget().hide();
    gone->widget().deleteLater(); // an event of it may be running
}

void FormWidgets::settle() {
    for (auto* const container : std::exchange(unordered_, {}))
        restack(*container);
    uncaptioned_.removeIf([this](platform::Control const* label) { return tellCaption(*label); });
}

/// False while one of the two has not been shown yet.
bool FormWidgets::tellCaption(platform::Control const& label) {
    auto* const caption = qobject_cast<QLabel*>(find(label));
    auto* const named = find(*static_cast<platform::Label const&>(label).caption_of);
    if (!caption || !named)
        return false;
    caption->setBuddy(named);
    return true;
}

void FormWidgets::restack(platform::Control& container) {
    QWidget* below = nullptr;
    bool inOrder = true;
    QList<QWidget*> wanted;
    for (auto* const child : container.children())
        if (auto* const widget = find(*child))
            wanted.append(widget);
    if (wanted.isEmpty())
        return;
    auto const& standing = wanted.first()->parentWidget()->children();
    for (auto* const widget : std::as_const(wanted)) {
        inOrder = inOrder && (!below || standing.indexOf(below) < standing.indexOf(widget));
        below = widget;
    }
    if (!inOrder)
        for (auto* const widget : std::as_const(wanted))
            widget->raise();
}

void FormWidgets::takeOverPalette() {
    for (auto* const shown : std::as_const(widgets_)) {
        shown->takeOverPalette();
        shown->widget().update();
    }
}

QWidget* FormWidgets::find(platform::Control const& control) const {
    auto* const found = widgets_.value(&control);
    return found ? &found->widget() : nullptr;
}

platform::Control* FormWidgets::controlOf(QWidget const* widget) const {
    for (; widget; widget = widget->parentWidget())
        if (auto* const owner = owners_.value(widget))
            return owner->control();
    return nullptr;
}

bool FormWidgets::eventFilter(QObject* watched, QEvent* event) {
    auto* const owner = owners_.value(watched);
    auto* const control = owner ? owner->control() : nullptr;
    if (!control)
        return false;
    switch (event->type()) {
    case QEvent::FocusIn:
        if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
            showFocusIn(*owner->widget().window(), false);
        if (control->takes_focus() && platform::System::current().focused() != control)
            gate_.run([&] { platform::input::focus(*control); });
        break;
    case QEvent::KeyPress:
        showFocusIn(*owner->widget().window(), true);
        break;
    case QEvent::MouseMove:
        if (control->MouseMove && !dynamic_cast<PaintedWidget*>(owner))
            sendMove(*control, gate_, *static_cast<QMouseEvent*>(event));
        break;
    default:
        break;
    }
    return false;
}

} // namespace desktop
