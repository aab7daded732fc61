#include "cardfile/save_checks.h"

#include "boxes/failure_report.h"
#include "card/checks.h"
#include "forms/card_form.h"
#include "mainwindow/document_state.h"
#include "model/card.h"
#include "platform/host.h"
#include "surface/visuals.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kehystin {

namespace {

using Numbers = std::vector<int>;

void mark(Numbers const& marked) {
    for (int const number : marked) {
        auto* const object = fCard->visual_of(number);
        if (!object)
            continue;
        // A transparent title would not show its colour.
        if (auto* const title = dynamic_cast<Label*>(object))
            title->BackStyle = int(BackStyle::opaque);
        object->BackColor = colours::red;
    }
}

void unmark(Numbers const& marked) {
    for (int const number : marked) {
        auto* const object = fCard->visual_of(number);
        if (!object)
            continue;
        auto const& one = field(number);
        object->BackColor =
            shows_card_colour(*one.kind()) && !one.is_title() ? card.color : one.backColor;
        auto* const title = dynamic_cast<Label*>(object);
        if (title && card.transp != 0)
            title->BackStyle = int(BackStyle::transparent);
    }
}

/// Keeps the box from covering the fields that it speaks of, while it lives.
class InSight {
  public:
    explicit InSight(Numbers const& marked) {
        std::vector<Control const*> objects;
        for (int const number : marked)
            if (auto const* const object = fCard->visual_of(number))
                objects.push_back(object);
        host().keep_in_sight(std::move(objects));
    }
    ~InSight() { host().keep_in_sight({}); }
    InSight(InSight const&) = delete;
    InSight& operator=(InSight const&) = delete;
};

/// Asks about the marked fields.
Answer ask(Numbers const& marked, std::string_view text, int flags, std::string_view title) {
    mark(marked);
    InSight const in_sight(marked);
    auto const answer = MsgBox(text, flags, title);
    unmark(marked);
    return answer;
}

} // namespace

bool chk_nodata() {
    auto const found = offenders(Check::no_title, open_card);
    if (found.empty())
        return true;
    ask(found,
        lines({" Kortilta löytyi datakenttiä joita ei ole linkitetty     ",
               " mihinkään otsikkokenttään (merkitty punaisella).    ", "",
               " Poista punaiset datakentät tai linkitä ne johonkin",
               " otsikkoon lisäämällä kortille uusia otsikkokenttiä     ",
               " tai siirtämällä nykyisiä lähemmäs datakenttää.     ", "",
               " Korttia ei voi tallentaa ennenkuin kaikki datakentät     ",
               " on linkitetty johonkin otsikkokenttään."}),
        box::warning, " Linkittämättömiä datakenttiä");
    return false;
}

bool chk_nolink() {
    auto const found = offenders(Check::unlinked_title, open_card);
    if (found.empty())
        return true;
    auto const answer =
        ask(found,
            lines({" Kortilta löytyi linkitettäväksi määriteltyjä otsikkokenttiä, joita     ",
                   " ei ole linkitetty mihinkään datakenttään (merkitty punaisella).    ", "",
                   " Nämä otsikkokentät voidaan jättää linkittämättä muuttamalla ",
                   " niiden ominaisuus Linkitettävä arvoon Ei.", "",
                   " Haluatko jättää kyseiset otsikkokentät linkittämättä?"}),
            box::information + box::ok_cancel, " Linkittämättömiä otsikkokenttiä");
    if (answer == Answer::cancel)
        return false;
    for (int const number : found)
        field(number).value = no_link;
    MarkCardChanged(); // also where the save ends without a file
    return true;
}

bool chk_maxdata() {
    auto const count = std::ssize(offenders(Check::columns, open_card));
    if (count <= most_columns)
        return true;
    auto const answer =
        MsgBox(lines({" Kortilla on tällä hetkellä " + Format(static_cast<double>(count)) +
                          " sarakekenttää.     ",
                      "", " (sarakekenttä = otsikkokenttä, joka on linkitetty     ",
                      " yhteen tai useampaan datakenttään ja joka     ",
                      " muodostaa rekisterissä oman sarakkeensa)", "",
                      " Yli 50 menevien sarakekenttien leveyksiä, eikä     ",
                      " tulostettavia sarakkeita voida tallentaa muistiin.     ", "",
                      " Suositus on pitää sarakemäärä alle 50 sarakkeessa.     ", "",
                      " Haluatko säilyttää kaikki sarakekentät kortilla?     "}),
               box::warning + box::yes_no, " Sarakekenttien suositusmäärä ylitetty!");
    return answer != Answer::no;
}

bool chk_selots() {
    auto const found = offenders(Check::no_label, open_card);
    if (found.empty())
        return true;
    auto const answer =
        ask(found,
            lines({" Kortilta löytyi valinta-/vaihtoehtokenttiä, joille ei     ",
                   " ole annettu otsikkoa tai joiden otsikko ei näy koska     ",
                   " kentän leveys on liian pieni (merkitty punaisella).    ", "",
                   " Anna kullekin valinta-/vaihtoehtokentälle näkyvä       ",
                   " otsikko ja linkitä ne yhteisen pääotsikon alle.     ", "",
                   " Jos jätät kentät ilman näkyviä otsikoita, ei niiden ",
                   " sisältämä tieto välttämättä näy rekisterissä. ", "",
                   " Haluatko jättää kyseiset kentät ilman otsikoita?"}),
            box::information + box::yes_no + box::second_default, " Nimettömiä kenttiä");
    return answer == Answer::yes;
}

bool chk_sameots() {
    auto const found = offenders(Check::same_title, open_card);
    if (found.empty())
        return true;
    auto const answer =
        ask(found,
            lines({" Kortilta löytyi samannimisiä otsikoita (merkitty punaisella).    ", "",
                   " Useat Norvakin toiminnoista perustuvat tietyn kentän valintaan     ",
                   " sen otsikon perusteella. Jos kortti sisältää useita samannimisiä     ",
                   " otsikoita, voi halutun kentän valinta aiheuttaa vaikeuksia.     ", "",
                   " Kenttävalinnan helpottamiseksi on suositeltavaa antaa kullekin     ",
                   " linkitetylle otsikkokentälle yksilöllinen otsikko.", "",
                   " Haluatko siitä huolimatta käyttää samannimisiä otsikoita?"}),
            box::information + box::yes_no + box::second_default, " Samannimisiä otsikoita");
    return answer == Answer::yes;
}

namespace {

struct SaveCheck {
    int step; ///< of the save, in its reports
    bool (*passes)();
};

SaveCheck save_check(Check check) {
    switch (check) {
    case Check::no_title:
        return {2, chk_nodata};
    case Check::unlinked_title:
        return {3, chk_nolink};
    case Check::columns:
        return {4, chk_maxdata};
    case Check::no_label:
        return {5, chk_selots};
    case Check::same_title:
        break;
    }
    return {55, chk_sameots};
}

} // namespace

bool run_save_checks(int& step) {
    return std::all_of(std::begin(all_checks), std::end(all_checks), [&](Check one) {
        auto const check = save_check(one);
        step = check.step;
        return check.passes();
    });
}

void order_nolink() {
    for (int i = 1; i < card.fields; ++i) {
        auto const place = fields.begin() + i;
        if (place->is_title() && place->is_nolink())
            std::rotate(fields.begin() + 1, place, place + 1);
    }
}

} // namespace kehystin
