#include "desktop/plain_windows.h"

#include "desktop/device_pixels.h"
#include "desktop/drawing_painter.h"
#include "desktop/keyboard.h"
#include "desktop/look.h"
#include "desktop/pictures.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QCloseEvent>
#include <QPainter>

namespace desktop {

PlainView::PlainView(platform::Form& form, QWidget& window, EventGate& gate)
    : form_(&form), window_(window), gate_(gate), widgets_(form, window, gate) {
    window_.setObjectName(toQt(form.name()));
}

void PlainView::takeOver(platform::Control& control) {
    if (&control != form_)
        return widgets_.takeOver(control);
    window_.setWindowTitle(toQt(form_->Caption.get()));
    window_.setPalette(paletteFor(form_->ForeColor, form_->BackColor));
    window_.update();
}

void PlainView::remove(platform::Control const& control) {
    widgets_.remove(control);
}

void PlainView::settle() {
    if (!form_)
        return;
    if (form_->Visible) {
        widgets_.showAll();
        QSize const inside =
            QSize(twipsToPixels(form_->Width), twipsToPixels(form_->Height)) - decoration();
        window_.setFixedSize(inside);
        if (auto const place = placeFor(inside); !window_.isVisible() || window_.pos() != place)
            window_.move(place);
    }
    widgets_.settle();
    if (window_.isVisible() != form_->Visible)
        window_.setVisible(form_->Visible);
}

QWidget* PlainView::focusWidgetOf(platform::Control const& control) {
    return widgets_.find(control);
}

QRect PlainView::placeOnScreen(platform::Control const& control) {
    auto const* const widget = widgets_.find(control);
    return widget ? visiblePartOnScreen(*widget, widget->rect()) : QRect();
}

platform::Control* PlainView::controlAt(QWidget& widget, QPoint) {
    return widgets_.controlOf(&widget);
}

void PlainView::discard() {
    form_ = nullptr;
    window_.hide();
    window_.deleteLater();
}

void PlainView::paintSurface() {
    if (!form_)
        return;
    QPainter painter(&window_);
    painter.fillRect(window_.rect(), toColour(form_->BackColor));
    drawPicture(painter, form_->Picture, window_.rect());
    paintDrawing(painter, form_->drawing(), *form_, toPixels(*form_, 1));
}

DialogWindow::DialogWindow(platform::Form& form, QWidget* owner, EventGate& gate)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowCloseButtonHint),
      PlainView(form, *this, gate) {
    setWindowModality(Qt::WindowModal); // of the program's windows; the help can be read beside it
}

QSize DialogWindow::decoration() const {
    constexpr int fixedFrame = 3; // of a window that cannot be sized
    return {2 * fixedFrame, 2 * fixedFrame + captionHeight};
}

QPoint DialogWindow::placeFor(QSize inside) const {
    if (isVisible() || !parentWidget())
        return pos(); // from then on it stands where the user has put it
    return parentWidget()->frameGeometry().center() - QPoint(inside.width(), inside.height()) / 2;
}

void DialogWindow::paintEvent(QPaintEvent*) {
    paintSurface();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form())
        gate().run([&] { platform::input::close(*form()); });
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    // Not the dialog's own keys: Escape would hide it.
    bool const taken = form() && (sendDialogKey(*form(), gate(), *event) ||
                                  sendFunctionKey(*form(), gate(), *event));
    if (!taken)
        event->ignore();
}

bool DialogWindow::focusNextPrevChild(bool next) {
    return form() && walkFocus(*form(), gate(), next);
}

TooltipWindow::TooltipWindow(platform::Form& form, QWidget* owner, EventGate& gate)
    : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                         Qt::WindowTransparentForInput),
      PlainView(form, *this, gate) {
    setAttribute(Qt::WA_ShowWithoutActivating);
}

QPoint TooltipWindow::placeFor(QSize) const {
    return {twipsToPixels(form()->Left), twipsToPixels(form()->Top)};
}

void TooltipWindow::paintEvent(QPaintEvent*) {
    paintSurface();
    QPainter painter(this);
    paintFrame(painter, rect(), palette().color(QPalette::Shadow));
}

} // namespace desktop
