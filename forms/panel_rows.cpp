#include "forms/panel_rows.h"

#include <array>

namespace kehystin {

namespace {

using E = EditorForm;

constexpr std::array<PanelRow, 25> rows = {{
    {1, "Otsikko", &E::txt_caption},
    {2, "Koko", &E::txt_size, &E::scr_size},
    {3, "Lista", &E::txt_list},
    {4, "Fontti", &E::txt_fontName, nullptr, &E::lst_fontName},
    {5, "Pistekoko", &E::txt_fontSize, nullptr, &E::lst_fontSize},
    {6, "Lihavoitu", &E::txt_fontBold, nullptr, &E::lst_boolean},
    {7, "Kursivoitu", &E::txt_fontItalic, nullptr, &E::lst_boolean},
    {8, "Tekstin väri", &E::txt_fc},
    {9, "Taustan väri", &E::txt_bc},
    {10, "Vasemmalta", &E::txt_left, &E::scr_left},
    {11, "Ylhäältä", &E::txt_top, &E::scr_top},
    {12, "Leveys", &E::txt_width, &E::scr_width},
    {13, "Korkeus", &E::txt_height, &E::scr_height},
    {14, "Alkuarvo", &E::txt_value, nullptr, &E::lst_value},
    {15, "Nimi", &E::txt_name},
    {16, "Läpinäkyvä", &E::txt_transp, nullptr, &E::lst_boolean},
    {17, "Linkitettävä", &E::txt_link, nullptr, &E::lst_boolean},
    {18, "Taustakuva", &E::txt_picture},
    {19, "Tab-indeksi", &E::txt_tabindex},
    {20, "Tasaus", &E::txt_align, nullptr, &E::lst_align},
    {21, "Skaalaus", &E::txt_scale, nullptr, &E::lst_scale},
    {22, "Kuvatiedosto", &E::txt_imgfile},
    {23, "Kehys", &E::txt_border, nullptr, &E::lst_border},
    {24, "Linkitys", &E::txt_linkitys, nullptr, &E::lst_linkitys},
    {25, "Linkki", &E::txt_linkki, nullptr, &E::lst_linkki},
}};

} // namespace

std::span<PanelRow const> panel_rows() {
    return rows;
}

} // namespace kehystin
