#include "app/program.h"

#include "app/start.h"
#include "app/wiring.h"
#include "boxes/failure_report.h"
#include "cardfile/known_file.h"
#include "cardfile/rescue_offer.h"
#include "cardfile/work_rescue.h"
#include "forms/card_form.h"
#include "forms/editor_form.h"
#include "mainwindow/menu_table.h"
#include "model/session.h"

namespace kehystin {

Program::Program(platform::Host& host) : system_(host) {
    reset_session();
    forget_known_file();
    system_.on_failure = [](RuntimeError const& error) {
        standard_report(" Toiminnon suorittaminen aiheutti virheen     ", error);
    };
    system_.before_box = keep_work_before_box;
}

Program::~Program() {
    end_rescue();
    fTip.reset();
    fCard.reset();
    fEditor.reset();
}

void Program::Main() {
    begin_rescue();
    fEditor = std::make_unique<EditorForm>();
    wire_editor_form(); // first: elements that build_menus loads take over their prototype's
                        // handlers
    build_menus();
    System::at_edge([] { MDIForm_Load(); });
    System::at_edge([] { offer_rescue(); });
}

void Program::keep_work() noexcept {
    try {
        keep_work_now();
    } catch (...) {
        // What can be kept has been kept; the process is about to end.
    }
}

} // namespace kehystin
