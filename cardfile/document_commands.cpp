#include "cardfile/document_commands.h"

#include "boxes/failure_report.h"
#include "cardfile/known_file.h"
#include "cardfile/new_identity.h"
#include "cardfile/reader.h"
#include "cardfile/save_checks.h"
#include "cardfile/work_rescue.h"
#include "cardfile/writer.h"
#include "dialogs/wizard.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "links/link_engine.h"
#include "links/link_list.h"
#include "links/tab_order.h"
#include "mainwindow/bars.h"
#include "mainwindow/card_place.h"
#include "mainwindow/command_state.h"
#include "mainwindow/document_state.h"
#include "mainwindow/last_files.h"
#include "mainwindow/status_bar.h"
#include "model/card.h"
#include "model/default_looks.h"
#include "model/session.h"
#include "model/settings.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/host.h"
#include "surface/frames.h"
#include "surface/grid.h"
#include "surface/load_card.h"
#include "surface/rebuild.h"
#include "surface/record_watch.h"

#include <utility>

namespace kehystin {

namespace {

std::string step_of(int step) {
    return " S" + std::to_string(step);
}

constexpr std::string_view question_before_opening =
    " Tallennetaanko nykyinen korttimalli ennen uuden avaamista?     ";

/// Asks about unsaved changes. False when the user wanted them saved and they were not: the command
/// then ends with the card still open.
bool settle_changes(std::string_view question, int flags) {
    if (session.cardModified &&
        MsgBox(question, flags, " Korttimalli tallentamatta") == Answer::yes) {
        cmdTallenna_Click();
        return !session.cardModified;
    }
    drop_work();
    return true;
}

void begin_card() {
    clear_card_changed();
    begin_other_card();
}

void show_file_in_title() {
    session.open_folder = folder_part(session.cardFile);
    fEditor->Caption =
        session.appTitle + " - " + (session.cardFile.empty() ? "Uusi kortti" : session.cardFile);
}

/// What new and opened cards have in common once the surface stands.
void bring_up_card() {
    show_card_bars();
    unlock_fields();
    center_new_card();
    upd_gg();
    fEditor->cmb_field.ListIndex = 0;
    FillLinkList();
    command_state_of_rebuilt_card();
    fEditor->focusTimer.Enabled = true;
}

/// A new card has no identity and no file: saving it must not touch the card that was open before.
void begin_new_document() {
    begin_card();
    card.ID = "";
    session.needNewID = true;
    session.cardFile.clear();
    forget_known_file();
    show_file_in_title();
}

void make_blank_card() {
    empty_card("Uusi");
    card.STPP = Integer(host().metrics().TwipsPerPixelX);
    begin_new_document();
}

void bring_up_new_card() {
    if (!fEditor->cmd_stsBar.Checked)
        cmd_stsBar_Click();
    bring_up_card();
}

void ask_name() {
    auto const answer = in_one_line(
        InputBox(lines({"Anna korttimallille kuvaava nimi.", "", "Tiedosto tulee näkymään kortti-",
                        "mallien listalla antamallasi nimellä."}),
                 " Uusi korttimalli", "Uusi"));
    if (!answer.empty())
        fEditor->txt_name.Text = answer; // the row carries it to the card and its window
}

void new_card_by_wizard(int& step) {
    step = 2;
    if (!show_wizard())
        return;
    auto const file_before = session.cardFile;
    begin_new_document();
    step = 3;
    if (!show_card())
        return;
    UpdateLastFiles(file_before);
    clear_card_changed();
    bring_up_new_card();
    UpdateDefaultFont();
    MarkCardChanged();
}

void new_blank_card(int& step) {
    step = 2;
    make_blank_card();
    step = 3;
    if (!show_card())
        return;
    UpdDefVar();
    bring_up_new_card();
    MarkCardChanged();
    step = 4;
    ask_name();
}

void new_card(int& step) {
    fEditor->focusTimer.Enabled = false;
    if (!settle_changes(question_before_opening, box::question + box::yes_no))
        return;
    if (settings.showVelho != 0)
        new_card_by_wizard(step);
    else
        new_blank_card(step);
}

/// What an opened card has in common with a kept one once it is read. False when it cannot be
/// shown.
bool take_card(int& step, bool new_id) {
    begin_card();
    step = 5;
    if (!show_card())
        return false;
    step = 6;
    session.needNewID = new_id;
    SaveCardBefore();
    if (!session.cardFile.empty())
        UpdateLastFiles(session.cardFile);
    UpdDefVar();
    step = 7;
    fEditor->lst_value.Visible = false;
    fEditor->lst_fontSize.Visible = false;
    clear_card_changed();
    show_file_in_title();
    step = 8;
    bring_up_card();
    upd_sts();
    note_open_file();
    return true;
}

/// What the user chooses to open. Empty when it is nothing.
std::string choose_file() {
    return host().ShowOpen({".krt", "Korttimallit (*.krt)|*.krt|Kaikki tiedostot (*.*)|*.*", 0,
                            4102, open_card_folder()});
}

/// A file that the program was started with may be named from the folder of that moment.
std::string full_name(std::string const& start_file) {
    return names_a_file(start_file) ? host().absolute_path(start_file) : start_file;
}

void open_file(int& step) {
    // It counts for this opening only, also when the opening ends at the question below.
    auto const start_file = std::exchange(session.startFile, {});
    if (!settle_changes(question_before_opening, box::warning + box::yes_no))
        return;
    step = 2;
    auto const chosen = start_file.empty() ? choose_file() : full_name(start_file);
    if (chosen.empty())
        return;
    session.cardFile = chosen;
    step = 3;
    session.cardFolder = folder_part(session.cardFile);
    step = 4;
    session.readFile = session.cardFile;
    if (!ReadCardFile(session.readFile))
        return; // the records of the open card stay, so that what stands can still be saved
    take_card(step, false);
}

/// What a card says of its save.
void stamp_card() {
    upd_tabIndex();
    card.editDate = Today();
    card.STPP = Integer(host().metrics().TwipsPerPixelX);
    if (!session.needNewID)
        CompareCards();
    if (session.needNewID)
        card.ID = GetNewID();
}

void save_card(int& step) {
    update_links();
    if (!run_save_checks(step))
        return;
    step = 6;
    if (Trim(session.cardFile).empty()) {
        cmdTallennaNimella_Click();
        return;
    }
    if (!may_save_over(session.cardFile))
        return;
    step = 7;
    auto const before = open_card;
    auto const new_id_before = session.needNewID;
    auto const put_back = [&] {
        open_card = before;
        session.needNewID = new_id_before;
    };
    try {
        stamp_card();
    } catch (...) {
        put_back();
        throw;
    }
    step = 8;
    if (!SaveCardFile()) {
        put_back();
        MarkCardChanged(); // the old contents may be gone, and then only this card has them
        return;
    }
    show_file_in_title();
    note_open_file();
    step = 9;
    clear_card_changed();
}

void close_card() {
    if (!settle_changes(" Tallennetaanko nykyinen korttimalli ennen sulkemista?     ",
                        box::question + box::yes_no))
        return;
    unload_card_form();
    show_no_card();
    keep_keyboard();
    note_open_file();
}

/// Runs a command's steps. A cancelled dialog ends it quietly; any other failure has its box.
template <class Steps, class Report>
void run_command(Steps const& steps, Report const& report) {
    int step = 1;
    try {
        steps(step);
    } catch (RuntimeError const& error) {
        if (!error.is(ErrorNumber::cancelled))
            report(error, step);
    }
}

std::string failure_code(std::string_view command, RuntimeError const& error, int step) {
    return " Virhekoodi: " + std::string(command) + " E" + std::to_string(error.number()) +
           step_of(step);
}

void report_opening(RuntimeError const& error, int step) {
    standard_report(" Korttimallin avaaminen aiheutti virheen     ", error,
                    failure_code("P11", error, step));
}

} // namespace

void cmd_new_Click() {
    run_command(new_card, [](RuntimeError const& error, int step) {
        standard_report(" Uuden korttimallin luominen aiheutti virheen     ", error,
                        lines({failure_code("P10", error, step),
                               " Uuden korttimallin luominen on keskeytetty.     "}));
    });
}

void cmd_open_Click() {
    run_command(open_file, report_opening);
}

void cmdTallenna_Click() {
    auto const report = [](RuntimeError const& error, int step) {
        standard_report(" Korttimallin tallentaminen aiheutti virheen     ", error,
                        lines({"  (S" + std::to_string(step) + ")     ",
                               " Korttimallin tallentaminen on keskeytetty.     "}));
    };
    RecordWatch const watch;
    run_command(save_card, report);
    run_command([&](int&) { watch.refresh(); }, report);
}

void cmdTallennaNimella_Click() {
    try {
        auto const chosen = host().ShowSave(
            {".krt", "Korttimalli tiedostot (*.krt)|*.krt|Kaikki tiedostot (*.*)|*.*", 0, 6150,
             open_card_folder()});
        if (chosen.empty())
            return;
        session.cardFile = chosen;
        may_replace(chosen);
        cmdTallenna_Click();
        forget_agreement(); // a later save is another question
    } catch (RuntimeError const& error) {
        if (!error.is(ErrorNumber::cancelled))
            MsgBox(lines({error.text(), support_lines()}), box::warning,
                   " Virhe tiedoston tallennuksessa...");
    }
}

void cmd_close_Click() {
    close_card();
}

std::optional<CardData> open_kept_card(std::string const& kept, std::string const& file,
                                       bool new_id) {
    std::optional<CardData> opened;
    auto const open = [&](int& step) {
        fEditor->focusTimer.Enabled = false;
        if (!settle_changes(question_before_opening, box::warning + box::yes_no))
            return;
        auto own_file = file;
        auto const folder_before = std::exchange(session.cardFolder, folder_part(file));
        session.readFile = kept;
        if (!ReadCardFile(kept)) {
            session.cardFolder = folder_before;
            return;
        }
        session.cardFile = std::move(own_file); // until here the open card is another one's
        auto as_read = open_card;
        if (!take_card(step, new_id))
            return;
        kept_card = {}; // no file holds it
        MarkCardChanged();
        opened = std::move(as_read);
    };
    run_command(open, report_opening);
    return opened;
}

void lastFile_Click(int index) {
    session.startFile = fEditor->lastFile(index).Caption;
    cmd_open_Click();
}

} // namespace kehystin
