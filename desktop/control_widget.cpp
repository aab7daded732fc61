#include "desktop/control_widget.h"

#include "desktop/button_widgets.h"
#include "desktop/colours.h"
#include "desktop/fonts.h"
#include "desktop/frame_widget.h"
#include "desktop/list_widgets.h"
#include "desktop/painted_widgets.h"
#include "desktop/scroll_widgets.h"
#include "desktop/text_widgets.h"
#include "desktop/tree_widget.h"

namespace desktop {

void ControlWidget::takeOverLook(platform::TextControl const& control) {
    if (auto font = control.font(); font != font_) {
        widget().setFont(fontFor(font));
        font_ = std::move(font);
    }
    if (control.ForeColor == fore_ && control.BackColor == back_)
        return;
    fore_ = control.ForeColor;
    back_ = control.BackColor;
    hasLook_ = true;
    takeOverPalette();
}

void ControlWidget::takeOverPalette() {
    if (hasLook_ && control_)
        widget().setPalette(paletteFor(fore_, back_, groundOf(*control_)));
}

ControlWidget* makeControlWidget(platform::Control& control, QWidget& parent, EventGate& gate) {
    using platform::ControlClass;
    switch (control.control_class()) {
    case ControlClass::label:
    case ControlClass::picture_box:
    case ControlClass::shape:
    case ControlClass::line:
        return new PaintedWidget(control, parent, gate);
    case ControlClass::status_bar:
        return new StatusBarWidget(static_cast<platform::StatusBar&>(control), parent, gate);
    case ControlClass::text_box: {
        auto& box = static_cast<platform::TextBox&>(control);
        if (box.MultiLine)
            return new TextArea(box, parent, gate);
        return new TextField(box, parent, gate);
    }
    case ControlClass::check_box:
        return new CheckBoxWidget(static_cast<platform::CheckBox&>(control), parent, gate);
    case ControlClass::option_button:
        return new OptionButtonWidget(static_cast<platform::OptionButton&>(control), parent, gate);
    case ControlClass::button:
        return new ButtonWidget(static_cast<platform::Button&>(control), parent, gate);
    case ControlClass::combo_box:
        return new ComboBoxWidget(static_cast<platform::ComboBox&>(control), parent, gate);
    case ControlClass::list_box:
        return new ListBoxWidget(static_cast<platform::ListBox&>(control), parent, gate);
    case ControlClass::scroll_bar:
        return makeScrollWidget(static_cast<platform::ScrollBar&>(control), parent, gate);
    case ControlClass::tree_view:
        return new TreeWidget(static_cast<platform::TreeView&>(control), parent, gate);
    case ControlClass::frame:
        return new FrameWidget(static_cast<platform::Frame&>(control), parent, gate);
    default:
        return nullptr;
    }
}

} // namespace desktop
