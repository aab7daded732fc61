// Form: a window. It registers with the running System while it lives.
#pragma once

#include "platform/controls.h"

#include <map>
#include <optional>

namespace platform {

enum class FormKind {
    main,    ///< the frame with menus, bars and a child area
    child,   ///< a window inside the main one, sizable; its controls are painted on one canvas
    dialog,  ///< a fixed-size modal window
    tooltip, ///< a bare box above everything, which never takes the focus
};

/// The unit inside a form, for its controls, its mouse events and its drawing.
enum class ScaleMode { twips, pixels };

enum class WindowState { normal = 0, minimized = 1, maximized = 2 };

/// What stands on a painted form, as it is told to those who do not see it.
struct Spoken {
    std::string kind;
    std::string name;
    bool selected = false;
    bool locked = false;

    bool operator==(Spoken const&) const = default;
};

/// Left, Top, Width and Height are the window's outer ones, in twips.
class Form : public TextControl, public Canvas {
  public:
    Form(std::string_view name, FormKind kind, ScaleMode scale = ScaleMode::twips);
    ~Form() override;

    FormKind kind() const { return kind_; }
    ScaleMode scale() const { return scale_; }

    Property<std::string> Caption{*this};
    Property<platform::Picture> Picture{*this};
    Property<int> WindowState{*this, 0};

    /// Raised at once when code or user give Width or Height another value.
    Event Resize;
    Event Load;
    Event Unload;
    QueryUnloadEvent QueryUnload;
    DragDropEvent DragDrop;
    FilesDroppedEvent FilesDropped;
    /// A key by its name ("F1", "Ctrl+S") before the menus see it; true takes it from them.
    std::function<bool(std::string_view keys)> KeyDown;
    /// Tells a control of a child form in words; nothing for what is no object of its own, as a
    /// frame or a line. Asked only while somebody listens. Raises nothing.
    std::function<std::optional<Spoken>(Control const& control)> Describe;

    /// Shows the form and returns when it has closed.
    void ShowModal();
    /// Closes a modal form: ShowModal returns after the handler that calls this. QueryUnload is not
    /// asked, for code closes without question.
    void Close();
    bool is_closing() const { return closing_; }

    /// The user gave the window this outer size, in twips: one Resize, whichever side moved.
    void take_size(double width, double height);

    /// The size inside frame, caption and menu bar, in twips.
    Size inner_size() const;
    /// What the docked bars of a main form leave for its child windows, in twips.
    Size free_size() const;
    /// Lays the docked bars along the sides of a main form, in the order in which they were made.
    void dock();

    /// A control of this form by name and index (-1 for one that stands alone); null without one.
    Control* find(std::string_view name, int index = -1) const;
    /// All controls in the order in which they were made.
    std::vector<Control*> const& controls() const { return controls_; }
    /// The controls in tab order.
    std::vector<Control*> const& tab_order() const { return tab_order_; }

    ControlClass control_class() const override { return ControlClass::form; }
    std::span<PropertyEntry const> properties() const override;
    bool has_tab_index() const override { return false; }

  protected:
    void property_changed(PropertyBase const& property) override;
    /// For destructors of forms: the controls need no longer sign off one by one.
    void begin_unload();

  private:
    friend class Control;
    friend class TabIndexProperty;
    TextControl& canvas_control() override { return *this; }

    FormKind kind_;
    ScaleMode scale_;
    bool closing_ = false;
    std::vector<Control*> controls_;
    std::vector<Control*> tab_order_;
    std::map<Control const*, std::string> spoken_names_;
};

} // namespace platform
