#include "model/default_looks.h"

namespace kehystin {

DefaultLooks default_looks;

namespace {

void follow(DefaultField& look, Field const& source) {
    look.fontName = source.fontName.trimmed();
    look.fontSize = static_cast<float>(int{source.fontSize});
    look.fontBold = source.fontBold != 0;
    look.fontItalic = source.fontItalic != 0;
    look.foreColor = source.foreColor;
    look.backColor = source.backColor;
    look.width = source.width;
    look.height = source.height;
}

} // namespace

DefaultField& default_look(Style style) {
    for (std::size_t i = 0; i < kinds.size(); ++i)
        if (kinds[i].style == style)
            return default_looks[i];
    throw RuntimeError(ErrorNumber::subscript_out_of_range);
}

void set_def_var(Font const& sample) {
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        auto const& kind = kinds[i];
        default_looks[i] = {std::string(kind.default_text),
                            sample.name,
                            static_cast<float>(sample.size),
                            false,
                            false,
                            colours::black,
                            kind.backColor,
                            kind.width,
                            kind.height,
                            0,
                            kind.style == Style::IMG ? 1 : 0};
    }
}

void UpdDefVar() {
    for (int i = 1; i <= card.fields; ++i)
        if (auto const* kind = kind_of(field(i).style))
            follow(default_look(kind->style), field(i));
}

void UpdateDefaultFont() {
    bool text_found = false;
    bool title_found = false;
    auto const give = [](Field const& source, std::initializer_list<Style> styles) {
        for (auto const style : styles) {
            follow(default_look(style), source);
            default_look(style).caption = "Uusi";
        }
    };
    for (int i = 1; i <= card.fields && !(text_found && title_found); ++i) {
        auto const& source = field(i);
        if (source.style == static_cast<int>(Style::TXT) ||
            source.style == static_cast<int>(Style::STX)) {
            give(source, {Style::TXT, Style::STX, Style::CMB});
            default_look(Style::LST).width = source.width;
            text_found = true;
        } else if (source.is_title()) {
            give(source, {Style::OTS, Style::CHK, Style::OPT});
            title_found = true;
        }
    }
}

} // namespace kehystin
