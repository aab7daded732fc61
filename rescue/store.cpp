#include "rescue/store.h"

#include "base/errors.h"
#include "base/text.h"
#include "disk/disk.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <limits>
#include <map>
#include <random>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace rescue {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view lock_ending = ".lock";
constexpr std::string_view unfinished_ending = ".tmp";
constexpr std::string_view declined_ending = ".later";

[[noreturn]] void raise_system_error() {
    using base::ErrorNumber;
    int const error = errno;
    if (disk::is_full(error))
        throw base::RuntimeError(ErrorNumber::disk_full);
    throw base::RuntimeError(error == EIO ? ErrorNumber::disk_io : ErrorNumber::path_file_access);
}

void require(bool done) {
    if (!done)
        raise_system_error();
}

std::string_view ending_of(What kind) {
    switch (kind) {
    case What::before:
        return ".before";
    case What::after:
        return ".after";
    case What::work:
        break;
    }
    return ".work";
}

bool is_like(char c, char pattern) {
    bool const digit = c >= '0' && c <= '9';
    switch (pattern) {
    case 'd':
        return digit;
    case 'x':
        return digit || (c >= 'a' && c <= 'f');
    default:
        return c == pattern;
    }
}

/// Whether a session has given the name: date, time and a random number come first in it.
bool is_of_a_session(std::string_view name) {
    constexpr std::string_view pattern = "dddddddd-dddddd-xxxxxxxx";
    auto const start = name.substr(0, name.find_first_of(".+"));
    return std::equal(start.begin(), start.end(), pattern.begin(), pattern.end(), is_like);
}

/// What sessions have for themselves, and no user asks for.
bool is_remains(std::string_view name) {
    return is_of_a_session(name) &&
           (name.ends_with(lock_ending) || name.ends_with(unfinished_ending));
}

void make_folder(std::string const& folder) {
    std::vector<fs::path> made;
    auto const path = disk::path_of(folder);
    for (fs::path one = path.parent_path(); !one.empty() && !disk::is_there(disk::text_of(one));
         one = one.parent_path())
        made.push_back(one);
    std::error_code failed;
    fs::create_directories(path, failed);
    for (auto const& one : made) // a folder of which the disk does not know holds nothing
        disk::flush_folder(disk::text_of(one.parent_path()));
    if (disk::kind_of(folder) != disk::Kind::folder)
        throw base::RuntimeError(base::ErrorNumber::path_file_access);
    disk::keep_for_the_user_alone(folder);
}

/// A file in writing: gone again unless it is kept.
class Unfinished {
  public:
    Unfinished(Store const& store, std::string path) : store_(store), path_(std::move(path)) {
        store_.before_operation();
        descriptor_ = disk::open(path_, disk::Open::own_emptied);
        require(descriptor_ >= 0);
    }
    ~Unfinished() {
        if (descriptor_ >= 0)
            disk::close(descriptor_);
        if (!path_.empty())
            disk::remove(path_);
    }
    Unfinished(Unfinished const&) = delete;
    Unfinished& operator=(Unfinished const&) = delete;

    void write(std::string_view bytes) {
        store_.before_operation();
        while (!bytes.empty()) {
            auto const put = disk::write(descriptor_, bytes.data(), bytes.size());
            require(put >= 0);
            bytes.remove_prefix(static_cast<std::size_t>(put));
        }
    }
    void flush_and_close() {
        store_.before_operation();
        require(disk::flush(descriptor_) == 0);
        int const number = descriptor_;
        descriptor_ = -1;
        require(disk::close(number) == 0);
    }
    void keep_as(std::string const& name) {
        store_.before_operation();
        require(disk::rename(path_, name));
        path_.clear();
    }

  private:
    Store const& store_;
    std::string path_;
    int descriptor_ = -1;
};

} // namespace

std::string usual_folder() {
    return disk::state_folder();
}

Store::Store(std::string folder, std::function<void()> before_operation)
    : folder_(folder.empty() ? folder : base::with_separator(std::move(folder))),
      before_operation_(std::move(before_operation)) {}

