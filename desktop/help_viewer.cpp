#include "desktop/help_viewer.h"

#include "desktop/help_window.h"

#include <QGuiApplication>
#include <QScreen>

namespace desktop {

namespace {

void moveToMiddle(QWidget& window) {
    auto const room = QGuiApplication::primaryScreen()->availableGeometry();
    window.resize(window.size().boundedTo(room.size()));
    window.move(room.center() - window.rect().center());
}

} // namespace

HelpViewer::~HelpViewer() {
    delete window_.data();
}

bool HelpViewer::show(QString const& file, QString const& page) {
    auto help = HelpFile::open(file);
    if (!help)
        return false;
    if (window_ && window_->isVisible()) {
        window_->setFile(std::move(help));
    } else {
        window_ = new HelpWindow(std::move(help));
        moveToMiddle(*window_);
    }
    window_->showPage(page);
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
    window_->show();
    window_->raise();
    window_->activateWindow();
    return true;
}

} // namespace desktop
