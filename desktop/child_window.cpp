#include "desktop/child_window.h"

#include "desktop/look.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QCloseEvent>

namespace desktop {

ChildWindow::ChildWindow(platform::Form& form, QMdiArea& area, EventGate& gate)
    : form_(&form), gate_(gate), canvas_(new CardCanvas(form, gate)) {
    setObjectName(toQt(form.name()));
    setWidget(canvas_);
    setSystemMenu(nullptr); // nothing in it that the border and the close button do not do
    setAttribute(Qt::WA_DeleteOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    area.addSubWindow(this, Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowCloseButtonHint);
}

QSize ChildWindow::minimumSizeHint() const {
    // The program has a minimum of its own and puts a smaller size back.
    return {2 * frameWidth + 30, 2 * frameWidth + captionHeight + 1};
}

void ChildWindow::takeOver(platform::Control& control) {
    if (&control == form_)
        takeOverForm();
    else
        canvas_->takeOver(control);
}

void ChildWindow::takeOverForm() {
    setWindowTitle(toQt(form_->Caption.get()));
    canvas_->setAccessibleName(windowTitle());
    canvas_->updateBackground();
    if (geometry() != formGeometry())
        setGeometry(formGeometry());
}

void ChildWindow::remove(platform::Control const& control) {
    canvas_->remove(control);
}

void ChildWindow::settle() {
    canvas_->settle();
    if (!form_ || isHidden() != form_->Visible)
        return;
    setVisible(form_->Visible);
    takeOverForm(); // the area has put a window that it has not seen before where it likes
    if (form_->Visible && mdiArea())
        mdiArea()->setActiveSubWindow(this); // only the active window can be sized
}

QWidget* ChildWindow::focusWidgetOf(platform::Control const&) {
    return canvas_;
}

QRect ChildWindow::placeOnScreen(platform::Control const& control) {
    return visiblePartOnScreen(*canvas_, canvas_->shownPlace(control));
}

platform::Control* ChildWindow::controlAt(QWidget& widget, QPoint point) {
    if (!form_ || &widget != canvas_)
        return nullptr;
    auto* const object = platform::input::object_at(*form_, point.x(), point.y());
    return object ? object : form_;
}

void ChildWindow::discard() {
    form_ = nullptr;
    canvas_->forgetForm();
    hide();
    deleteLater();
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_)
        gate_.run([&] { platform::input::close(*form_); });
}

void ChildWindow::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    sendGeometry();
}

void ChildWindow::moveEvent(QMoveEvent* event) {
    QMdiSubWindow::moveEvent(event);
    sendGeometry();
}

// What the frame does not use must not go on to what lies behind it, where it would be a click
// beside the card.
void ChildWindow::mousePressEvent(QMouseEvent* event) {
    QMdiSubWindow::mousePressEvent(event);
    event->accept();
}

void ChildWindow::mouseReleaseEvent(QMouseEvent* event) {
    QMdiSubWindow::mouseReleaseEvent(event);
    event->accept();
}

void ChildWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    QMdiSubWindow::mouseDoubleClickEvent(event);
    event->accept();
}

/// Place and size together: Qt tells of them one after the other, and between the two the program's
/// old size must not be put back.
void ChildWindow::sendGeometry() {
    if (!form_ || !isVisible() || geometry() == formGeometry())
        return;
    gate_.run([&] {
        auto const taken = geometry();
        if (taken.topLeft() != formGeometry().topLeft())
            platform::input::move_form(*form_, taken.x() * twipsPerPixel,
                                       taken.y() * twipsPerPixel);
        if (taken.size() != formGeometry().size())
            platform::input::resize(*form_, taken.width() * twipsPerPixel,
                                    taken.height() * twipsPerPixel);
    });
}

QRect ChildWindow::formGeometry() const {
    return {twipsToPixels(form_->Left), twipsToPixels(form_->Top), twipsToPixels(form_->Width),
            twipsToPixels(form_->Height)};
}

} // namespace desktop
