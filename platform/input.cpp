#include "platform/input.h"

#include "platform/base.h"
#include "platform/system.h"

#include <algorithm>

namespace platform::input {

namespace {

// Mouse positions reach an object in twips; forms and picture boxes, which have a unit of their own
// inside, get that unit.

[[noreturn]] void refuse(Control const& control, std::string_view why,
                         std::string_view detail = {}) {
    std::string words;
    try {
        words = control.full_name().append(" ").append(why).append(detail);
    } catch (std::bad_alloc const&) {
        // The refusal itself is what matters.
    }
    throw InputRefused(std::move(words));
}

void require_front(Control const& control) {
    auto* const modal = System::current().active_modal();
    if (modal && &control.form() != modal)
        refuse(control, "is behind the modal form ", modal->name());
}

void require_reachable(Control const& control) {
    require_front(control);
    if (!control.is_shown())
        refuse(control, "is hidden");
    if (!control.is_enabled())
        refuse(control, "is disabled");
}

/// A bar takes the focus when code gives it, but not by a click beside what stands in it.
void focus_on_click(Control& control) {
    if (control.takes_focus() && control.dock_side() == 0)
        System::current().move_focus(&control);
}

/// What a click does by itself, before or instead of the handler.
void perform_click(Control& control) {
    if (auto* const box = dynamic_cast<CheckBox*>(&control))
        box->Value = box->Value == 0 ? 1 : 0;
    else if (auto* const option = dynamic_cast<OptionButton*>(&control)) {
        if (!option->Value)
            option->Value = true;
        else
            option->Click(option->index());
    } else
        control.Click(control.index());
}

/// Replaces the selected text of a box and puts the caret behind what came in.
void replace_selection(TextBox& box, std::string_view text) {
    auto const whole = box.Text.get();
    auto const length = static_cast<int>(Len(whole));
    int const start = std::clamp(box.SelStart.get(), 0, length);
    int const end = std::clamp(start + box.SelLength.get(), start, length);
    auto const head = Left(whole, static_cast<std::size_t>(start));
    auto const tail = whole.substr(Left(whole, static_cast<std::size_t>(end)).size());
    if (box.MaxLength > 0 && box.MaxLength - (length - (end - start)) < static_cast<int>(Len(text)))
        return; // no room: the key does nothing
    // Caret and selection stand behind the new text before Change is raised, as they do for a user;
    // what the handler does to them then stays.
    box.replace_text(head + std::string(text) + tail, start + static_cast<int>(Len(text)));
}

void type_character(Control& control, char32_t key, std::string_view utf8) {
    char32_t const pressed = key;
    if (control.KeyPress)
        control.KeyPress(control.index(), key);
    auto* const box = dynamic_cast<TextBox*>(&control);
    if (key == 0 || !box || box->Locked)
        return;
    if (key == pressed) {
        replace_selection(*box, utf8);
        return;
    }
    auto const byte = static_cast<char>(key);
    replace_selection(*box, from_code_page({&byte, 1}));
}

/// Outlines and lines only mark places.
bool is_object(Control const& control) {
    return control.has_tab_index() && control.Visible;
}

Control* descend(Control const& container, double x, double y) {
    auto const& children = container.children();
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        auto& control = **child;
        bool const takes_mouse = is_object(control) && control.Enabled &&
                                 control.control_class() != ControlClass::combo_box;
        if (!takes_mouse || !control.covers(x, y))
            continue;
        auto* const inner = descend(control, x - control.Left, y - control.Top);
        return inner ? inner : &control;
    }
    return nullptr;
}

double pixels_to_form_units(Form const& form, double pixels) {
    return form.scale() == ScaleMode::pixels ? pixels : pixels * twips_per_pixel;
}

/// The point, in the unit and from the corner that `control` counts from.
MouseArguments arguments_for(Control& control, double x, double y) {
    auto& form = control.form();
    auto const& mouse = System::current().mouse();
    double const unit = pixels_to_form_units(form, 1);
    double left = x * unit;
    double top = y * unit;
    for (auto* at = &control; at != &form; at = at->container()) {
        left -= at->Left;
        top -= at->Top;
    }
    bool const own_unit = control.control_class() == ControlClass::picture_box || &control == &form;
    double const factor = own_unit ? 1 : twips_per_pixel / unit;
    return {mouse.button, mouse.shift, left * factor, top * factor};
}

/// The bar that a control stands in, or null.
Control const* bar_of(Control const& control) {
    for (auto const* at = &control; at; at = at->container())
        if (at->dock_side() != 0)
            return at;
    return nullptr;
}

/// The option buttons that go out when one of them is chosen, as a user sees them: a label between
/// them parts two groups.
std::vector<OptionButton*> group_of(OptionButton const& option) {
    std::vector<OptionButton*> group;
    bool is_own = false;
    for (auto* const child : option.container()->children()) {
        if (dynamic_cast<Label*>(child)) {
            if (is_own)
                break;
            group.clear();
        }
        if (auto* const other = dynamic_cast<OptionButton*>(child);
            other && other->can_take_focus()) {
            group.push_back(other);
            is_own = is_own || other == &option;
        }
    }
    std::sort(group.begin(), group.end(), [](OptionButton const* a, OptionButton const* b) {
        return int{a->TabIndex} < int{b->TabIndex};
    });
    return group;
}

bool is_tab_stop(Control& control) {
    // A key does nothing to a picture.
    if (!control.TabStop || !control.can_take_focus() ||
        control.control_class() == ControlClass::picture_box)
        return false;
    auto const* const option = dynamic_cast<OptionButton const*>(&control);
    if (!option || option->Value)
        return true;
    auto const group = group_of(*option);
    return std::none_of(group.begin(), group.end(),
                        [](auto const* one) { return one->Value.get(); }) &&
           group.front() == option;
}

/// Another option of the group, chosen and with the keyboard.
void choose_option(OptionButton& from, int step) {
    auto const group = group_of(from);
    auto const here = std::find(group.begin(), group.end(), &from);
    auto const count = std::ssize(group);
    if (here == group.end() || count < 2)
        return;
    auto const place = (here - group.begin() + step + count) % count;
    click(*group[static_cast<std::size_t>(place)]);
}

/// Enter or a blank on what is pressed by it. False for anything else.
bool press_by_key(Control& control) {
    auto* const button = dynamic_cast<Button*>(&control);
    if (button && button->ByKey) {
        System::at_edge([&] { button->ByKey(button->index()); });
        return true;
    }
    auto const kind = control.control_class();
    auto const* const label = dynamic_cast<Label const*>(&control);
    bool const is_pressed = button || kind == ControlClass::check_box ||
                            kind == ControlClass::option_button || (label && label->is_link);
    if (is_pressed)
        click(control);
    return is_pressed;
}

/// A handler may unload the form that raised its event.
bool is_loaded(Form const& form) {
    auto const& forms = System::current().forms();
    return std::find(forms.begin(), forms.end(), &form) != forms.end();
}

/// Raises a mouse event. The handler is copied: it may take away the control that holds it.
void raise(MouseEvent const& event, Control& target, MouseArguments const& arguments) {
    if (auto const handler = event)
        handler(target.index(), arguments);
}

bool is_inside(Control& control, double x, double y) {
    auto* const found = object_at(control.form(), x, y);
    return found == &control;
}

} // namespace

