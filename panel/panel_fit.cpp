#include "panel/panel_fit.h"

#include "commands/card_size.h"
#include "forms/panel_rows.h"

#include <cmath>
#include <initializer_list>

namespace kehystin {

namespace {

constexpr double head_height = 840; // twips, of the panel above its rows
constexpr double scroll_width = 180;

/// The upper edge of the icon bar, drawn once for each width that it has had.
void draw_icon_bar_relief() {
    if (fEditor->relief_width == fEditor->icoBar.Width)
        return;
    fEditor->relief_width = fEditor->icoBar.Width;
    fEditor->icoBar.DrawLine(0, 0, fEditor->icoBar.Width, 0, system_colour(16));
    fEditor->icoBar.DrawLine(0, 15, fEditor->icoBar.Width, 15, system_colour(20));
}

/// Shows or hides the rows' scroll bar. Returns the width that it takes from them.
double fit_scroll_bar() {
    auto& bar = fEditor->scr_pro;
    double const missing = fEditor->proPic.Height - fEditor->proBot.Height;
    bar.Visible = missing > 0;
    if (missing <= 0)
        return 0;
    double const range = missing + row_step;
    bar.Top = 0;
    bar.Min = 0;
    bar.Max = static_cast<int>(range - std::fmod(range, row_step)); // whole rows
    return scroll_width;
}

void fit_rows(double taken) {
    auto& form = *fEditor;
    for (auto* const editor : {&form.txt_caption, &form.txt_name})
        editor->Width = 1530 - taken;
    for (auto* const editor :
         {&form.txt_size, &form.txt_left, &form.txt_top, &form.txt_width, &form.txt_height})
        editor->Width = 1350 - taken;
    for (auto* const scroll :
         {&form.scr_size, &form.scr_left, &form.scr_top, &form.scr_width, &form.scr_height})
        scroll->Left = 2610 - taken;
    for (auto* const editor :
         {&form.txt_list, &form.txt_fontName, &form.txt_fontSize, &form.txt_fontBold,
          &form.txt_fontItalic, &form.txt_fc, &form.txt_bc, &form.txt_transp, &form.txt_value})
        editor->Width = 1260 - taken;
}

} // namespace

void paintTimer_Timer() {
    auto& form = *fEditor;
    if (form.WindowState == static_cast<int>(WindowState::minimized))
        return;
    draw_icon_bar_relief();
    if (form.proBar.Height <= head_height)
        return;
    form.proBot.Height = form.proBar.Height - head_height;
    form.scr_pro.Height = form.proBot.Height - 60;
    fit_rows(fit_scroll_bar());
    if (form.cmd_card_autocenter.Checked)
        center_card();
    form.paintTimer.Enabled = false;
}

void scr_pro_Change() {
    fEditor->proPic.Top = -fEditor->scr_pro.Value;
}

} // namespace kehystin
