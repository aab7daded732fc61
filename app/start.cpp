#include "app/start.h"

#include "app/given_files.h"
#include "app/settings_file.h"
#include "boxes/failure_report.h"
#include "cardfile/document_commands.h"
#include "mainwindow/bars.h"
#include "mainwindow/icon_bar.h"
#include "mainwindow/last_files.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/default_looks.h"
#include "model/session.h"
#include "model/settings.h"
#include "panel/rows.h"
#include "platform/files.h"
#include "platform/system.h"
#include "properties/font_colour_rows.h"

#include <initializer_list>
#include <string_view>

namespace kehystin {

namespace {

/// The steps of the start that a failure names.
enum class Step {
    first_values = 1,
    settings = 2,
    saved_bars = 3,
    window_place = 4,
    last_files = 5,
    icon_bar = 6,
    show_window = 7,
    command_line = 8,
    existence = 11,
    open = 12,
    timers = 13,
};

void fill_lists() {
    fill_font_lists();
    for (auto const& row : panel_rows())
        if (!row.value.words.empty()) {
            list_of(row.row).Clear();
            for (auto const& word : row.value.words)
                list_of(row.row).AddItem(word.text);
        }
}

void read_screen() {
    auto const screen = host().metrics();
    session.frame_x = screen.frame_width;
    session.caption_y = screen.caption_height;
    session.menu_y = screen.menu_height;
    session.small_caption_y = screen.small_caption;
    session.scroll_bar_x = Integer(screen.scroll_bar_width * screen.TwipsPerPixelX);
}

void apply_saved_bars() {
    if (settings.showIconBar != -1)
        cmd_icoBar_Click();
    if (settings.showStatusBar != -1)
        cmd_stsBar_Click();
}

void place_window() {
    auto const screen = host().metrics();
    double const width = screen.width * screen.TwipsPerPixelX;
    double const height = screen.height * screen.TwipsPerPixelY;
    if (settings.saveWindowPos == 0) {
        settings.windowWidth = static_cast<float>(width * 4 / 5 + 120);
        settings.windowHeight = static_cast<float>(height * 4 / 5 + 90);
        settings.windowLeft = static_cast<float>(width / 2) - settings.windowWidth / 2;
        settings.windowTop = static_cast<float>(height / 2) - settings.windowHeight / 2;
    }
    fEditor->Move(settings.windowLeft, settings.windowTop, settings.windowWidth,
                  settings.windowHeight);
}

/// One quote at either end goes, each only if it is there.
std::string without_quotes(std::string text) {
    if (text.starts_with('"'))
        text.erase(0, 1);
    if (text.ends_with('"'))
        text.pop_back();
    return text;
}

void report_missing_start_file() {
    System::current().set_MousePointer(pointer::normal);
    MsgBox(lines({" Käynnistystiedostoksi annettu tiedosto ei löydy:    ", "",
                  " " + session.startFile + "     ", "",
                  " Tarkista ohjelman käynnistysparametrit.     ", ""}),
           box::information, session.appTitle);
    session.startFile.clear();
}

void report_unreachable_start_file() {
    auto text = lines({" Ohjelmalle käynnistystiedostoksi annettu tiedosto     ", "",
                       " " + session.startFile + " ei löydy.     ", "",
                       " Tarkista ohjelman käynnistysparametrit.     ", ""});
    if (contains(session.startFile, "\""))
        text += lines(
            {"", " Huomaa että käynnistysparametri tulee antaa     ", " ilman lainausmerkkejä."});
    MsgBox(text, box::information, session.appTitle);
    session.startFile.clear();
}

void report_failure(RuntimeError const& error, Step step) {
    MsgBox(lines({" Ohjelman lataaminen aiheutti virheen     ", " " + error.text() + "     ",
                  " VIRHEKOODI:   E" + std::to_string(error.number()) + " P1 S" +
                      std::to_string(static_cast<int>(step)),
                  " Mikäli sama virhe toistuu ole hyvä ja ilmoita virhekoodi    ",
                  support_address_line()}),
           box::warning, " Tiedoksi");
    session.startFile.clear();
}

/// Takes the start file from the command line; true when a new card was asked for instead.
bool examine_command_line(std::string const& line) {
    auto const trimmed = Trim(line);
    if (trimmed.starts_with("-u")) {
        cmd_new_Click();
        return true;
    }
    if (trimmed.starts_with("-k")) {
        session.startFile = Trim(std::string_view(trimmed).substr(2));
        session.startText = session.startFile;
    } else {
        session.startFile = line;
    }
    session.startFile = without_quotes(session.startFile);
    return false;
}

void load(Step& step) {
    session.isSizing = true;
    set_def();
    step = Step::settings;
    bool const was_read = ReadSettings();
    step = Step::saved_bars;
    if (was_read)
        apply_saved_bars();
    step = Step::window_place;
    place_window();
    step = Step::last_files;
    if (settings.keepLastFiles != 0)
        UpdateLastFiles("");
    step = Step::icon_bar;
    SetDefaultIcons();
    set_ico();
    step = Step::show_window;
    upd_sts();
    fEditor->Visible = true;
    step = Step::command_line;
    auto const given = host().start_files();
    auto const line = host().command_line();
    if (!given.empty() || !line.empty()) {
        // Sizing and the panel's timer are left as they are: the new card sees to both.
        if (!given.empty())
            session.startFile = first_file(given);
        else if (examine_command_line(line))
            return;
        step = Step::existence;
        if (!session.startFile.empty() && !file_exists(session.startFile))
            report_missing_start_file();
        step = Step::open;
        if (!session.startFile.empty())
            cmd_open_Click();
    }
    step = Step::timers;
    session.isSizing = false;
    fEditor->paintTimer.Enabled = true;
    tell_of_others(given);
}

} // namespace

void set_def() {
    session.startText.clear();
    session.appTitle = " Kehystin 5.6";
    fEditor->Caption = session.appTitle;
    session.fieldsLocked = false;
    read_screen();
    session.windowsDir = with_separator(host().settings_folder());
    session.appPath = with_separator(host().program_folder());
    session.helpFile = "editor55.chm";
    session.helpTopic = "sisallys.htm";
    fEditor->BackColor = system_colour(12);
    paint_strips();
    auto const screen = host().metrics();
    settings =
        first_settings(screen.width * screen.TwipsPerPixelX, screen.height * screen.TwipsPerPixelY);
    SetDefaultIcons();
    fill_lists();
    set_def_var(fEditor->testFont.font());
}

void MDIForm_Load() {
    auto step = Step::first_values;
    try {
        load(step);
        return;
    } catch (RuntimeError const& error) {
        if (step == Step::existence && error.is(ErrorNumber::path_not_found))
            report_unreachable_start_file();
        else if (step == Step::existence && error.is(ErrorNumber::bad_file_name))
            report_missing_start_file();
        else
            report_failure(error, step);
    }
    session.isSizing = false;
    fEditor->Visible = true;
    fEditor->paintTimer.Enabled = true;
}

} // namespace kehystin