Control* object_at(Form& form, double x, double y) {
    return descend(form, pixels_to_form_units(form, x), pixels_to_form_units(form, y));
}

bool takes_drop(Form& form, double x, double y) {
    auto const& standing = form.children();
    return std::none_of(standing.begin(), standing.end(), [&](Control const* control) {
        return is_object(*control) &&
               control->covers(pixels_to_form_units(form, x), pixels_to_form_units(form, y));
    });
}

void click(Control& control) {
    require_reachable(control);
    System::at_edge([&] {
        focus_on_click(control);
        perform_click(control);
    });
}

void double_click(Control& control) {
    require_reachable(control);
    System::at_edge([&] {
        focus_on_click(control);
        control.DblClick(control.index());
    });
}

void focus(Control& control) {
    require_reachable(control);
    if (!control.takes_focus())
        refuse(control, "does not take the focus");
    System::at_edge([&] { System::current().move_focus(&control); });
}

void type(Control& control, std::string_view text) {
    require_reachable(control);
    if (text == " " && press_by_key(control))
        return;
    auto const& form = control.form();
    while (!text.empty() && is_loaded(form)) {
        auto const utf8 = Left(text, 1);
        text.remove_prefix(utf8.size());
        auto const byte = to_code_page(utf8);
        auto const key = static_cast<char32_t>(static_cast<unsigned char>(byte.front()));
        System::at_edge([&] { type_character(control, key, utf8); });
    }
}

