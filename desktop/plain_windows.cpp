#include "desktop/plain_windows.h"

#include "desktop/colours.h"
#include "desktop/device_pixels.h"
#include "desktop/drawing_painter.h"
#include "desktop/keyboard.h"
#include "desktop/look.h"
#include "desktop/pictures.h"
#include "desktop/text.h"
#include "desktop/window_place.h"
#include "platform/input.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScrollArea>

#include <functional>
#include <utility>

namespace desktop {

namespace {

/// What the controls of a dialog stand on, apart from the dialog so that it can be scrolled.
class Surface : public QWidget {
  public:
    Surface(QWidget& parent, std::function<void()> paint)
        : QWidget(&parent), paint_(std::move(paint)) {}

  protected:
    void paintEvent(QPaintEvent*) override { paint_(); }

  private:
    std::function<void()> paint_;
};

} // namespace

PlainView::PlainView(platform::Form& form, QWidget& window, QWidget& surface, EventGate& gate)
    : form_(&form), window_(window), surface_(surface), gate_(gate), widgets_(form, surface, gate) {
    window_.setObjectName(toQt(form.name()));
}

void PlainView::takeOver(platform::Control& control) {
    if (&control != form_)
        return widgets_.takeOver(control);
    window_.setWindowTitle(toQt(form_->Caption.get()));
    takeOverPalette();
    surface_.update();
}

void PlainView::takeOverPalette() {
    if (!form_)
        return;
    widgets_.takeOverPalette();
    window_.setPalette(paletteFor(form_->ForeColor, form_->BackColor, Ground::window));
}

void PlainView::remove(platform::Control const& control) {
    widgets_.remove(control);
}

void PlainView::settle() {
    if (!form_)
        return;
    if (form_->Visible) {
        widgets_.showAll();
        auto const inside =
            fit(QSize(twipsToPixels(form_->Width), twipsToPixels(form_->Height)) - decoration());
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
    QPainter painter(&surface_);
    painter.fillRect(surface_.rect(), toColour(form_->BackColor, Ground::window));
    drawPicture(painter, form_->Picture, surface_.rect(), Ground::window);
    paintDrawing(painter, form_->drawing(), *form_, toPixels(*form_, 1));
}

DialogWindow::DialogWindow(platform::Form& form, QWidget* owner, EventGate& gate)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowCloseButtonHint),
      PlainView(form, *this, *new Surface(*this, [this] { paintSurface(); }), gate) {
    setWindowModality(Qt::WindowModal); // of the program's windows; the help can be read beside it
}

QSize DialogWindow::decoration() const {
    constexpr int fixedFrame = 3; // of a window that cannot be sized
    return {2 * fixedFrame, 2 * fixedFrame + captionHeight};
}

QPoint DialogWindow::placeFor(QSize inside) const {
    if (isVisible() || !parentWidget())
        return pos(); // from then on it stands where the user has put it
    auto const middle =
        parentWidget()->frameGeometry().center() - QPoint(inside.width(), inside.height()) / 2;
    auto const frame = frameFor(parentWidget());
    return placeInSightOf(inside.grownBy(frame), roomFor(parentWidget()), middle, {});
}

QSize DialogWindow::fit(QSize inside) {
    auto const room = roomFor(parentWidget()).marginsRemoved(frameFor(parentWidget())).size();
    surface().resize(inside);
    bool const fits = inside.width() <= room.width() && inside.height() <= room.height();
    if (fits && !scroll_)
        return inside;
    if (!scroll_) {
        scroll_ = new QScrollArea(this);
        scroll_->setFrameShape(QFrame::NoFrame);
        scroll_->setFocusPolicy(Qt::NoFocus);
        scroll_->setWidget(&surface());
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now && surface().isAncestorOf(now))
                scroll_->ensureWidgetVisible(now);
        });
    }
    // A bar across takes its height from what is seen, and one down the side its width.
    QSize const bars(inside.height() > room.height() ? scrollBarWidth : 0,
                     inside.width() > room.width() ? scrollBarWidth : 0);
    auto const seen = (inside + bars).boundedTo(room);
    scroll_->setGeometry(QRect(QPoint(), seen));
    scroll_->show();
    return seen;
}

bool DialogWindow::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange)
        takeOverPalette();
    return QDialog::event(event);
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
      PlainView(form, *this, *this, gate) {
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
