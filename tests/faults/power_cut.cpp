// The power goes at any moment of keeping the work and of a save. What the disk was asked for is
// recorded; then, for each moment, the folder is made as it may be found: what was flushed is
// there, of the rest all, nothing, the names alone, the bytes alone, or any part.
//
// With arguments the disk is a real one: "work IMAGE COPIES" runs the session in TMPDIR, which is
// the file system of that image, and copies the image after each call; "look COPIES NUMBER" looks
// at what one of the copies, mounted at the same place, holds.
#include "app/program.h"
#include "cardfile/work_rescue.h"
#include "tests/faults/failing_calls.h"
#include "tests/faults/faulty_session.h"

#include <cstdio>
#include <map>
#include <random>
#include <set>
#include <unistd.h>

namespace kehystin {

namespace {

using faults::Call;
namespace fs = std::filesystem;

struct Nothing {
    Nothing() {}
};
using Tried = FaultySession<AnsweringHost<Nothing>>;

/// Files by number and the names that they have.
struct Disk {
    std::map<int, std::string> contents;
    std::map<std::string, int> names;
};

/// One step on the disk: of a file's bytes, of a folder's names, or a flush of either.
struct Step {
    enum class What { bytes, name, flush } what;
    Call call;
    int file = 0;
    std::string folder = {};
};

std::string folder_of(std::string const& path) {
    return fs::path(path).parent_path().string();
}

Disk disk_of(std::string const& folder) {
    Disk disk;
    for (auto const& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) {
            int const number = static_cast<int>(disk.names.size()) + 1;
            disk.names[entry.path().string()] = number;
            disk.contents[number] = bytes_of(entry.path().string());
        }
    return disk;
}

/// The calls as steps. A file keeps its number under another name.
std::vector<Step> steps_of(std::vector<Call> const& calls, Disk const& start) {
    std::vector<Step> steps;
    auto names = start.names;
    int next = static_cast<int>(names.size()) + 1;
    for (auto const& call : calls) {
        auto const folder = folder_of(call.path);
        switch (call.what) {
        case Call::What::open:
            if (call.emptied && !names.contains(call.path)) {
                names[call.path] = next++;
                steps.push_back({Step::What::name, call, names[call.path], folder});
            }
            if (call.emptied)
                steps.push_back({Step::What::bytes, call, names[call.path]});
            break;
        case Call::What::write:
            steps.push_back({Step::What::bytes, call, names[call.path]});
            break;
        case Call::What::flush:
            steps.push_back({Step::What::flush, call,
                             names.contains(call.path) ? names[call.path] : 0,
                             fs::path(call.path + "/").parent_path().string()});
            break;
        case Call::What::rename:
            steps.push_back({Step::What::name, call, names[call.path], folder});
            names[call.other] = names[call.path];
            names.erase(call.path);
            break;
        case Call::What::remove:
            steps.push_back({Step::What::name, call, names[call.path], folder});
            names.erase(call.path);
            break;
        default:
            break;
        }
    }
    return steps;
}

void apply(Disk& disk, Step const& step) {
    auto const& call = step.call;
    if (step.what == Step::What::bytes) {
        auto& bytes = disk.contents[step.file];
        if (call.what == Call::What::open) {
            bytes.clear();
            return;
        }
        auto const place = static_cast<std::size_t>(call.place);
        bytes.resize(std::max(bytes.size(), place + call.other.size()));
        bytes.replace(place, call.other.size(), call.other);
    } else if (call.what == Call::What::remove) {
        disk.names.erase(call.path);
    } else {
        disk.names.erase(call.path);
        disk.names[call.what == Call::What::rename ? call.other : call.path] = step.file;
    }
}

/// True where a flush before the moment has made a step certain.
bool is_flushed(std::vector<Step> const& steps, std::size_t step, std::size_t moment) {
    auto const& one = steps[step];
    for (auto i = step + 1; i < moment; ++i)
        if (steps[i].what == Step::What::flush &&
            (one.what == Step::What::bytes ? steps[i].file == one.file
                                           : steps[i].folder == one.folder))
            return true;
    return false;
}

enum class Rest { all, nothing, names, bytes, any };

/// The disk as it may be found when the power went before the step `moment`.
Disk found_disk(std::vector<Step> const& steps, std::size_t moment, Disk disk, Rest rest,
                std::mt19937& random) {
    std::set<int> cut; // files of which bytes are lost: nothing written later is there either
    for (std::size_t i = 0; i < moment; ++i) {
        auto const& one = steps[i];
        if (one.what == Step::What::flush)
            continue;
        bool const name = one.what == Step::What::name;
        bool kept = is_flushed(steps, i, moment);
        if (!kept)
            kept = rest == Rest::all || (rest == Rest::names && name) ||
                   (rest == Rest::bytes && !name) || (rest == Rest::any && random() % 2 == 0);
        if (!name && !kept)
            cut.insert(one.file);
        if (kept && (name || !cut.contains(one.file)))
            apply(disk, one);
        if (!disk.contents.contains(one.file))
            disk.contents[one.file]; // a name may be there before any byte
    }
    return disk;
}

void make(Disk const& disk, std::string const& folder) {
    for (auto const& entry : disk_of(folder).names)
        fs::remove(entry.first);
    for (auto const& [path, file] : disk.names)
        if (!path.ends_with(".lock")) // held by nobody after a power cut
            put_bytes(path, disk.contents.at(file));
}

struct Figures {
    long looked_at = 0;
    long changes_lost = 0;
    long card_lost = 0;
    long save_undone = 0;
};

/// The cards that are to be had again.
struct Cards {
    std::string first;   ///< kept before the first call
    std::string changed; ///< as it is then kept
    std::string saved;   ///< as it is then saved
    std::string old;     ///< in the file before
};

/// What a user can have again, with the card's file first.
std::vector<std::string> had_again(std::string const& file, std::string const& state) {
    std::vector<std::string> had{without_id(bytes_of(file))};
    for (auto const& found : rescue::look_for_rescues(rescue::Store(state)).rescues)
        had.push_back(without_id(found.rescue.bytes));
    return had;
}

struct Losses {
    bool changes = false;
    bool card = false;
};

Losses losses(std::vector<std::string> const& had, Cards const& cards, bool is_kept) {
    auto const holds = [&](std::string const& card) {
        return std::find(had.begin(), had.end(), card) != had.end();
    };
    return {!holds(cards.changed) && !holds(cards.saved) && (is_kept || !holds(cards.first)),
            !holds(cards.old) && had.front() != cards.saved};
}

struct Watch {
    std::function<void()> begun;
    std::function<void(Call const&)> called;
    std::function<void()> kept;
};

/// The session: a change, kept, and then saved.
Cards work(Tried& one, Watch const& watch) {
    Cards cards;
    cards.old = without_id(bytes_of(one.file));
    auto const program = std::make_unique<Program>(one.host);
    one.begin(*program);
    cards.first = written(open_card);
    watch.begun();
    faults::after_call = watch.called;
    field(2).left = 140;
    MarkCardChanged();
    cards.changed = written(open_card);
    keep_work();
    watch.kept();
    platform::input::click(fEditor->cmdTallenna);
    faults::after_call = {};
    cards.saved = without_id(bytes_of(one.file));
    return cards;
}

constexpr std::string Cards::*card_members[] = {&Cards::first, &Cards::changed, &Cards::saved,
                                                &Cards::old};

int work_on_image(std::string const& image, std::string const& copies) {
    Tried one;
    int calls = 0;
    int kept_at = 0;
    auto const copy = [&](Call const&) {
        fs::copy_file(image, copies + "/" + std::to_string(++calls) + ".img");
    };
    auto const cards = work(one, {[] { ::sync(); }, copy, [&] { kept_at = calls; }});
    for (int i = 0; i < 4; ++i)
        put_bytes(copies + "/" + std::to_string(i) + ".krt", cards.*card_members[i]);
    put_bytes(copies + "/kept_at", std::to_string(kept_at));
    put_bytes(copies + "/file", one.file);
    std::printf("%d\n", calls);
    return 0;
}

int look_at_image(std::string const& copies, int number) {
    Cards cards;
    for (int i = 0; i < 4; ++i)
        cards.*card_members[i] = bytes_of(copies + "/" + std::to_string(i) + ".krt");
    auto const file = bytes_of(copies + "/file");
    auto const lost = losses(had_again(file, folder_of(file) + "/state"), cards,
                             number >= std::stoi(bytes_of(copies + "/kept_at")));
    std::printf("after call %d: %s%s\n", number, lost.changes ? "changes lost " : "",
                lost.card ? "card of the file lost" : "");
    return lost.changes || lost.card ? 1 : 0;
}

int run() {
    Tried one;
    std::vector<Call> calls;
    std::size_t calls_kept = 0;
    Disk start;
    auto const cards = work(one, {[&] { start = disk_of(one.folder.path()); },
                                  [&](Call const& call) { calls.push_back(call); },
                                  [&] { calls_kept = calls.size(); }});
    auto const steps = steps_of(calls, start);
    auto const kept_at =
        steps_of({calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(calls_kept)}, start)
            .size();

    Figures figures;
    std::mt19937 random(1);
    constexpr int any_tries = 40;
    auto const look = [&](std::size_t moment, Rest rest) {
        make(found_disk(steps, moment, start, rest, random), one.folder.path());
        auto const had = had_again(one.file, one.folder / "state");
        auto const lost = losses(had, cards, moment >= kept_at);
        ++figures.looked_at;
        figures.changes_lost += lost.changes ? 1 : 0;
        figures.card_lost += lost.card ? 1 : 0;
        figures.save_undone += moment == steps.size() && had.front() != cards.saved ? 1 : 0;
        if (lost.changes)
            std::printf("changes lost before step %zu, rest %d\n", moment, static_cast<int>(rest));
    };
    for (std::size_t moment = 0; moment <= steps.size(); ++moment) {
        for (auto const rest : {Rest::all, Rest::nothing, Rest::names, Rest::bytes})
            look(moment, rest);
        for (int i = 0; i < any_tries; ++i)
            look(moment, Rest::any);
    }
    std::printf("steps on the disk %zu, of them %zu of keeping the work\n"
                "disks looked at %ld\nchanges lost %ld\ncard of the file lost %ld\n"
                "finished saves undone %ld\n",
                steps.size(), kept_at, figures.looked_at, figures.changes_lost, figures.card_lost,
                figures.save_undone);
    return figures.changes_lost + figures.card_lost + figures.save_undone == 0 ? 0 : 1;
}

} // namespace
} // namespace kehystin

int main(int count, char* arguments[]) {
    std::string const what = count > 3 ? arguments[1] : "";
    if (what == "work")
        return kehystin::work_on_image(arguments[2], arguments[3]);
    if (what == "look")
        return kehystin::look_at_image(arguments[2], std::stoi(arguments[3]));
    return kehystin::run();
}