void press(Control& control, Key key) {
    require_reachable(control);
    auto& form = control.form();
    // The button or link in hand comes before the default button.
    auto const kind = control.control_class();
    if (key == Key::enter && (kind == ControlClass::button || kind == ControlClass::label)) {
        press_by_key(control);
        return;
    }
    if (key == Key::enter || key == Key::escape) {
        for (auto* const other : form.controls())
            if (auto* const button = dynamic_cast<Button*>(other))
                if ((key == Key::enter ? button->Default : button->Cancel).get() &&
                    button->is_shown() && button->is_enabled())
                    // The keyboard stays where it is: what the button refuses is to be mended
                    // there.
                    return System::at_edge([&] { perform_click(*button); });
        System::at_edge([&] {
            char32_t code = key == Key::enter ? U'\r' : U'\x1b';
            if (control.KeyPress)
                control.KeyPress(control.index(), code);
        });
        return;
    }
    if (key == Key::tab || key == Key::back_tab)
        return walk_focus(control, key == Key::tab ? 1 : -1);
    bool const back = key == Key::up || key == Key::left;
    if (auto* const option = dynamic_cast<OptionButton*>(&control);
        option && (back || key == Key::down || key == Key::right))
        return choose_option(*option, back ? -1 : 1);
    if (auto* const box = dynamic_cast<TextBox*>(&control)) {
        if (key == Key::up || key == Key::down)
            step_beside(*box, key == Key::up ? -1 : 1);
        if ((key == Key::del || key == Key::backspace) && !box->Locked)
            System::at_edge([&] {
                if (box->SelLength == 0) {
                    if (key == Key::backspace && box->SelStart == 0)
                        return;
                    if (key == Key::backspace)
                        box->SelStart = box->SelStart - 1;
                    box->SelLength = 1;
                }
                replace_selection(*box, "");
            });
    } else if (auto* const list = dynamic_cast<ListControl*>(&control)) {
        int const step = key == Key::down ? 1 : key == Key::up ? -1 : 0;
        int const target = list->ListIndex + step;
        if (step != 0 && target >= 0 && target < list->ListCount())
            pick(*list, target);
    }
}

void walk_focus(Control& from, int step) {
    auto const& order = from.form().tab_order();
    auto const count = static_cast<int>(order.size());
    auto const* const bar = bar_of(from);
    int place = from.TabIndex;
    for (int i = 0; i < count; ++i) {
        place = (place + step + count) % count;
        auto* const next = order[static_cast<std::size_t>(place)];
        if (is_tab_stop(*next) && bar_of(*next) == bar)
            return focus(*next);
    }
}

void walk_bars(Form& form, int step) {
    std::vector<Control*> firsts; // the first stop of each bar
    for (auto const side : {Dock::right, Dock::left, Dock::top, Dock::bottom})
        for (auto* const stop : form.tab_order()) {
            auto const* const bar = is_tab_stop(*stop) ? bar_of(*stop) : nullptr;
            if (bar && bar->dock_side() == static_cast<int>(side)) {
                firsts.push_back(stop);
                break;
            }
        }
    if (firsts.empty())
        return;
    auto const* const focused = System::current().focused();
    auto const here = std::find_if(firsts.begin(), firsts.end(), [&](Control const* first) {
        return focused && bar_of(*first) == bar_of(*focused);
    });
    auto const count = std::ssize(firsts);
    auto const from = here == firsts.end() ? (step > 0 ? count - 1 : 0) : here - firsts.begin();
    focus(*firsts[static_cast<std::size_t>((from + step + count) % count)]);
}

bool open_beside(TextBox& box) {
    if (!box.opener || !box.opener->is_shown() || !box.opener->is_enabled())
        return false;
    click(*box.opener);
    if (System::current().focused() == box.opener && box.can_take_focus())
        focus(box); // a dialog has been and gone
    return true;
}

bool step_beside(TextBox& box, int steps) {
    if (!box.stepper || !box.stepper->is_shown() || !box.stepper->is_enabled())
        return false;
    step(*box.stepper, steps);
    return true;
}

void paste(TextBox& box, std::string_view text, std::optional<int> caret) {
    require_reachable(box);
    if (box.Locked)
        refuse(box, "is locked");
    System::at_edge([&] {
        auto const kept = box.MultiLine ? std::string(text) : in_one_line(text);
        auto const taken =
            box.MaxLength > 0 ? Left(kept, static_cast<std::size_t>(box.MaxLength.get())) : kept;
        auto const end = static_cast<int>(Len(taken));
        box.replace_text(taken, std::min(caret.value_or(end), end));
    });
}

void select(TextBox& box, int start, int length) {
    box.SelStart.show(start);
    box.SelLength.show(length);
}

void pick(ListControl& list, int index) {
    require_reachable(list);
    if (index < 0 || index >= list.ListCount())
        refuse(list, "has no item ", std::to_string(index));
    System::at_edge([&] {
        System::current().move_focus(&list);
        list.ListIndex = index;
        list.Picked(list.index());
    });
}

bool pick_also(ComboBox& box, int index) {
    require_reachable(box);
    if (index < 0 || index >= box.ListCount())
        refuse(box, "has no item ", std::to_string(index));
    if (!box.AddByKey)
        return false;
    System::at_edge([&] { box.AddByKey(index); });
    return true;
}

