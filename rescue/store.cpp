#include "rescue/store.h"

#include "base/errors.h"
#include "base/text.h"
#include "rescue/disk.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace rescue {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view lock_ending = ".lock";
constexpr std::string_view unfinished_ending = ".tmp";
constexpr std::string_view work_ending = ".work";
constexpr std::string_view before_ending = ".before";
constexpr std::string_view after_ending = ".after";
constexpr int for_the_user_alone = 0600;

[[noreturn]] void raise_system_error() {
    using base::ErrorNumber;
    switch (errno) {
    case ENOSPC:
    case EDQUOT:
        throw base::RuntimeError(ErrorNumber::disk_full);
    case EIO:
        throw base::RuntimeError(ErrorNumber::disk_io);
    default:
        throw base::RuntimeError(ErrorNumber::path_file_access);
    }
}

void require(bool done) {
    if (!done)
        raise_system_error();
}

void make_folder(std::string const& folder) {
    std::error_code failed;
    fs::create_directories(folder, failed);
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        throw base::RuntimeError(base::ErrorNumber::path_file_access);
    if (status.st_uid == ::getuid() && (status.st_mode & 0777) != 0700)
        ::chmod(folder.c_str(), 0700);
}

/// A file in writing: gone again unless it is kept.
class Unfinished {
  public:
    Unfinished(Store const& store, std::string path) : store_(store), path_(std::move(path)) {
        store_.before_operation();
        descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        require(descriptor_ >= 0);
    }
    ~Unfinished() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
        if (!path_.empty())
            ::unlink(path_.c_str());
    }
    Unfinished(Unfinished const&) = delete;
    Unfinished& operator=(Unfinished const&) = delete;

    void write(std::string_view bytes) {
        store_.before_operation();
        while (!bytes.empty()) {
            auto const put = ::write(descriptor_, bytes.data(), bytes.size());
            if (put < 0 && errno == EINTR)
                continue;
            require(put >= 0);
            bytes.remove_prefix(static_cast<std::size_t>(put));
        }
    }
    void flush_and_close() {
        store_.before_operation();
        require(::fsync(descriptor_) == 0);
        int const number = descriptor_;
        descriptor_ = -1;
        require(::close(number) == 0);
    }
    void keep_as(std::string const& name) {
        store_.before_operation();
        require(::rename(path_.c_str(), name.c_str()) == 0);
        path_.clear();
    }

  private:
    Store const& store_;
    std::string path_;
    int descriptor_ = -1;
};

} // namespace

std::string usual_folder() {
    auto const value_of = [](char const* name) {
        auto const* const value = std::getenv(name);
        return std::string(value && *value == '/' ? value : "");
    };
    auto folder = value_of("XDG_STATE_HOME");
    if (folder.empty() && !value_of("HOME").empty())
        folder = base::with_separator(value_of("HOME")) + ".local/state";
    return folder.empty() ? folder : base::with_separator(folder) + "kehystin/";
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
    if (!flush_to_disk(folder_ + name))
        raise_system_error();
}

void Store::remove(std::string const& name) const {
    if (keeps())
        ::unlink((folder_ + name).c_str());
}

std::optional<std::string> Store::bytes_of(std::string const& name) const {
    return bytes_on_disk(folder_ + name);
}

std::vector<std::string> Store::names() const {
    if (!keeps())
        return {};
    auto names = names_in(folder_);
    std::erase_if(names, [](std::string const& name) {
        return name.ends_with(lock_ending) || name.ends_with(unfinished_ending);
    });
    std::sort(names.begin(), names.end());
    return names;
}

RunningSession::RunningSession(Store const& store) : store_(store) {
    make_folder(store.folder());
    std::random_device random;
    for (;;) {
        auto const now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        char name[48];
        std::snprintf(name, sizeof name, "%04d%02d%02d-%02d%02d%02d-%08x", local.tm_year + 1900,
                      local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                      static_cast<unsigned>(random()));
        auto const path = store.folder() + name + std::string(lock_ending);
        store.before_operation();
        descriptor_ =
            ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, for_the_user_alone);
        if (descriptor_ < 0 && errno == EEXIST)
            continue;
        require(descriptor_ >= 0);
        name_ = name;
        ::flock(descriptor_, LOCK_EX | LOCK_NB); // nobody else knows the name yet
        return;
    }
}

RunningSession::~RunningSession() {
    ::unlink((store_.folder() + name_ + std::string(lock_ending)).c_str());
    ::close(descriptor_);
}

void RunningSession::note_file(std::string const& file) const {
    auto const name = file.empty() ? file : one_name_of(file);
    if (::ftruncate(descriptor_, 0) == 0)
        static_cast<void>(::pwrite(descriptor_, name.data(), name.size(), 0) == 0);
}

std::string name_of_work(std::string_view session) {
    return std::string(session) + std::string(work_ending);
}

std::string name_of_save(std::string_view session, int save, What side) {
    return std::string(session) + "+" + std::to_string(save) +
           std::string(side == What::before ? before_ending : after_ending);
}

std::string before_of(std::string_view name_of_after) {
    return std::string(name_of_after.substr(0, name_of_after.rfind('.'))) +
           std::string(before_ending);
}

std::string session_of(std::string_view name) {
    return std::string(name.substr(0, name.find_first_of(".+")));
}

bool is_running(Store const& store, std::string const& session) {
    auto const path = store.folder() + session + std::string(lock_ending);
    int const descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    bool const held = ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(descriptor);
    return held;
}

bool is_open_elsewhere(Store const& store, std::string const& own_session,
                       std::string const& file) {
    auto const wanted = one_name_of(file);
    auto const names = names_in(store.folder());
    return std::any_of(names.begin(), names.end(), [&](std::string const& name) {
        auto const session = session_of(name);
        return name.ends_with(lock_ending) && session != own_session &&
               store.bytes_of(name) == wanted && is_running(store, session);
    });
}

namespace {

/// Nothing is lost without it: the card's file holds the same, or a save of the same session does.
bool is_needless(Found const& found, std::vector<Found> const& all) {
    auto const& rescue = found.rescue;
    auto const held = bytes_on_disk(rescue.file);
    if (held == rescue.bytes)
        return true;
    return std::any_of(all.begin(), all.end(), [&](Found const& other) {
        auto const& save = other.rescue;
        if (save.kind != What::after || save.file != rescue.file ||
            session_of(other.name) != session_of(found.name))
            return false;
        // A save that came to its end after all needs no copy of the file before it; what was
        // changed up to a save is in it.
        return rescue.kind == What::before ? held == save.bytes
                                           : rescue.kind == What::work && rescue.time <= save.time;
    });
}

} // namespace

void remove_old_locks(Store const& store) {
    constexpr std::time_t settled = 60; // seconds
    for (auto const& name : names_in(store.folder())) {
        struct stat status {};
        if (name.ends_with(lock_ending) && ::stat((store.folder() + name).c_str(), &status) == 0 &&
            std::time(nullptr) - status.st_mtime > settled && !is_running(store, session_of(name)))
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
    std::stable_sort(left.rescues.begin(), left.rescues.end(),
                     [](Found const& a, Found const& b) { return a.rescue.time > b.rescue.time; });
    return left;
}

} // namespace rescue
