#include "platform/control.h"

#include "platform/form.h"
#include "platform/host.h"
#include "platform/system.h"

#include <algorithm>

namespace platform {

namespace {

/// Takes one element out; looks from the end, where what is unloaded usually stands.
template <class T>
void remove_last(std::vector<T*>& list, T* what) {
    auto const found = std::find(list.rbegin(), list.rend(), what);
    if (found != list.rend())
        list.erase(std::next(found).base());
}

} // namespace

void PropertyBase::check(std::string const& text) const {
    owner_.check_text(*this, text);
}

void PropertyBase::mark_owner() const {
    owner_.mark();
}

void PropertyBase::report_change() const {
    owner_.mark();
    owner_.property_changed(*this);
}

TabIndexProperty::operator int() const {
    auto const& order = owner_.form().tab_order_;
    auto const found = std::find(order.begin(), order.end(), &owner_);
    return found == order.end() ? 0 : static_cast<int>(found - order.begin());
}

TabIndexProperty& TabIndexProperty::operator=(int place) {
    if (place < 0)
        throw RuntimeError(ErrorNumber::invalid_property_value);
    auto& order = owner_.form().tab_order_;
    auto const found = std::find(order.begin(), order.end(), &owner_);
    if (found == order.end())
        return *this;
    auto const target = order.begin() + std::min<std::ptrdiff_t>(place, std::ssize(order) - 1);
    if (found < target)
        std::rotate(found, found + 1, target + 1);
    else
        std::rotate(target, found, found + 1);
    return *this;
}

Control::Control(Control* container, std::string_view name, int index)
    : container_(container),
      form_(container ? &container->form() : nullptr),
      name_(name),
      index_(index) {
    if (!form_)
        return; // a form announces itself
    container_->children_.push_back(this);
    form_->controls_.push_back(this);
    form_->tab_order_.push_back(this);
    host().control_added(*this);
}

Control::~Control() {
    System::current().forget(*this);
    host().control_removed(*this);
    if (!container_)
        return;
    remove_last(container_->children_, this);
    remove_last(form_->controls_, this);
    remove_last(form_->tab_order_, this);
    form_->spoken_names_.erase(this);
}

std::string_view Control::spoken_name() const {
    auto const found = form_->spoken_names_.find(this);
    return found == form_->spoken_names_.end() ? std::string_view() : found->second;
}

void Control::set_spoken_name(std::string_view name) {
    if (name == spoken_name())
        return;
    form_->spoken_names_[this] = std::string(name);
    mark();
}

PropertyEntry const* Control::find_property(std::string_view name) const {
    for (auto const& entry : properties())
        if (entry.name == name)
            return &entry;
    return nullptr;
}

std::string Control::full_name() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::Move(double left, double top) {
    Left = left;
    Top = top;
}

void Control::Move(double left, double top, double width, double height) {
    Move(left, top);
    Width = width;
    Height = height;
}

void Control::bring_to_front() {
    auto& siblings = container_->children_;
    if (siblings.back() == this)
        return;
    remove_last(siblings, this);
    siblings.push_back(this);
    mark();
}

void Control::SetFocus() {
    auto const* const modal = System::current().active_modal();
    bool const reachable = !modal || modal == &form();
    if (reachable && can_take_focus())
        System::current().move_focus(this);
}

bool Control::is_shown() const {
    for (auto const* control = this; control; control = control->container_)
        if (!control->Visible)
            return false;
    return true;
}

bool Control::is_enabled() const {
    for (auto const* control = this; control; control = control->container_)
        if (!control->Enabled)
            return false;
    return true;
}

void Control::mark() {
    if (marked_)
        return;
    marked_ = true;
    host().control_changed(*this);
}

void Control::copy_look(Control const& prototype) {
    Enabled = prototype.Enabled;
    Left = prototype.Left;
    Top = prototype.Top;
    Width = prototype.Width;
    Height = prototype.Height;
    Click = prototype.Click;
    DblClick = prototype.DblClick;
    GotFocus = prototype.GotFocus;
    LostFocus = prototype.LostFocus;
    MouseDown = prototype.MouseDown;
    MouseMove = prototype.MouseMove;
    MouseUp = prototype.MouseUp;
    KeyPress = prototype.KeyPress;
}

void Control::property_changed(PropertyBase const& property) {
    // A control that can no longer be reached cannot keep the keyboard.
    auto* const focused = System::current().focused();
    if ((&property == &Visible || &property == &Enabled) && focused && !focused->can_take_focus())
        System::current().move_focus(nullptr);
    if (&property == &Visible && dock_side() != 0)
        form().dock();
}

void Control::leave_tab_order() {
    remove_last(form_->tab_order_, this);
}

void TextControl::set_font(Font const& font) {
    FontName = font.name;
    FontSize = font.size;
    FontBold = font.bold;
    FontItalic = font.italic;
    FontUnderline = font.underline;
}

void TextControl::copy_look(Control const& prototype) {
    Control::copy_look(prototype);
    auto const& source = static_cast<TextControl const&>(prototype);
    set_font(source.font());
    ForeColor = source.ForeColor;
    BackColor = source.BackColor;
}

} // namespace platform