void scroll(ScrollBar& bar, int value) {
    require_reachable(bar);
    auto const [least, most] = std::minmax({bar.Min.get(), bar.Max.get()});
    if (value < least || value > most)
        refuse(bar, "does not reach ", std::to_string(value));
    System::at_edge([&] {
        if (!bar.QueryScroll || bar.QueryScroll())
            bar.Value = value;
    });
}

void step(ScrollBar& bar, int steps) {
    require_reachable(bar);
    System::at_edge([&] {
        if (bar.QueryScroll && !bar.QueryScroll())
            return;
        auto const [least, most] = std::minmax({bar.Min.get(), bar.Max.get()});
        int const towards_max = bar.Max >= bar.Min ? bar.SmallChange.get() : -bar.SmallChange;
        bar.Value = std::clamp(bar.Value + steps * towards_max, least, most);
    });
}

void mouse_press(Form& form, double x, double y, bool modifier, int button) {
    require_reachable(form);
    auto& mouse = System::current().mouse();
    if (mouse.captured)
        return; // a second button while one is down belongs to nobody
    auto* const object = object_at(form, x, y);
    mouse = {object ? object : &form, button, modifier ? 1 : 0};
    System::at_edge([&] {
        auto& target = *mouse.captured;
        focus_on_click(target);
        if (mouse.captured == &target)
            raise(target.MouseDown, target, arguments_for(target, x, y));
    });
}

void mouse_move(Form& form, double x, double y) {
    if (!form.is_shown())
        return;
    auto& mouse = System::current().mouse();
    auto* target = mouse.captured;
    if (!target) {
        auto* const object = object_at(form, x, y);
        target = object ? object : &form;
    } else if (&target->form() != &form) {
        return;
    }
    System::at_edge([&] { raise(target->MouseMove, *target, arguments_for(*target, x, y)); });
}

void mouse_release(Form& form, double x, double y) {
    auto& mouse = System::current().mouse();
    auto* const target = mouse.captured;
    if (!target || &target->form() != &form)
        return;
    System::at_edge([&] {
        auto const arguments = arguments_for(*target, x, y);
        bool const clicked = target != &form && is_inside(*target, x, y);
        raise(target->MouseUp, *target, arguments);
        // The release may have taken the object away with the whole form.
        bool const still_there = mouse.captured == target;
        mouse = {};
        if (clicked && still_there)
            perform_click(*target);
    });
    mouse = {};
}

void mouse_double_press(Form& form, double x, double y, bool modifier) {
    mouse_press(form, x, y, modifier);
    mouse_release(form, x, y);
    // The first click may have changed what stands there.
    if (!is_loaded(form) || !form.is_shown())
        return;
    auto* const target = object_at(form, x, y);
    System::at_edge([&] { (target ? *target : form).DblClick(target ? target->index() : -1); });
}

void drop(Control& source, Form& form, double x, double y) {
    require_reachable(source);
    require_reachable(form);
    if (!takes_drop(form, x, y))
        return; // what stands on a form takes no drops, and hides the form under it
    System::at_edge([&] {
        if (auto const handler = form.DragDrop)
            handler(source, pixels_to_form_units(form, x), pixels_to_form_units(form, y));
    });
}

void drop_files(Form& form, std::vector<std::string> const& files) {
    require_reachable(form);
    System::at_edge([&] {
        if (auto const handler = form.FilesDropped)
            handler(files);
    });
}

void resize(Form& form, double width, double height) {
    require_front(form);
    System::at_edge([&] { form.take_size(width, height); });
}

void move_form(Form& form, double left, double top) {
    form.Left.show(left);
    form.Top.show(top);
}

void set_window_state(Form& form, WindowState state) {
    form.WindowState.show(static_cast<int>(state));
}

void close(Form& form) {
    require_reachable(form);
    System::at_edge([&] {
        bool cancel = false;
        if (auto const handler = form.QueryUnload)
            handler(true, cancel);
        if (!cancel && is_loaded(form))
            form.Close();
    });
}

void click_form(Form& form) {
    require_reachable(form);
    System::at_edge([&] { form.Click(form.index()); });
}

bool shortcut(Form& form, std::string_view keys) {
    bool taken = false;
    System::at_edge([&] { taken = form.KeyDown && form.KeyDown(keys); });
    if (taken)
        return true;
    for (auto* const control : form.controls()) {
        auto* const entry = dynamic_cast<Menu*>(control);
        if (!entry || entry->Shortcut.get() != keys)
            continue;
        if (!entry->is_shown() || !entry->is_enabled())
            return false;
        click(*entry);
        return true;
    }
    return false;
}

void tick(Timer& timer) {
    if (timer.Enabled)
        System::at_edge([&] { timer.Tick(timer.index()); });
}

} // namespace platform::input
