#include "properties/image_rows.h"

#include "boxes/failure_report.h"
#include "forms/editor_form.h"
#include "model/session.h"
#include "panel/row_texts.h"
#include "panel/selection_rows.h"
#include "platform/host.h"
#include "properties/apply.h"
#include "properties/list_editor.h"
#include "properties/word_choice.h"
#include "surface/images.h"
#include "surface/visuals.h"

#include <algorithm>
#include <vector>

namespace kehystin {

namespace {

/// The selected image fields.
std::vector<int> selected_images() {
    auto numbers = selected_fields();
    std::erase_if(numbers, [](int number) {
        return !field(number).is(Style::IMG) || !fCard->visual_of(number);
    });
    return numbers;
}

bool confirms_scaling(int scaling) {
    constexpr int flags = box::information + box::yes_no;
    switch (scaling) {
    case 1:
        return MsgBox(lines({"", " Valinnalla 'Venytetty' kuva venytetään koko kuvakentän     ",
                             " kokoiseksi, jolloin alkuperäinen kuvasuhde voi muuttua.     ", "",
                             " Oletko varma että haluat skaalauksen 'Venytetty'?     "}),
                      flags, " Venytetty skaalaus") == Answer::yes;
    case 2:
        return MsgBox(
                   lines({"",
                          " Valinnalla 'Kehys kuvaan' muutetaan kehyksen koko automaattisesti     ",
                          " ladattavan kuvan kokoiseksi, jolloin kehys voi peittää alleen muita "
                          "kenttiä.     ",
                          "", " Oletko varma että haluat skaalauksen 'Kehys kuvaan'?     "}),
                   flags, " Kehys kuvaan skaalaus") == Answer::yes;
    case 3:
        return MsgBox(lines({"", " Valinnalla 'Sovitettu' kuva ladataan kuvakenttään     ",
                             " alkuperäisessä kuvasuhteessa, maksimoiden kuva-     ",
                             " koko kentän leveyden tai korkeuden suhteen. ",
                             " Jos valitun kuvan kuvasuhde ei vastaa tarkalleen     ",
                             " kentän kokosuhdetta, jää kentän reunoihin (vaaka     ",
                             " tai pystysuunnassa) tyhjää tilaa.     ", "",
                             " Oletko varma että haluat skaalauksen 'Sovitettu'?     "}),
                      flags, " Sovitettu skaalaus") == Answer::yes;
    default:
        return true;
    }
}

bool any_has_picture(std::vector<int> const& images) {
    return std::any_of(images.begin(), images.end(), has_readable_picture);
}

void show_file_of(Field& one) {
    PanelUpdate const filling;
    fEditor->txt_imgfile.Text = row_text(Row::image_file, one);
}

} // namespace

void txt_scale_Change() {
    if (session.pro_updating)
        return;
    auto const scaling = word_number(Row::scaling, fEditor->txt_scale.Text.get());
    if (!scaling)
        return;
    fEditor->lst_scale.ListIndex.show(*scaling);
    for (int const number : selected_fields())
        field(number).scaling = *scaling;
    auto const images = selected_images();
    if (!images.empty())
        default_look(Style::IMG).scaling = *scaling;
    if (*scaling != 0 && any_has_picture(images) && !confirms_scaling(*scaling)) {
        fEditor->lst_scale.ListIndex = 0; // comes back here
        lst_list_Click();                 // the list editor's; without use here, and without harm
        return;
    }
    for (int const number : images)
        show_scaled(number);
    finish_change(Links::keep);
}

void txt_border_Change() {
    if (session.pro_updating)
        return;
    auto const border = word_number(Row::border, fEditor->txt_border.Text.get());
    if (!border)
        return;
    change_selected(
        Links::keep,
        [&](int i, Field& one) {
            one.border = *border;
            show_border(i);
        },
        [&](DefaultField& look) { look.border = *border; });
}

void cmd_imgfile_Click() {
    auto const images = selected_images();
    if (images.empty() || !load_image(images.front()))
        return;
    for (int const number : images) {
        field(number).list = field(images.front()).list.trimmed();
        show_scaled(number);
    }
    finish_change(Links::keep);
}

void txt_imgfile_DblClick() {
    auto const images = selected_images();
    if (images.empty())
        return;
    if (fEditor->txt_imgfile.Text.get() == no_image_file) {
        cmd_imgfile_Click();
        return;
    }
    for (int const number : images)
        remove_image(number);
    show_file_of(field(images.front()));
    finish_change(Links::keep);
}

void txt_imgfile_Change() {
    if (session.pro_updating)
        return;
    PanelUpdate const filling;
    fEditor->txt_imgfile.Text = common_text(Row::image_file);
}

} // namespace kehystin
