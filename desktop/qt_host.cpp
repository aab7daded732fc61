#include "desktop/qt_host.h"

#include "desktop/boxes.h"
#include "desktop/child_window.h"
#include "desktop/fonts.h"
#include "desktop/keyboard.h"
#include "desktop/look.h"
#include "desktop/main_window.h"
#include "desktop/mouse.h"
#include "desktop/pictures.h"
#include "desktop/plain_windows.h"
#include "desktop/text.h"
#include "disk/disk.h"
#include "platform/system.h"

#include "rescue/store.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QScreen>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace desktop {

namespace {

Qt::CursorShape shapeOf(int pointer) {
    switch (pointer) {
    case platform::pointer::size_nesw:
        return Qt::SizeBDiagCursor;
    case platform::pointer::size_ns:
        return Qt::SizeVerCursor;
    case platform::pointer::size_nwse:
        return Qt::SizeFDiagCursor;
    case platform::pointer::size_we:
        return Qt::SizeHorCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace

/// While a box waits for the user: windows up to date, timers still, an ordinary pointer.
class QtHost::BoxOpen {
  public:
    explicit BoxOpen(QtHost& host) : host_(host), waiting_(host.gate_), hold_(host.timers_) {
        platform::System::current().about_to_ask();
        if (host.showsHourglass_)
            QApplication::setOverrideCursor(Qt::ArrowCursor);
        coversHourglass_ = host.showsHourglass_;
    }
    ~BoxOpen() {
        if (coversHourglass_)
            QApplication::restoreOverrideCursor();
        host_.finishPressSoon();
    }
    BoxOpen(BoxOpen const&) = delete;
    BoxOpen& operator=(BoxOpen const&) = delete;

  private:
    QtHost& host_;
    EventGate::Waiting waiting_;
    Timers::Hold hold_;
    bool coversHourglass_;
};

QtHost::QtHost(QStringList const& arguments)
    : gate_({[this] { bringUpToDate(); }, [this](std::string_view what) { unhandled(what); },
             [this] { endSession(); }}),
      timers_(gate_),
      commandLine_(readCommandLine(arguments)) {}

QtHost::~QtHost() {
    for (auto const& [form, view] : views_)
        view->discard();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtHost::run(std::function<void()> const& entry) {
    gate_.run(entry);
    return gate_.isSessionOver() ? 0 : QApplication::exec();
}

QWidget* QtHost::mainWindow() const {
    return mainWindow_;
}

bool QtHost::closeForLogout() {
    // A second question on top of one that stands would answer that for the user.
    if (!mainWindow_ || gate_.isClosed() || QApplication::activeModalWidget() ||
        platform::System::current().active_modal())
        return true;
    mainWindow_->close();
    return isSessionOver();
}

void QtHost::endSession() {
    timers_.stopAll();
    QApplication::exit(0); // leaves every loop, those of modal forms too
}

platform::Answer QtHost::MsgBox(std::string_view text, int flags, std::string_view title) {
    BoxOpen const open(*this);
    return showMessage(boxOwner(), text, flags, title, placesInSight());
}

void QtHost::keep_in_sight(std::vector<platform::Control const*> controls) {
    inSight_ = std::move(controls);
}

QList<QRect> QtHost::placesInSight() const {
    QList<QRect> places;
    for (auto const* const control : inSight_)
        if (auto* const view = viewOf(control->form()))
            if (auto const place = view->placeOnScreen(*control); !place.isEmpty())
                places.append(place);
    return places;
}

std::string QtHost::InputBox(std::string_view prompt, std::string_view title,
                             std::string_view default_text) {
    BoxOpen const open(*this);
    return askText(boxOwner(), prompt, title, default_text);
}

std::string QtHost::ShowOpen(platform::CommonDialog const& dialog) {
    BoxOpen const open(*this);
    return askFile(boxOwner(), dialog, FileTask::open);
}

std::string QtHost::ShowSave(platform::CommonDialog const& dialog) {
    BoxOpen const open(*this);
    return askFile(boxOwner(), dialog, FileTask::save);
}

platform::Colour QtHost::ShowColor(platform::Colour start, int) {
    BoxOpen const open(*this);
    return askColour(boxOwner(), start);
}

void QtHost::show_modal(platform::Form& form) {
    QEventLoop loop;
    {
        EventGate::Waiting const waiting(gate_);
        modalLoops_.push_back({&form, &loop});
        loop.exec();
        modalLoops_.pop_back();
    }
    finishPressSoon();
    if (gate_.isSessionOver())
        throw platform::SessionEnd{};
}

std::vector<std::string> QtHost::fonts() const {
    return fontNames();
}

bool QtHost::accepts_font(std::string_view name) const {
    return acceptsFontName(name);
}

platform::Size QtHost::measure_text(platform::Font const& font, std::string_view text) const {
    return measureText(font, text);
}

platform::Picture QtHost::LoadPicture(std::string const& path) {
    if (!isMetafile(path))
        return loadPicture(path);
    EventGate::Closed const closed(gate_);
    Timers::Hold const hold(timers_);
    return loadPicture(path);
}

platform::ScreenMetrics QtHost::metrics() const {
    platform::ScreenMetrics metrics;
    auto const size = QGuiApplication::primaryScreen()->size();
    metrics.width = size.width();
    metrics.height = size.height();
    metrics.TwipsPerPixelX = twipsPerPixel;
    metrics.TwipsPerPixelY = twipsPerPixel;
    metrics.frame_width = frameWidth;
    metrics.caption_height = captionHeight;
    metrics.menu_height = menuHeight;
    metrics.scroll_bar_width = scrollBarWidth;
    return metrics;
}

platform::Size QtHost::inner_size(platform::Form const& form) const {
    auto const inner =
        MainWindow::innerSize({twipsToPixels(form.Width), twipsToPixels(form.Height)});
    return {inner.width() * twipsPerPixel, inner.height() * twipsPerPixel};
}

platform::Bounds QtHost::normal_bounds(platform::Form const& form) const {
    if (!mainWindow_ || viewOf(form) != mainWindow_)
        return Host::normal_bounds(form);
    auto const bounds = mainWindow_->normalBounds();
    return {bounds.left() * twipsPerPixel, bounds.top() * twipsPerPixel,
            bounds.width() * twipsPerPixel, bounds.height() * twipsPerPixel};
}

platform::Area QtHost::visible_part(platform::Form const& form) const {
    auto* const view = viewOf(form);
    auto const* const inside = view ? view->inside() : nullptr;
    auto const seen = inside ? inside->visibleRegion().boundingRect() : QRect();
    if (seen.isEmpty())
        return Host::visible_part(form);
    return {double(seen.x()), double(seen.y()), double(seen.width()), double(seen.height())};
}

platform::Date QtHost::now() const {
    auto const moment = QDateTime::currentDateTime();
    auto const date = moment.date();
    auto const time = moment.time();
    return platform::to_date({date.year(), date.month(), date.day(), time.hour(), time.minute(),
                              time.second() + time.msec() / 1000.0});
}

bool QtHost::left_button_down() const {
    return QGuiApplication::mouseButtons() & Qt::LeftButton;
}

std::pair<double, double> QtHost::mouse_position() const {
    auto const point = QCursor::pos();
    return {point.x(), point.y()};
}

platform::Control* QtHost::control_under_mouse() const {
    auto const point = QCursor::pos();
    auto* const widget = QApplication::widgetAt(point);
    if (!widget)
        return nullptr;
    return controlOf(*widget, widget->mapFromGlobal(point));
}

platform::Control* QtHost::controlOf(QWidget& widget, QPoint point) const {
    for (auto const& [form, view] : views_)
        if (auto* const control = view->controlAt(widget, point))
            return control;
    return nullptr;
}

std::string QtHost::settings_folder() const {
    auto folder = disk::settings_folder();
    QDir().mkpath(toQt(folder));
    return folder;
}

std::string QtHost::program_folder() const {
    return fromQt(QCoreApplication::applicationDirPath() + u'/');
}

std::string QtHost::state_folder() const {
    return rescue::usual_folder();
}

std::string QtHost::command_line() const {
    return fromQt(commandLine_.text);
}

std::vector<std::string> QtHost::start_files() const {
    return fromQt(commandLine_.files);
}

std::string QtHost::absolute_path(std::string const& path) const {
    auto const written = toQt(path);
    if (written.isEmpty() || QDir::isAbsolutePath(written))
        return path; // letter for letter, as the user knows it
    return fromQt(QDir::toNativeSeparators(QFileInfo(QDir::cleanPath(written)).absoluteFilePath()));
}

bool QtHost::open_help(std::string const& file, std::string const& topic) {
    return help_.show(toQt(file), toQt(topic), boxOwner());
}

bool QtHost::open_link(std::string const& target) {
    return QDesktopServices::openUrl(QUrl::fromUserInput(toQt(target)));
}

void QtHost::unhandled(std::string_view what) {
    qCritical("%.*s", static_cast<int>(what.size()), what.data());
    if (std::exchange(reportsFailure_, true))
        return; // one box says enough
    auto const text =
        " Ohjelmassa tapahtui odottamaton virhe:     \n\n " + std::string(what) + "     ";
    MsgBox(text, platform::box::critical, " Kehystin");
    reportsFailure_ = false;
}

void QtHost::control_changed(platform::Control& control) {
    mark(&control);
}

/// Null marks that something has gone: the window that it stood in follows with the others.
void QtHost::mark(platform::Control* control) {
    marked_.push_back(control);
    if (marked_.size() == 1 && !gate_.isInsideProgram() && !gate_.isRefreshing())
        QTimer::singleShot(0, &alive_, [this] { gate_.refresh(); });
}

void QtHost::control_added(platform::Control& control) {
    control.mark();
}

void QtHost::control_removed(platform::Control& control) {
    if (control.is_marked())
        std::replace(marked_.begin(), marked_.end(), &control,
                     static_cast<platform::Control*>(nullptr));
    std::erase(inSight_, &control);
    timers_.remove(control);
    if (auto* const view = viewOf(control)) {
        views_.erase(&control);
        if (&view->windowWidget() == mainWindow_)
            mainWindow_ = nullptr;
        view->discard();
    } else if (auto* const around = viewOf(control.form())) {
        around->remove(control);
        mark(nullptr);
    }
}

void QtHost::pointer_changed(int number) {
    bool const hourglass = number == platform::pointer::hourglass;
    if (hourglass && !showsHourglass_)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    if (!hourglass && showsHourglass_)
        QApplication::restoreOverrideCursor();
    showsHourglass_ = hourglass;
    // The other shapes speak of what lies on the free surface; elsewhere the pointer is its own.
    for (auto const& [form, view] : views_)
        view->setPointer(shapeOf(number));
}

void QtHost::timer_changed(platform::Timer& timer) {
    timers_.update(timer);
}

FormView* QtHost::viewOf(platform::Control const& form) const {
    auto const found = views_.find(&form);
    return found == views_.end() ? nullptr : found->second;
}

FormView* QtHost::ensureView(platform::Form& form) {
    if (auto* const found = viewOf(form))
        return found;
    if (!form.Visible)
        return nullptr; // nothing is made before it shows
    auto* const made = makeView(form);
    if (!made)
        return nullptr;
    views_.emplace(&form, made);
    made->takeOver(form);
    for (auto* const control : form.controls())
        made->takeOver(*control);
    return made;
}

FormView* QtHost::makeView(platform::Form& form) {
    switch (form.kind()) {
    case platform::FormKind::main:
        mainWindow_ = new MainWindow(form, gate_);
        return mainWindow_;
    case platform::FormKind::child:
        return mainWindow_ ? new ChildWindow(form, mainWindow_->childArea(), gate_) : nullptr;
    case platform::FormKind::dialog:
        if (mainWindow_)
            mainWindow_->settle(); // a dialog of the start comes up over a window that shows
        return new DialogWindow(form, boxOwner(), gate_);
    case platform::FormKind::tooltip:
        return new TooltipWindow(form, mainWindow_, gate_);
    }
    return nullptr;
}

void QtHost::bringUpToDate() {
    if (marked_.empty())
        return showFocus();
    for (auto* const form : platform::System::current().forms())
        ensureView(*form); // the main window first: forms stand in the order of their loading
    for (auto* const control : std::exchange(marked_, {})) {
        if (!control)
            continue;
        control->clear_mark();
        if (auto* const view = viewOf(control->form()))
            view->takeOver(*control);
    }
    for (auto const& [form, view] : views_)
        view->settle();
    showFocus();
    if (!modalLoops_.empty() && modalLoops_.back().form->is_closing())
        modalLoops_.back().loop->quit();
}

/// Qt's keyboard focus follows the program's.
void QtHost::showFocus() {
    if (QApplication::activePopupWidget())
        return;
    auto* const control = platform::System::current().focused();
    auto* const view = control ? viewOf(control->form()) : nullptr;
    auto* const wanted = view ? view->focusWidgetOf(*control) : nullptr;
    if (wanted) {
        if (wanted->window()->focusWidget() != wanted) {
            showFocusIn(*wanted->window(), true);
            wanted->setFocus(Qt::OtherFocusReason);
        }
        return;
    }
    // The program has taken the keyboard from everything, or given it to what does not show.
    auto* const current = QApplication::focusWidget();
    if (current && controlOf(*current, QPoint()))
        current->clearFocus();
}

/// A box takes the release of a button that was down when it came up. Behind the handler that has
/// opened it, and any other box, that press ends.
void QtHost::finishPressSoon() {
    QTimer::singleShot(0, &alive_, [this] {
        if (!QApplication::activeModalWidget())
            finishLostPress(gate_, QGuiApplication::mouseButtons());
    });
}

QWidget* QtHost::boxOwner() const {
    if (auto* const modal = QApplication::activeModalWidget())
        return modal;
    return mainWindow_ && mainWindow_->isVisible() ? mainWindow_ : nullptr;
}

} // namespace desktop
