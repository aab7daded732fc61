#include "desktop/main_window.h"

#include "desktop/colours.h"
#include "desktop/drag.h"
#include "desktop/keyboard.h"
#include "desktop/look.h"
#include "desktop/text.h"
#include "platform/input.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QMenuBar>
#include <QMouseEvent>

#include <algorithm>
#include <functional>
#include <utility>

namespace desktop {

namespace {

/// The area for child windows: a click beside them is a click on the form.
class ChildArea : public QMdiArea {
  public:
    ChildArea(QWidget& parent, platform::Form& form, EventGate& gate)
        : QMdiArea(&parent), form_(form), gate_(gate) {
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        setFocusPolicy(Qt::NoFocus);
        setObjectName(QStringLiteral("childArea"));
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override { isPressed_ = isBare(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (std::exchange(isPressed_, false) && isBare(*event))
            gate_.run([&] { platform::input::click_form(form_); });
    }

  private:
    bool isBare(QMouseEvent const& event) const {
        auto const point = event.position().toPoint();
        return viewport()->rect().contains(point) && !viewport()->childAt(point);
    }

    bool isPressed_ = false;
    platform::Form& form_;
    EventGate& gate_;
};

/// What the bars and the area for child windows stand on.
class Surface : public QWidget {
  public:
    Surface(QWidget& parent, std::function<void()> resized)
        : QWidget(&parent), resized_(std::move(resized)) {}

  protected:
    void resizeEvent(QResizeEvent*) override { resized_(); }

  private:
    std::function<void()> resized_;
};

platform::WindowState stateOf(QWidget const& window) {
    return window.isMinimized()   ? platform::WindowState::minimized
           : window.isMaximized() ? platform::WindowState::maximized
                                  : platform::WindowState::normal;
}

constexpr int untilOpen = 50; // milliseconds until the gate is looked at again

constexpr QSize decoration(2 * frameWidth, 2 * frameWidth + captionHeight);

} // namespace

MainWindow::MainWindow(platform::Form& form, EventGate& gate)
    : form_(&form),
      gate_(gate),
      surface_(new Surface(*this, [this] { layOut(); })),
      area_(new ChildArea(*surface_, form, gate)),
      menus_(*menuBar(), gate),
      widgets_(form, *surface_, gate) {
    setObjectName(toQt(form.name()));
    menuBar()->setNativeMenuBar(false);
    menuBar()->setFixedHeight(menuBarHeight());
    setCentralWidget(surface_);
    setAcceptDrops(true);
    // A window manager that maximises tells of the size before it tells of the state: a size is the
    // normal one only when no state has followed it.
    constexpr int aMoment = 300; // milliseconds
    connect(qApp, &QApplication::focusChanged, this, [this] { fitBars(); });
    settled_.setSingleShot(true);
    settled_.setInterval(aMoment);
    settled_.callOnTimeout(this, [this] {
        isRestored_ = false;
        if (isNormal())
            normal_ = seenGeometry();
    });
}

QSize MainWindow::innerSize(QSize outer) {
    return outer - decoration - QSize(0, menuBarHeight());
}

void MainWindow::takeOver(platform::Control& control) {
    if (&control == form_)
        return takeOverForm();
    if (control.control_class() == platform::ControlClass::menu)
        return menus_.update(static_cast<platform::Menu&>(control));
    widgets_.takeOver(control);
    layoutIsOld_ = layoutIsOld_ || control.dock_side() != 0;
    barsAreOld_ = barsAreOld_ || layoutIsOld_ || overflows_.contains(control.container());
}

void MainWindow::remove(platform::Control const& control) {
    overflows_.remove(&control); // goes with the bar
    barsAreOld_ = true;
    menus_.remove(control);
    widgets_.remove(control);
}

void MainWindow::takeOverForm() {
    setWindowTitle(toQtLine(form_->Caption.get()));
    area_->setBackground(toColour(form_->BackColor, Ground::window));
    takeOverState();
    takeOverGeometry();
    if (form_->Visible)
        widgets_.showAll();
}

void MainWindow::takeOverState() {
    auto const wanted = static_cast<platform::WindowState>(form_->WindowState.get());
    if (wanted == stateOf(*this))
        return;
    switch (wanted) {
    case platform::WindowState::minimized: // what is maximised comes back maximised
        return setWindowState(windowState() | Qt::WindowMinimized);
    case platform::WindowState::maximized:
        return setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowMaximized);
    case platform::WindowState::normal:
        return setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
    }
}

/// Only what the program has changed: a window that is restored has its place and size from the
/// window manager, while the form still knows those of the maximised one.
void MainWindow::takeOverGeometry() {
    auto const wanted = formGeometry();
    if (!isNormal() || wanted == known_)
        return;
    known_ = normal_ = wanted;
    if (pos() != wanted.topLeft())
        move(wanted.topLeft());
    if (size() != wanted.size() - decoration)
        resize(wanted.size() - decoration);
}

void MainWindow::settle() {
    widgets_.settle();
    if (layoutIsOld_)
        layOut();
    if (barsAreOld_)
        fitBars();
    if (form_ && isVisible() != form_->Visible)
        setVisible(form_->Visible);
}

/// The child windows have what the docked bars leave; the bars know their own places.
void MainWindow::layOut() {
    layoutIsOld_ = false;
    if (!form_)
        return;
    auto room = surface_->rect();
    for (auto const* const bar : form_->children()) {
        if (!bar->Visible)
            continue;
        auto const place = rectOf(*bar);
        switch (static_cast<platform::Dock>(bar->dock_side())) {
        case platform::Dock::none:
            break;
        case platform::Dock::top:
            room.setTop(std::max(room.top(), place.bottom() + 1));
            break;
        case platform::Dock::bottom:
            room.setBottom(std::min(room.bottom(), place.top() - 1));
            break;
        case platform::Dock::left:
            room.setLeft(std::max(room.left(), place.right() + 1));
            break;
        case platform::Dock::right:
            room.setRight(std::min(room.right(), place.left() - 1));
            break;
        }
    }
    area_->setGeometry(room);
}

void MainWindow::fitBars() {
    barsAreOld_ = false;
    if (!form_)
        return;
    for (auto* const control : form_->children()) {
        auto* const bar = dynamic_cast<platform::PictureBox*>(control);
        auto* const widget = bar && bar->dock_side() != 0 ? widgets_.find(*bar) : nullptr;
        if (!widget)
            continue;
        auto*& overflow = overflows_[bar];
        if (!overflow)
            overflow = new BarOverflow(*bar, *widget, widgets_, gate_);
        overflow->fit();
    }
}

QWidget* MainWindow::focusWidgetOf(platform::Control const& control) {
    return widgets_.find(control);
}

QRect MainWindow::placeOnScreen(platform::Control const& control) {
    auto const* const widget = widgets_.find(control);
    return widget ? visiblePartOnScreen(*widget, widget->rect()) : QRect();
}

platform::Control* MainWindow::controlAt(QWidget& widget, QPoint) {
    return widgets_.controlOf(&widget);
}

void MainWindow::discard() {
    form_ = nullptr;
    hide();
    deleteLater();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_)
        gate_.run([&] { platform::input::close(*form_); });
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    sendGeometry();
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    sendGeometry();
}

void MainWindow::sendGeometry() {
    if (!form_ || !isVisible() || isMinimized())
        return;
    if (isNormal())
        settled_.start();
    auto const taken = seenGeometry();
    auto const known = formGeometry();
    if (taken == known)
        return;
    if (gate_.isClosed() || gate_.isRefreshing()) // a change of state shows at once
        return sendLater(&MainWindow::sendGeometry);
    known_ = taken;
    gate_.run([&] {
        if (taken.topLeft() != known.topLeft())
            platform::input::move_form(*form_, taken.x() * twipsPerPixel,
                                       taken.y() * twipsPerPixel);
        if (taken.size() != known.size())
            platform::input::resize(*form_, taken.width() * twipsPerPixel,
                                    taken.height() * twipsPerPixel);
    });
}

QRect MainWindow::formGeometry() const {
    return {twipsToPixels(form_->Left), twipsToPixels(form_->Top), twipsToPixels(form_->Width),
            twipsToPixels(form_->Height)};
}

QRect MainWindow::seenGeometry() const {
    return {pos(), size() + decoration};
}

QRect MainWindow::normalBounds() const {
    return isNormal() && !isRestored_ ? seenGeometry() : normal_;
}

bool MainWindow::event(QEvent* event) {
    bool const done = QMainWindow::event(event);
    if (event->type() == QEvent::ApplicationPaletteChange && form_) {
        area_->setBackground(toColour(form_->BackColor, Ground::window));
        widgets_.takeOverPalette();
    }
    if (event->type() == QEvent::ApplicationFontChange)
        menuBar()->setFixedHeight(menuBarHeight());
    return done;
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !form_)
        return;
    isRestored_ = isNormal();
    if (isRestored_)
        settled_.start();
    else
        settled_.stop();
    sendState();
}