void Store::before_operation() const {
    if (before_operation_)
        before_operation_();
}

void Store::put(std::string const& name, std::string_view bytes) const {
    make_folder(folder_);
    Unfinished file(*this, folder_ + name + std::string(unfinished_ending));
    file.write(bytes);
    file.flush_and_close();
    file.keep_as(folder_ + name);
    if (!disk::flush_to_disk(folder_ + name))
        raise_system_error();
}

void Store::remove(std::string const& name) const {
    if (keeps())
        disk::remove(folder_ + name);
}

void Store::rename(std::string const& name, std::string const& other) const {
    if (keeps() && disk::rename(folder_ + name, folder_ + other))
        disk::flush_folder(folder_);
}

std::optional<std::string> Store::bytes_of(std::string const& name) const {
    return disk::bytes_on_disk(folder_ + name);
}

std::vector<std::string> Store::names() const {
    if (!keeps())
        return {};
    auto names = disk::names_in(folder_);
    std::erase_if(names, is_remains);
    std::sort(names.begin(), names.end());
    return names;
}

RunningSession::RunningSession(Store const& store) : store_(store) {
    make_folder(store.folder());
    auto const random = [] {
        try {
            return std::random_device()();
        } catch (
            std::runtime_error const&) { // a machine that has run out of it: the time tells too
            return static_cast<unsigned>(disk::process_number());
        }
    };
    for (;;) {
        auto const local = disk::local_time(std::time(nullptr));
        char name[48];
        std::snprintf(name, sizeof name, "%04d%02d%02d-%02d%02d%02d-%08x", local.tm_year + 1900,
                      local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                      static_cast<unsigned>(random()));
        auto const path = store.folder() + name + std::string(lock_ending);
        store.before_operation();
        descriptor_ = disk::open(path, disk::Open::own_new);
        if (descriptor_ < 0 && errno == EEXIST)
            continue;
        require(descriptor_ >= 0);
        name_ = name;
        lock_ = path;
        disk::lock(descriptor_); // nobody else knows the name yet
        return;
    }
}

RunningSession::~RunningSession() {
    disk::remove(lock_);
    disk::close(descriptor_);
}

bool RunningSession::is_locked() const {
    return disk::is_open_as(descriptor_, lock_);
}

void RunningSession::lock_again() {
    if (is_locked())
        return;
    make_folder(store_.folder());
    store_.before_operation();
    int const made = disk::open(lock_, disk::Open::own_kept);
    require(made >= 0);
    // Who looks at this moment whether the session runs holds it: tried again later.
    bool const held = !disk::lock(made) && errno == EWOULDBLOCK;
    disk::close(held ? made : std::exchange(descriptor_, made));
    if (held)
        throw base::RuntimeError(base::ErrorNumber::path_file_access);
}

void RunningSession::note_file(std::string const& file) const {
    auto const name = file.empty() ? file : disk::one_name_of(file);
    disk::rewrite(descriptor_, name);
}

std::string name_of_work(std::string_view session) {
    return std::string(session) + std::string(ending_of(What::work));
}

std::string name_beside(std::string_view session, int number, What kind) {
    return std::string(session) + "+" + std::to_string(number) + std::string(ending_of(kind));
}

int times_declined(std::string_view name) {
    auto const at = name.rfind(declined_ending);
    int times = 0;
    if (at != std::string_view::npos)
        std::from_chars(name.data() + at + declined_ending.size(), name.data() + name.size(),
                        times);
    return times;
}

std::string name_of_declined(std::string_view name) {
    return std::string(name.substr(0, name.rfind(declined_ending))) + std::string(declined_ending) +
           std::to_string(times_declined(name) + 1);
}

std::string session_of(std::string_view name) {
    return std::string(name.substr(0, name.find_first_of(".+")));
}

