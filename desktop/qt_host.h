// QtHost: the machine as the program sees it, and the windows of its forms.
#pragma once

#include "desktop/command_line.h"
#include "desktop/event_gate.h"
#include "desktop/form_view.h"
#include "desktop/help_viewer.h"
#include "desktop/timers.h"
#include "platform/background.h"
#include "platform/form.h"
#include "platform/host.h"

#include <QStringList>

#include <unordered_map>
#include <vector>

class QEventLoop;

namespace desktop {

class MainWindow;

/// Lives inside the QApplication, and longer than the program's forms.
class QtHost : public platform::Host {
  public:
    /// `arguments` are the program's own words of the command line.
    explicit QtHost(QStringList const& arguments);
    ~QtHost() override;

    /// Runs the program's entry and then its events, until the session ends. The exit code.
    int run(std::function<void()> const& entry);

    /// The main form's window; null before it has been shown.
    QWidget* mainWindow() const;
    Timers const& timers() const { return timers_; }
    bool isSessionOver() const { return gate_.isSessionOver(); }
    /// Closes the main window by its usual road, with its question. False when the user would
    /// rather stay; true also where another question stands, which this one would answer.
    bool closeForLogout();

    platform::Answer MsgBox(std::string_view text, int flags, std::string_view title) override;
    void keep_in_sight(std::vector<platform::Control const*> controls) override;
    std::string InputBox(std::string_view prompt, std::string_view title,
                         std::string_view default_text) override;
    std::string ShowOpen(platform::CommonDialog const& dialog) override;
    std::string ShowSave(platform::CommonDialog const& dialog) override;
    platform::Colour ShowColor(platform::Colour start, int flags) override;
    void show_modal(platform::Form& form) override;

    std::vector<std::string> fonts() const override;
    bool accepts_font(std::string_view name) const override;
    platform::Size measure_text(platform::Font const& font, std::string_view text) const override;
    platform::Picture LoadPicture(std::string const& path) override;

    platform::ScreenMetrics metrics() const override;
    platform::Size inner_size(platform::Form const& form) const override;
    platform::Area visible_part(platform::Form const& form) const override;
    platform::Bounds normal_bounds(platform::Form const& form) const override;
    platform::Date now() const override;
    bool left_button_down() const override;
    std::pair<double, double> mouse_position() const override;
    platform::Control* control_under_mouse() const override;
    std::string settings_folder() const override;
    std::string program_folder() const override;
    std::string state_folder() const override;
    std::string command_line() const override;
    std::vector<std::string> start_files() const override;
    std::string absolute_path(std::string const& path) const override;
    bool open_help(std::string const& file, std::string const& topic) override;
    bool open_link(std::string const& target) override;
    void in_background(std::function<void()> const& work) override { background_.run(work); }
    void finish_background() override { background_.finish(); }
    void unhandled(std::string_view what) override;

    void control_changed(platform::Control& control) override;
    void control_added(platform::Control& control) override;
    void control_removed(platform::Control& control) override;
    void pointer_changed(int number) override;
    void timer_changed(platform::Timer& timer) override;

  private:
    class BoxOpen;
    struct ModalLoop {
        platform::Form* form;
        QEventLoop* loop;
    };

    void mark(platform::Control* control);
    void bringUpToDate();
    void showFocus();
    void finishPressSoon();
    void endSession();
    FormView* viewOf(platform::Control const& form) const;
    FormView* ensureView(platform::Form& form);
    FormView* makeView(platform::Form& form);
    QWidget* boxOwner() const;
    QList<QRect> placesInSight() const;
    /// The control that a point of some widget belongs to; null for none.
    platform::Control* controlOf(QWidget& widget, QPoint point) const;

    platform::Background background_;
    EventGate gate_;
    Timers timers_;
    CommandLine commandLine_;
    std::vector<platform::Control*> marked_;
    std::unordered_map<platform::Control const*, FormView*> views_;
    MainWindow* mainWindow_ = nullptr;
    std::vector<ModalLoop> modalLoops_;
    std::vector<platform::Control const*> inSight_;
    HelpViewer help_;
    QObject alive_; // what is put off to a later moment ends with the host
    bool showsHourglass_ = false;
    bool reportsFailure_ = false;
};

} // namespace desktop
