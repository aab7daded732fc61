#include "krt/findings.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>

namespace krt {

using kehystin::Check;
using kehystin::Finding;

std::string quoted(std::string const& value) {
    constexpr std::size_t longest = 120; // characters
    auto line = plain(value);
    if (base::Len(line) > longest)
        line = base::Left(line, longest) + "…";
    return "”" + line + "”";
}

std::string plain(std::string_view text) {
    std::string line;
    auto const joined = base::in_one_line(text);
    for (std::string_view rest = joined; !rest.empty();) {
        auto const letter = base::Left(rest, 1);
        rest.remove_prefix(letter.size());
        auto const first = static_cast<unsigned char>(letter.front());
        auto const last = static_cast<unsigned char>(letter.back());
        // Terminals also obey the second half of the code page's controls, which has two bytes,
        // and some of them obey its bytes where they stand alone and are no text.
        bool const control = first < ' ' || first == 0x7F || (first == 0xC2 && last < 0xA0);
        if (letter.size() == 1 && first >= 0x80)
            line += "\uFFFD";
        else if (!control)
            line += letter;
    }
    return line;
}

std::string_view name_of(Finding::What what) {
    switch (what) {
    case Finding::What::not_a_card:
        return "not_a_card";
    case Finding::What::missing_key:
        return "missing_key";
    case Finding::What::old_key:
        return "old_key";
    case Finding::What::repaired:
        return "repaired";
    case Finding::What::cut:
        return "cut";
    case Finding::What::missing_picture:
        return "missing_picture";
    }
    return {};
}

std::string_view name_of(Check check) {
    switch (check) {
    case Check::no_title:
        return "no_title";
    case Check::unlinked_title:
        return "unlinked_title";
    case Check::columns:
        return "columns";
    case Check::no_label:
        return "no_label";
    case Check::same_title:
        return "same_title";
    }
    return {};
}

std::string text_of(Finding const& finding) {
    switch (finding.what) {
    case Finding::What::not_a_card:
        return "ei ole korttimalli";
    case Finding::What::missing_key:
        return "avain " + finding.key + " puuttuu";
    case Finding::What::old_key:
        return "avain " + finding.key + " puuttuu vanhasta tiedostosta, arvoksi tulee " +
               quoted(finding.kept);
    case Finding::What::repaired:
        return finding.key + ": virheellinen arvo " + quoted(finding.found) + ", arvoksi tulee " +
               quoted(finding.kept);
    case Finding::What::cut:
        return finding.key + ": liian pitkä teksti " + quoted(finding.found) + " katkaistaan";
    case Finding::What::missing_picture:
        return "taustakuva " + quoted(finding.found) + " puuttuu";
    }
    return {};
}

std::string text_of(Check check, std::size_t count) {
    switch (check) {
    case Check::no_title:
        return "datakenttää ei ole linkitetty mihinkään otsikkokenttään";
    case Check::unlinked_title:
        return "otsikkokenttää ei ole linkitetty mihinkään datakenttään";
    case Check::columns:
        return "kortilla on " + std::to_string(count) + " sarakekenttää, suositus on enintään " +
               std::to_string(kehystin::most_columns);
    case Check::no_label:
        return "valinta- tai vaihtoehtokentän otsikko ei näy";
    case Check::same_title:
        return "toisella linkitetyllä otsikkokentällä on sama otsikko";
    }
    return {};
}

int field_of(std::string_view key) {
    constexpr std::string_view opening = "field(";
    int number = 0;
    if (key.starts_with(opening))
        std::from_chars(key.data() + opening.size(), key.data() + key.size(), number);
    return number;
}

bool is_fault(Finding const& finding) {
    return finding.what != Finding::What::old_key;
}

std::string faults_of(kehystin::Reading const& reading) {
    auto const count = std::count_if(reading.findings.begin(), reading.findings.end(), is_fault);
    if (count == 0)
        return {};
    return "luettu korjattuna, " + std::to_string(count) + (count == 1 ? " kohta" : " kohtaa") +
           ", katso krt check";
}

std::string text_of(base::RuntimeError const& linking_failure) {
    return "linkitys keskeytyi: " + linking_failure.text();
}

std::vector<int> told(Check check, kehystin::CardData& card) {
    auto found = kehystin::offenders(check, card);
    if (check == Check::columns && std::ssize(found) <= kehystin::most_columns)
        found.clear();
    return found;
}

} // namespace krt
