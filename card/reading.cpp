#include "card/reading.h"

#include "base/items.h"
#include "card/format.h"
#include "card/internal/key_index.h"
#include "card/internal/repair.h"

#include <algorithm>
#include <optional>

namespace kehystin {

namespace {

/// What of a value is looked at. No member holds more than a tenth of it, and a row of the report
/// shows no more.
constexpr std::size_t longest_value = 4096;

bool contains_ignoring_case(std::string_view text, std::string_view upper_word) {
    auto const upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    return std::search(text.begin(), text.end(), upper_word.begin(), upper_word.end(),
                       [&](char a, char b) { return upper(a) == b; }) != text.end();
}

/// A card file in reading: where the items of its keys stand.
class Source {
  public:
    explicit Source(std::string_view bytes) : items_(bytes) {}

    /// Reads on to the banner. False when the file ends before it.
    bool recognise() {
        while (!items_.at_end()) {
            auto const item = items_.next();
            if (contains_ignoring_case(item, "NORVAK") && contains_ignoring_case(item, "CARDFILE"))
                return true;
        }
        return false;
    }

    /// The first item from the present position that holds the key; the position is then behind it.
    /// Nothing when the file ends first.
    std::optional<std::string_view> search(std::string_view key) {
        // In a file in the writer's order the key stands in the next item, or behind a section's
        // line; the first one behind the rest of the banner.
        constexpr int near = 16;
        for (int i = 0; i < near && !index_ && !items_.at_end(); ++i)
            if (auto const item = items_.next(); item.starts_with(key) || contains(item, key))
                return item;
        return search_far(key);
    }
    void rewind() { items_.seek(0); }

  private:
    std::optional<std::string_view> search_far(std::string_view key) {
        if (!index_)
            index_.emplace(items_.bytes());
        else if (items_.bytes().substr(items_.position()).starts_with(key))
            return items_.next(); // in the writer's order again
        auto const place = index_->find(key, items_.position());
        if (place == KeyIndex::npos) {
            items_.seek(items_.bytes().size());
            return std::nullopt;
        }
        // One item may hold many keys, and be as long as the file: its end is looked for once.
        if (place != found_at_) {
            items_.seek(place);
            found_at_ = place;
            found_ = items_.next();
            behind_found_ = items_.position();
        }
        items_.seek(behind_found_);
        return found_;
    }

    base::Items items_;
    std::optional<KeyIndex> index_;         ///< made when a key is not where it is expected
    std::size_t found_at_ = KeyIndex::npos; ///< the item that the index led to last
    std::string_view found_;
    std::size_t behind_found_ = 0;
};

class Reader {
  public:
    Reader(std::string_view bytes, Reading& reading, Surroundings const& around,
           std::function<bool(Finding const&)> const& go_on)
        : source_(bytes),
          reading_(reading),
          around_(around),
          go_on_(go_on),
          repair_(reading, around) {}

    Reading::End read() {
        if (!source_.recognise()) {
            reading_.findings.push_back({Finding::What::not_a_card, {}, {}, {}, {}});
            return Reading::End::not_a_card;
        }
        return read_members() ? Reading::End::read : Reading::End::given_up;
    }

  private:
    bool read_members() {
        auto& data = reading_.data;
        for (auto const& member : card_members())
            for (int i = member.first; i <= member.last; ++i) {
                key_ = card_key(member, i);
                if (!find(member))
                    return false;
                repair_.store(member, i, key_, value_);
            }
        data.fields.assign(static_cast<std::size_t>(int{data.card.fields}) + 1, Field{});
        for (int i = 1; i <= data.card.fields; ++i) {
            key_ = field_key_head(i);
            auto const head = key_.size();
            for (auto const& member : field_members()) {
                key_.resize(head);
                key_ += member.name;
                if (!find(member))
                    return false;
                repair_.store(member, i, key_, value_);
            }
        }
        return true;
    }

    /// Looks for key_ from where the last one ended, once around the file; its value, or that of a
    /// missing one, is in value_ then. False when somebody gave up.
    template <class Member>
    bool find(Member const& member) {
        auto item = source_.search(key_);
        if (!item) {
            if (around_.from_top && !around_.from_top())
                return false;
            source_.rewind();
            item = source_.search(key_);
        }
        if (item) {
            take_value(*item);
            return true;
        }
        return take_missing(member.judged, member.when_missing);
    }

    void take_value(std::string_view item) {
        // One item may hold all keys, and be as long as the file.
        if (item.data() != item_.data() || item.size() != item_.size()) {
            item_ = item;
            equals_ = item.find('=');
        }
        auto const equals = equals_;
        value_ = equals == std::string_view::npos ? std::string_view()
                                                  : item.substr(equals + 1, longest_value);
        if (value_.find(comma_stand_in) == std::string_view::npos)
            return;
        kept_value_ = value_;
        std::replace(kept_value_.begin(), kept_value_.end(), comma_stand_in, ',');
        value_ = kept_value_;
    }

    bool take_missing(Judged judged, std::optional<std::string_view> later) {
        kept_value_ = judged == Judged::twips  ? Format(around_.twips_per_pixel)
                      : judged == Judged::date ? short_date(around_.today.value_or(0))
                                               : std::string(later.value_or(""));
        value_ = kept_value_;
        auto const what = later ? Finding::What::old_key : Finding::What::missing_key;
        reading_.findings.push_back({what, key_, {}, kept_value_, {}});
        return later || !go_on_ || go_on_(reading_.findings.back());
    }

    Source source_;
    Reading& reading_;
    Surroundings const& around_;
    std::function<bool(Finding const&)> const& go_on_;
    CardRepair repair_;
    std::string key_;
    std::string_view item_; ///< the last one that was looked at, and where its sign is
    std::size_t equals_ = std::string_view::npos;
    std::string_view value_; ///< code page bytes, of the file or of kept_value_
    std::string kept_value_;
};

} // namespace

std::string Reading::report() const {
    std::string rows;
    for (auto const& finding : findings) {
        if (finding.row.empty())
            continue;
        if (rows.size() > longest_report)
            break;
        rows += finding.row;
        rows += line_break;
    }
    return rows;
}

Reading read_card(std::string_view bytes, CardData start, Surroundings const& around,
                  std::function<bool(Finding const&)> const& go_on) {
    Reading reading;
    reading.data = std::move(start);
    reading.end = Reader(bytes, reading, around, go_on).read();
    return reading;
}

} // namespace kehystin
