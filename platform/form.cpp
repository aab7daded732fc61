#include "platform/form.h"

#include "platform/system.h"

#include <algorithm>

namespace platform {

Form::Form(std::string_view name, FormKind kind, ScaleMode scale)
    : TextControl(nullptr, name), kind_(kind), scale_(scale) {
    attach_form(*this);
    Visible.show(false);
    System::current().forms_.push_back(this);
    host().control_added(*this);
}

Form::~Form() {
    std::erase(System::current().forms_, this);
    std::erase(System::current().modal_, this);
}

void Form::ShowModal() {
    auto& system = System::current();
    system.focus_before_.push_back(system.focused());
    system.move_focus(nullptr);
    system.modal_.push_back(this);
    closing_ = false;
    Visible = true;
    for (auto* const control : tab_order_)
        if (control->can_take_focus()) {
            control->SetFocus();
            break;
        }
    if (!closing_)
        host().show_modal(*this);
    Visible = false;
    std::erase(system.modal_, this);
    auto* const focus_before = system.focus_before_.back();
    system.focus_before_.pop_back();
    if (focus_before && focus_before->can_take_focus())
        system.move_focus(focus_before);
}

void Form::Close() {
    if (closing_)
        return;
    closing_ = true;
    Unload(index());
    mark();
}

Control* Form::find(std::string_view name, int index) const {
    for (auto* const control : controls_)
        if (control->index() == index && control->name() == name)
            return control;
    return nullptr;
}

Size Form::inner_size() const {
    return host().inner_size(*this);
}

void Form::dock() {
    if (kind_ != FormKind::main)
        return;
    auto const inner = inner_size();
    double left = 0;
    double top = 0;
    double right = inner.width;
    double bottom = inner.height;
    for (auto* const bar : children_) {
        // A hidden bar takes no room, but already has the length it will be shown with.
        double const taken = bar->Visible ? 1 : 0;
        switch (static_cast<Dock>(bar->dock_side())) {
        case Dock::none:
            break;
        case Dock::top:
            bar->Move(0, top, inner.width, bar->Height);
            top += taken * bar->Height;
            break;
        case Dock::bottom:
            bar->Move(0, bottom - bar->Height, inner.width, bar->Height);
            bottom -= taken * bar->Height;
            break;
        case Dock::left:
            bar->Move(left, top, bar->Width, std::max(0.0, bottom - top));
            left += taken * bar->Width;
            break;
        case Dock::right:
            bar->Move(right - bar->Width, top, bar->Width, std::max(0.0, bottom - top));
            right -= taken * bar->Width;
            break;
        }
    }
}

Size Form::free_size() const {
    auto free = inner_size();
    for (auto const* const bar : children_) {
        if (!bar->Visible)
            continue;
        switch (static_cast<Dock>(bar->dock_side())) {
        case Dock::none:
            break;
        case Dock::top:
        case Dock::bottom:
            free.height -= bar->Height;
            break;
        case Dock::left:
        case Dock::right:
            free.width -= bar->Width;
            break;
        }
    }
    return free;
}

void Form::begin_unload() {
    controls_.clear();
    tab_order_.clear();
    children_.clear();
}

void Form::take_size(double width, double height) {
    if (Width == width && Height == height)
        return;
    Width.show(width);
    Height.show(height);
    dock();
    Resize(index());
}

void Form::property_changed(PropertyBase const& property) {
    TextControl::property_changed(property);
    if (&property != &Width && &property != &Height)
        return;
    dock();
    Resize(index());
}

} // namespace platform
