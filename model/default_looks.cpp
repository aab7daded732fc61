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
    return default_looks[kind_index(style)];
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
                            kind.backColor(),
                            kind.width,
                            kind.height,
                            0,
                            kind.look == Look::image ? 1 : 0};
    }
}

void UpdDefVar() {
    for (int i = 1; i <= card.fields; ++i)
        if (auto const* const kind = field(i).kind())
            follow(default_look(kind->style), field(i));
}

void UpdateDefaultFont() {
    bool text_found = false;
    bool title_found = false;
    auto const give = [](Field const& source, Look look) {
        for (auto const& kind : kinds)
            if (kind.look == look) {
                follow(default_look(kind.style), source);
                default_look(kind.style).caption = "Uusi";
            }
    };
    for (int i = 1; i <= card.fields && !(text_found && title_found); ++i) {
        auto const& source = field(i);
        if (source.holds(Value::text)) {
            give(source, Look::box);
            default_look(Style::LST).width = source.width;
            text_found = true;
        } else if (source.is_title()) {
            give(source, Look::label);
            title_found = true;
        }
    }
}

} // namespace kehystin
