// The rows of the property panel: caption, editor and what stands beside it, by row number.
#pragma once

#include "forms/editor_form.h"

#include <span>
#include <string_view>

namespace kehystin {

struct PanelRow {
    int number; ///< 1 to 25, also the index of the caption's label
    std::string_view caption;
    TextBox EditorForm::*editor;
    ScrollBar EditorForm::*scroll = nullptr;
    ListBox EditorForm::*list = nullptr;
};

/// All rows, in ascending number.
std::span<PanelRow const> panel_rows();

/// The distance between rows, and the height of one, in twips.
inline constexpr double row_step = 285;
inline constexpr double row_height = 255;
/// Where the values begin and end, in twips.
inline constexpr double value_left = 1230;
inline constexpr double value_right = 2790;

} // namespace kehystin