bool is_running(Store const& store, std::string const& session) {
    auto const path = store.folder() + session + std::string(lock_ending);
    int const descriptor = disk::open(path, disk::Open::to_read);
    if (descriptor < 0)
        return errno != ENOENT;
    bool const held = disk::is_locked(descriptor);
    disk::close(descriptor);
    return held;
}

bool is_open_elsewhere(Store const& store, std::string const& own_session,
                       std::string const& file) {
    auto const wanted = disk::one_name_of(file);
    auto const names = disk::names_in(store.folder());
    return std::any_of(names.begin(), names.end(), [&](std::string const& name) {
        auto const session = session_of(name);
        return name.ends_with(lock_ending) && session != own_session &&
               store.bytes_of(name) == wanted && is_running(store, session);
    });
}

namespace {

/// Whether the name is of a session's open card, and not of what lies beside it.
bool is_open_card(std::string_view name) {
    return name.find('+') == std::string_view::npos;
}

/// Nothing is lost without it: the card's file holds the same, or a later save of the same session
/// does.
bool is_needless(Found const& found, std::vector<Found> const& all) {
    auto const& rescue = found.rescue;
    auto const held = disk::bytes_on_disk(rescue.file);
    if (held == rescue.bytes)
        return true;
    return std::any_of(all.begin(), all.end(), [&](Found const& other) {
        auto const& one = other.rescue;
        if (one.file != rescue.file || &other == &found)
            return false;
        // Each is needless by a later one of its session or one of an earlier name: some stays.
        auto const session = session_of(found.name);
        auto const other_session = session_of(other.name);
        if (session != other_session)
            return one.kind == rescue.kind && one.bytes == rescue.bytes && other_session < session;
        if (one.step < rescue.step)
            return false;
        // A save that came to its end after all needs no copy of the file before it. Of the open
        // card and what a save was to write the later has all of the earlier; what lies beside the
        // open card is another card's.
        bool const is_save = one.kind == What::after;
        switch (rescue.kind) {
        case What::before:
            return is_save && held == one.bytes;
        case What::work:
            return is_save && is_open_card(found.name);
        case What::after:
            return one.kind == What::work && is_open_card(other.name);
        }
        return false;
    });
}

/// In the order in which they are to be offered.
void sort(std::vector<Found>& rescues) {
    std::map<std::string, std::int64_t> last; // of each session
    for (auto const& [name, rescue] : rescues) {
        auto& time = last[session_of(name)];
        time = std::max(time, rescue.time);
    }
    auto const order = [&](Found const& found) {
        auto session = session_of(found.name);
        auto const time = last[session];
        auto const older = std::numeric_limits<std::uint64_t>::max() - found.rescue.step;
        return std::tuple(times_declined(found.name), -time, std::move(session), older);
    };
    std::stable_sort(rescues.begin(), rescues.end(),
                     [&](Found const& a, Found const& b) { return order(a) < order(b); });
}

} // namespace

void remove_remains(Store const& store) {
    constexpr std::time_t settled = 60; // seconds
    for (auto const& name : disk::names_in(store.folder())) {
        auto const changed =
            is_remains(name) ? disk::changed_at(store.folder() + name) : std::nullopt;
        if (changed && std::time(nullptr) - *changed > settled &&
            !is_running(store, session_of(name)))
            store.remove(name);
    }
}

Findings look_for_rescues(Store const& store) {
    Findings all;
    if (!store.keeps())
        return all;
    for (auto const& name : store.names()) {
        if (is_running(store, session_of(name)))
            continue;
        auto const bytes = store.bytes_of(name);
        if (auto rescue = bytes ? from_file(*bytes) : std::nullopt)
            all.rescues.push_back({name, std::move(*rescue)});
        else
            all.unknown.push_back(name);
    }
    Findings left{{}, std::move(all.unknown), {}};
    for (auto const& found : all.rescues) {
        if (is_needless(found, all.rescues))
            left.needless.push_back(found.name);
        else
            left.rescues.push_back(found);
    }
    sort(left.rescues);
    return left;
}

} // namespace rescue