void MainWindow::sendState() {
    if (gate_.isClosed())
        return sendLater(&MainWindow::sendState);
    if (form_)
        gate_.run([&] { platform::input::set_window_state(*form_, stateOf(*this)); });
}

void MainWindow::sendLater(void (MainWindow::*send)()) {
    QTimer::singleShot(gate_.isClosed() ? untilOpen : 0, this, send);
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    if (!form_ || !(sendDialogKey(*form_, gate_, *event) || sendBarKey(*form_, gate_, *event)))
        QMainWindow::keyPressEvent(event);
}

/// Files are copied in, so to speak: whoever offers them to be moved keeps them.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    bool const isBehindBox = QApplication::activeModalWidget() != nullptr;
    if (!form_ || isBehindBox || draggedFiles(*event->mimeData()).isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

/// Every place is as good as the one where they came in.
void MainWindow::dragMoveEvent(QDragMoveEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void MainWindow::dropEvent(QDropEvent* event) {
    auto const files = draggedFiles(*event->mimeData());
    if (!form_ || files.isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
    activateWindow();
    // The other program waits for the end of the drop, and not for the answer to a question.
    QTimer::singleShot(0, this, [this, files] { sendFiles(files); });
}

void MainWindow::sendFiles(QStringList const& files) {
    if (gate_.isClosed())
        QTimer::singleShot(untilOpen, this, [this, files] { sendFiles(files); });
    else if (form_)
        gate_.run([&] { platform::input::drop_files(*form_, fromQt(files)); });
}

bool MainWindow::focusNextPrevChild(bool next) {
    return form_ && walkFocus(*form_, gate_, next);
}

} // namespace desktop
