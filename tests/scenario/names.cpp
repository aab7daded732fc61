#include "tests/scenario/names.h"

#include "model/card.h"
#include "model/session.h"
#include "platform/system.h"
#include "tests/scenario/path.h"
#include "tests/scenario/records.h"

#include <set>
#include <span>

namespace scenario {

using platform::Control;
using platform::ControlClass;
using platform::Form;
using platform::ListControl;
using platform::StatusBar;
using platform::Value;

namespace {

/// All forms are named so, and no control is.
bool is_form_name(NamePart const& part) {
    return !part.index && part.name.size() > 1 && part.name[0] == 'f' && part.name[1] >= 'A' &&
           part.name[1] <= 'Z';
}

void require_program(Stage const& stage) {
    if (!stage.program)
        throw StepError("expected the program to run, found no running program");
}

Control* find_in_front(Stage const& stage, NamePart const& part) {
    auto* const modal = platform::System::current().active_modal();
    for (auto const* const form : {modal, find_form(stage, "fEditor"), find_form(stage, "fCard")})
        if (form)
            if (auto* const control = form->find(part.name, part.number()))
                return control;
    return nullptr;
}

/// A control, and what stands in the path behind its name.
struct Found {
    Control* control = nullptr;
    std::span<NamePart const> rest;
};

/// A form's own property stands before a control of that name.
Found find_control(Stage const& stage, NamePath const& path) {
    auto const parts = std::span(path);
    if (auto* const form = path[0].index ? nullptr : find_form(stage, path[0].name)) {
        bool const own = path.size() == 1 ||
                         (path.size() == 2 && !path[1].index && form->find_property(path[1].name));
        if (own)
            return {form, parts.subspan(1)};
        if (auto* const control = form->find(path[1].name, path[1].number()))
            return {control, parts.subspan(2)};
        return {};
    }
    if (auto* const control = find_in_front(stage, path[0]))
        return {control, parts.subspan(1)};
    return {};
}

/// Places in a list count from 0, in a tree from 1.
int first_place(ListControl const& list) {
    return list.control_class() == ControlClass::tree_view ? 1 : 0;
}

std::optional<Value> list_value(ListControl const& list, NamePart const& part) {
    int const place = part.number() - first_place(list);
    if (!part.index || place < 0 || place >= list.ListCount())
        return std::nullopt;
    if (part.name == "List")
        return list.List(place);
    if (part.name == "ItemData")
        return 1.0 * list.ItemData(place);
    return std::nullopt;
}

std::optional<Value> panel_value(StatusBar const& bar, NamePart const& part) {
    if (part.name != "Panels" || part.number() < 1 || part.number() > bar.panel_count())
        return std::nullopt;
    return bar.Panels(part.number());
}

std::optional<Value> control_value(Control const& control, NamePart const& part) {
    if (auto const* const list = dynamic_cast<ListControl const*>(&control))
        if (auto const value = list_value(*list, part))
            return value;
    if (auto const* const bar = dynamic_cast<StatusBar const*>(&control))
        if (auto const value = panel_value(*bar, part))
            return value;
    auto const* const property = part.index ? nullptr : control.find_property(part.name);
    return property ? std::optional(property->get(control)) : std::nullopt;
}

Value box_value(Stage const& stage, NamePath const& path) {
    auto const& boxes = stage.host.boxes;
    auto const number = path[0].index ? path[0].number() : static_cast<int>(boxes.size());
    if (number < 1 || static_cast<std::size_t>(number) > boxes.size())
        throw StepError("expected a box " + (number < 1 ? "" : std::to_string(number)) +
                        ", found " + std::to_string(boxes.size()) + " boxes");
    auto const& box = boxes[static_cast<std::size_t>(number) - 1];
    if (path.size() == 2 && path[1].is_plain("title"))
        return box.title;
    if (path.size() == 2 && path[1].is_plain("text"))
        return box.text;
    if (path.size() == 2 && path[1].is_plain("flags") && box.flags)
        return 1.0 * *box.flags;
    if (path.size() == 2 && path[1].is_plain("default") && box.default_text)
        return *box.default_text;
    throw StepError(box.flags ? "expected title, text or flags of a message box"
                              : "expected title, text or default of an input box");
}

Value dialog_value(Stage const& stage, NamePath const& path) {
    auto const& dialog = stage.host.file_dialog;
    if (!dialog)
        throw StepError("expected a file dialog, found none");
    if (path.size() == 2 && path[1].is_plain("filter"))
        return dialog->Filter;
    if (path.size() == 2 && path[1].is_plain("defaultext"))
        return dialog->DefaultExt;
    if (path.size() == 2 && path[1].is_plain("flags"))
        return 1.0 * dialog->Flags;
    throw StepError("expected filter, defaultext or flags of a file dialog");
}

std::string selection(Stage const& stage) {
    std::set<int> numbers;
    auto const* const card = find_form(stage, "fCard");
    for (auto const* const control : card ? card->controls() : std::vector<Control*>())
        if (control->name() == "focus" && control->Visible && control->index() > 0 &&
            control->index() <= kehystin::card.fields)
            numbers.insert(control->index());
    std::string text;
    for (int const number : numbers)
        text += (text.empty() ? "" : " ") + std::to_string(number);
    return text;
}

std::string standing_tip(Stage const& stage) {
    auto const* const form = find_form(stage, "fTip");
    auto const* const label = form && form->Visible ? form->find("lblTip") : nullptr;
    auto const* const caption = label ? label->find_property("Caption") : nullptr;
    return caption ? text_of(caption->get(*label)) : std::string();
}

/// The names that stand alone and need no running program.
std::optional<Value> value_of_outcome(Stage const& stage, NamePath const& path) {
    auto const& name = path[0].name;
    if (name == "box")
        return box_value(stage, path);
    if (name == "filebox" && !path[0].index)
        return dialog_value(stage, path);
    if (path.size() > 1 || path[0].index)
        return std::nullopt;
    if (name == "boxes")
        return static_cast<double>(stage.host.boxes.size());
    if (name == "opened")
        return stage.host.opened;
    if (name == "running")
        return stage.program != nullptr;
    if (name == "link_count")
        return 1.0 * int{kehystin::session.link_count};
    return std::nullopt;
}

std::optional<Value> value_of_state(Stage const& stage, NamePath const& path) {
    if (path.size() > 1 || path[0].index)
        return std::nullopt;
    auto const& system = platform::System::current();
    if (path[0].name == "selection")
        return selection(stage);
    if (path[0].name == "pointer")
        return 1.0 * system.MousePointer();
    if (path[0].name == "focused")
        return system.focused() ? system.focused()->full_name() : std::string();
    if (path[0].name == "tip")
        return standing_tip(stage);
    return std::nullopt;
}

/// Nothing when there is no such value; raises StepError where more can be said.
std::optional<Value> find_value(Stage const& stage, std::string_view name) {
    auto const path = read_path(name);
    if (auto const value = value_of_record(path))
        return value;
    if (auto const value = value_of_outcome(stage, path))
        return value;
    if (is_form_name(path[0]) && !find_form(stage, path[0].name)) {
        if (path.size() == 2 && path[1].is_plain("Visible"))
            return false;
        require_form(stage, path[0].name);
    }
    require_program(stage);
    if (auto const value = value_of_state(stage, path))
        return value;
    auto const [control, rest] = find_control(stage, path);
    return control && rest.size() == 1 ? control_value(*control, rest[0]) : std::nullopt;
}

} // namespace

Form* find_form(Stage const& stage, std::string_view name) {
    if (!stage.program)
        return nullptr;
    // Of two forms of one name the younger is the one that a user sees.
    auto const& forms = platform::System::current().forms();
    for (auto form = forms.rbegin(); form != forms.rend(); ++form)
        if ((*form)->name() == name)
            return *form;
    return nullptr;
}

Form& require_form(Stage const& stage, std::string_view name) {
    require_program(stage);
    if (auto* const form = find_form(stage, name))
        return *form;
    throw StepError("expected the form " + std::string(name) + ", found it not loaded");
}

Control& require_control(Stage const& stage, std::string_view name) {
    require_program(stage);
    auto const path = read_path(name);
    auto const [control, rest] = find_control(stage, path);
    if (control && rest.empty())
        return *control;
    if (is_form_name(path[0]))
        require_form(stage, path[0].name);
    throw StepError("expected the control " + std::string(name) + ", found none");
}

Value value_of_name(Stage const& stage, std::string_view name) {
    if (auto const value = find_value(stage, name))
        return *value;
    throw StepError("expected a value of " + std::string(name) + ", found none");
}

bool name_exists(Stage const& stage, std::string_view name) {
    auto const path = read_path(name);
    if (is_field_of_card(path))
        return true;
    if (stage.program)
        if (auto const [control, rest] = find_control(stage, path); control && rest.empty())
            return true;
    try {
        return find_value(stage, name).has_value();
    } catch (StepError const&) {
        return false;
    }
}

Value value_of_word(Stage const& stage, Word const& word) {
    if (word.quoted)
        return word.text;
    if (word.text.size() > 1 && word.text.front() == '@')
        return value_of_name(stage, std::string_view(word.text).substr(1));
    if (auto const colour = read_colour(word.text))
        return *colour;
    return word.text;
}

Value take_value(Stage const& stage, Arguments& arguments, std::string_view what) {
    return value_of_word(stage, arguments.take(what));
}

std::string take_text(Stage const& stage, Arguments& arguments, std::string_view what) {
    return text_of(take_value(stage, arguments, what));
}

double take_number(Stage const& stage, Arguments& arguments, std::string_view what) {
    auto const text = take_text(stage, arguments, what);
    if (auto const number = read_number(text))
        return *number;
    throw StepError("expected " + std::string(what) + ", found " + text);
}

} // namespace scenario
