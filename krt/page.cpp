#include "krt/page.h"

#include "base/numbers.h"
#include "base/text.h"
#include "card/kinds.h"
#include "krt/encoding.h"
#include "krt/html.h"
#include "krt/web_picture.h"

#include <cmath>
#include <map>
#include <vector>

namespace krt {

namespace {

using kehystin::Field;
using kehystin::Kind;
using kehystin::Look;
using kehystin::Style;

/// What the frame of the card's window takes of its size, in pixels.
constexpr int frame_across = 8;
constexpr int frame_down = 23;

/// All pictures of a card together. A page is held in memory as a whole.
constexpr std::uintmax_t most_bytes = 16U * 1024 * 1024;

/// The looks that the kinds share: those of the editor.
constexpr std::string_view common_style = R"(
:root{color-scheme:light}
body{margin:24px;background:#abb1ba;color:#191c21}
main{width:max-content;margin:0 auto;border:4px solid #ced6e0;border-top:0;outline:1px solid #b0b4ba}
h1{box-sizing:border-box;width:0;min-width:100%;margin:0;padding:3px 4px 5px;background:#ced6e0;
font:bold 9pt "MS Sans Serif","Liberation Sans",Arial,sans-serif;
overflow:hidden;white-space:nowrap;text-overflow:ellipsis}
form{position:relative;overflow:hidden}
form>*{position:absolute;box-sizing:border-box;margin:0;overflow:hidden}
form>img{left:0;top:0;overflow:visible}
.ots{white-space:pre-wrap}
.txt,.stx,.cmb,.lst{border:1px solid #b0b4ba;border-radius:2px;padding:0 3px}
.stx{padding-top:1px;overflow-y:scroll;resize:none}
.cmb{height:calc(1lh + 9px);padding:0}
.lst option{padding:0;min-height:0}
.chk{display:flex;align-items:center;gap:4px}
.chk input{flex:none;width:14px;height:14px;margin:0}
.img{display:flex;align-items:center;justify-content:center;white-space:pre}
.img.on{display:block}
.img img{display:block}
.edge{border:1px solid #787e86}
:focus-visible{outline:2px solid #2f6fbf;outline-offset:-1px}
)";

std::string px(double length) {
    return std::to_string(static_cast<int>(length)) + "px";
}

std::string attribute(std::string_view name, std::string_view value) {
    return " " + std::string(name) + "=\"" + html_text(value) + "\"";
}

/// What stands in for a font where it is not installed: as wide, and of the same kind.
std::string_view stand_ins(std::string const& font) {
    auto const name = base::UCase(font);
    if (base::contains(name, "COURIER") || base::contains(name, "MONO"))
        return "\"Liberation Mono\",\"Courier New\",monospace";
    if (base::contains(name, "TIMES") || name == "MS SERIF")
        return "\"Liberation Serif\",\"Times New Roman\",serif";
    return "\"Liberation Sans\",Arial,sans-serif";
}

/// Of the stand-ins, in pixels.
double line_height(Field const& one) {
    return std::round(one.fontSize * 96 / 72.0) * 1.15;
}

std::vector<std::string> rows_of(Field const& one) {
    std::vector<std::string> rows;
    auto list = one.list.trimmed();
    for (auto bar = list.find('|'); bar != std::string::npos; bar = list.find('|')) {
        rows.push_back(list.substr(0, bar)); // behind the last bar there is no row
        list.erase(0, bar + 1);
    }
    return rows;
}

/// What the card's fields have in common is gathered from field to field.
class Page {
  public:
    explicit Page(PageSource const& source) : source_(source), card_(source.card) {
        for (auto const& link : source.linking.links)
            if (link.title >= 1 && link.title <= card_.card.fields &&
                card_.field(link.title).is_title()) {
                title_of_[link.data] = link.title;
                first_of_.try_emplace(link.title, link.data);
            }
    }

    std::string text() {
        style_ = common_style;
        style_ += "form{width:" + px(card_.card.width - frame_across) +
                  ";height:" + px(card_.card.height - frame_down) +
                  ";background:" + css_colour(card_.card.color) + "}\n";
        add_background();
        for (int i = 1; i <= card_.card.fields; ++i)
            if (auto const* const kind = card_.field(i).kind())
                add_field(*kind, i);
        return head() + body_ + "</form>\n</main>\n</body>\n</html>\n";
    }

  private:
    std::string head() const {
        auto name = card_.card.name.trimmed();
        if (name.empty())
            name = "Nimetön kortti";
        auto const hash = sha256(style_);
        std::string vouched;
        append_base64(vouched, {reinterpret_cast<char const*>(hash.data()), hash.size()});
        return "<!DOCTYPE html>\n<html lang=\"fi\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
               "img-src data:; style-src 'sha256-" +
               vouched +
               "'; base-uri 'none'; form-action 'none'\">\n"
               "<meta name=\"viewport\" content=\"width=device-width\">\n<title>" +
               html_text(name) + "</title>\n<style>" + style_ +
               "</style>\n</head>\n<body>\n<main>\n<h1 id=\"card\">" + html_text(name) +
               "</h1>\n<form autocomplete=\"off\" aria-labelledby=\"card\">\n";
    }

    Field const& field(int number) const { return card_.field(number); }

    void add_field(Kind const& kind, int number) {
        auto const& one = field(number);
        add_place(kind, number);
        switch (kind.style) {
        case Style::OTS:
            return add_title(number);
        case Style::TXT:
            return add("<input type=\"text\"" + control(number, "txt") + limit(one) +
                       attribute("value", one.value.trimmed()) + ">");
        case Style::STX: // the first line break of a text area would be dropped
            return add("<textarea" + control(number, "stx") + limit(one) + ">\n" +
                       html_text(one.value.trimmed()) + "</textarea>");
        case Style::CHK:
            return add_marked(number, "checkbox",
                              base::round_to_even(base::Val(one.value.trimmed())) != 0, "");
        case Style::OPT:
            return add_marked(number, "radio", base::Val(one.value.trimmed()) != 0,
                              " name=\"options\""); // of a card one is chosen
        case Style::CMB:
            return add_drop_down(number);
        case Style::IMG:
            return add_image(number);
        case Style::LST:
            return add("<select size=\"2\"" + control(number, "lst") +
                       "><option>C:\\malli_kansio\\malli_tiedosto.doc</option></select>");
        }
    }

    static std::string name_of(int number) { return "f" + std::to_string(number); }
    static std::string limit(Field const& one) {
        return attribute("maxlength", std::to_string(int{one.size}));
    }

    void add(std::string const& element) { body_ += element + "\n"; }

    /// Place and looks of a field.
    void add_place(Kind const& kind, int number) {
        auto const& one = field(number);
        bool const see_through = kind.look == Look::label && card_.card.transp != 0;
        auto const name = one.fontName.trimmed();
        style_ += "#" + name_of(number) + "{left:" + px(one.left) + ";top:" + px(one.top) +
                  ";width:" + px(one.width);
        if (!kind.height_of_font)
            style_ += ";height:" + px(one.height);
        style_ += std::string(";font:") + (one.fontItalic != 0 ? "italic " : "") +
                  (one.fontBold != 0 ? "bold " : "") + std::to_string(int{one.fontSize}) + "pt " +
                  css_text(name) + "," + std::string(stand_ins(name)) +
                  ";color:" + css_colour(one.foreColor) + ";background:";
        if (see_through && one.is_title())
            style_ += "none";
        else
            style_ += css_colour(see_through ? card_.card.color : one.backColor);
        if (one.is_title() && one.align != 0)
            style_ += one.align == 1 ? ";text-align:right" : ";text-align:center";
        // One line stands at the top of a box for several.
        double const line = line_height(one);
        if (kind.style == Style::TXT && one.height - 2 >= 2 * line + 2)
            style_ += ";padding-bottom:" + px(one.height - 3 - line);
        style_ += "}\n";
    }

    /// What every field has that takes the keyboard. The places in the tab order begin with 1 here;
    /// of equal ones the lower field is first in both.
    std::string control(int number, std::string_view looks) const {
        return attribute("id", name_of(number)) + attribute("class", looks) + tab_index(number) +
               label(number, "");
    }
    std::string tab_index(int number) const {
        return attribute("tabindex", std::to_string(field(number).tabIndex + 1));
    }

    /// The linked title names a field, together with the caption of its own where it has one.
    std::string label(int number, std::string const& caption) const {
        auto const title = title_of_.find(number);
        auto const linked = field(number).group.trimmed();
        if (title != title_of_.end())
            return attribute("aria-labelledby",
                             name_of(title->second) + (caption.empty() ? "" : " " + caption));
        if (!caption.empty() && !field(number).caption.is_blank())
            return attribute("aria-labelledby", caption);
        if (linked.empty())
            return attribute("aria-label", "Kenttä (" + std::to_string(number) + ")");
        return attribute("aria-label", linked);
    }

    /// A click on a title goes to its field, but it changes none.
    void add_title(int number) {
        auto const data = first_of_.find(number);
        bool const leads = data != first_of_.end() && (field(data->second).looks(Look::box) ||
                                                       field(data->second).looks(Look::list));
        std::string const element = leads ? "label" : "span";
        add("<" + element + attribute("id", name_of(number)) + attribute("class", "ots") +
            (leads ? attribute("for", name_of(data->second)) : "") + ">" +
            html_text(field(number).caption.trimmed()) + "</" + element + ">");
    }

    void add_marked(int number, std::string_view type, bool on, std::string const& name) {
        auto const caption = name_of(number) + "c";
        add("<label" + attribute("id", name_of(number)) + attribute("class", "chk") + "><input" +
            attribute("type", type) + name + tab_index(number) + label(number, caption) +
            (on ? " checked" : "") + "><span" + attribute("id", caption) + ">" +
            html_text(field(number).caption.trimmed()) + "</span></label>");
    }

    void add_drop_down(int number) {
        auto const& one = field(number);
        auto const rows = rows_of(one);
        double const chosen = base::round_to_even(base::Val(one.value.trimmed()));
        bool const is_chosen = chosen >= 0 && chosen < static_cast<double>(rows.size());
        std::string options = is_chosen ? "" : "<option value=\"\" selected hidden></option>";
        for (std::size_t i = 0; i < rows.size(); ++i)
            options += std::string("<option") +
                       (is_chosen && static_cast<double>(i) == chosen ? " selected>" : ">") +
                       html_text(rows[i]) + "</option>";
        add("<select" + control(number, "cmb") + ">" + options + "</select>");
    }

    WebPicture take_picture(std::string const& path) {
        auto picture = read_web_picture(path, room_);
        if (picture.is_shown())
            room_ -= picture.bytes.size();
        else if (!picture.fault.empty())
            source_.complain("kuvaa " + path + " ei voi näyttää: " + picture.fault);
        return picture;
    }

    /// Appended piece by piece: a picture is long.
    void add_picture(WebPicture const& picture, std::string const& attributes) {
        body_ += "<img" + attributes + " src=\"data:" + std::string(picture.type) + ";base64,";
        append_base64(body_, picture.bytes);
        body_ += "\">";
    }

    void add_background() {
        auto path = card_.card.picture.trimmed();
        if (path.starts_with('+'))
            path = source_.folder + path.substr(1);
        if (path.empty())
            return;
        auto const picture = take_picture(path);
        if (!picture.is_shown())
            return;
        add_picture(picture, attribute("alt", ""));
        body_ += "\n";
    }

    void add_image(int number) {
        auto const& one = field(number);
        auto const path = one.list.trimmed();
        auto const picture = path.empty() ? WebPicture() : take_picture(path);
        auto const looks = std::string("img") + (one.border != 0 ? " edge" : "") +
                           (picture.is_shown() ? " on" : "");
        auto const id = name_of(number);
        body_ += "<div" + attribute("id", id) + attribute("class", looks) + ">";
        if (picture.is_shown()) {
            constexpr int stretched = 1;
            constexpr int frame_follows = 2;
            if (one.scaling == stretched)
                style_ +=
                    "#" + id + " img{width:" + px(one.width) + ";height:" + px(one.height) + "}\n";
            if (one.scaling == frame_follows)
                style_ += "#" + id + "{width:" + px(picture.width) +
                          ";height:" + px(picture.height) + "}\n";
            auto const linked = one.group.trimmed();
            add_picture(picture, attribute("alt", linked.empty() ? "Kuva" : linked));
        } else {
            body_ += html_text(one.caption.trimmed());
        }
        body_ += "</div>\n";
    }

    PageSource const& source_;
    kehystin::CardData const& card_;
    std::map<int, int> title_of_; ///< of a data field
    std::map<int, int> first_of_; ///< data field of a title
    std::uintmax_t room_ = most_bytes;
    std::string style_;
    std::string body_;
};

} // namespace

std::string page_of(PageSource const& source) {
    return Page(source).text();
}

} // namespace krt
