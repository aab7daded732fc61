#include "desktop/help_viewer.h"

#include "desktop/help_window.h"
#include "desktop/window_place.h"

namespace desktop {

namespace {

/// Beside what the help explains, as far as the screen has room, or else in its middle.
void place(QWidget& window, QWidget const* explained) {
    constexpr QSize least(560, 400); // a page beside the contents can still be read
    auto const frame = frameFor(explained);
    auto const room = roomFor(explained);
    auto const wanted = window.size().grownBy(frame);
    QRect taken(QPoint(), wanted.boundedTo(room.size()));
    taken.moveCenter(room.center());
    if (explained)
        taken = roomBeside(explained->window()->frameGeometry(), room, wanted, least);
    window.resize(taken.size().shrunkBy(frame));
    window.move(taken.topLeft());
}

/// A dialog that the window stands over. The main window has room for the help.
bool coversDialog(QWidget const& window, QWidget const* explained) {
    return explained && explained->window()->windowType() == Qt::Dialog && !window.isMaximized() &&
           window.frameGeometry().intersects(explained->window()->frameGeometry());
}

} // namespace

HelpViewer::~HelpViewer() {
    delete window_.data();
}

bool HelpViewer::show(QString const& file, QString const& page, QWidget const* explained) {
    auto help = HelpFile::open(file);
    if (!help)
        return false;
    if (window_ && window_->isVisible()) {
        window_->setFile(std::move(help));
        if (coversDialog(*window_, explained))
            place(*window_, explained);
    } else {
        window_ = new HelpWindow(std::move(help));
        place(*window_, explained);
    }
    window_->showPage(page);
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->show();
    window_->raise();
    window_->activateWindow();
    return true;
}

} // namespace desktop
