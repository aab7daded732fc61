#include "krt/files.h"

#include "base/text.h"
#include "disk/disk.h"
#include "krt/findings.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>

namespace krt {

namespace fs = std::filesystem;

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const {
        if (file != stdin)
            std::fclose(file);
    }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

/// Reads to the end, also where the size says nothing: a pipe has none.
std::optional<std::string> read_all(std::FILE* from, std::size_t size) {
    std::string bytes;
    constexpr std::size_t step = 256U * 1024;
    bytes.reserve((size > 0 ? size : largest_input) + 2 * step); // grown, it would stand twice
    for (std::size_t got = step; got == step && bytes.size() <= largest_input;) {
        auto const used = bytes.size();
        bytes.resize(used + step);
        got = std::fread(bytes.data() + used, 1, step, from);
        bytes.resize(used + got);
    }
    if (std::ferror(from))
        return std::nullopt;
    return bytes;
}

constexpr std::string_view beside = "+"; // before the path of a picture in the card's folder

/// What the system says of a failure, for the usual ones.
std::string fault_of(int error) {
    switch (error) {
    case ENOENT:
        return "tiedostoa tai hakemistoa ei ole";
    case EACCES:
    case EPERM:
        return "ei ole oikeutta";
    case ENOSPC:
        return "levy on täynnä";
    case EROFS:
        return "levylle ei voi kirjoittaa";
    case EISDIR:
        return "on hakemisto";
    case ELOOP:
        return "linkit kiertävät kehää";
    case EEXIST:
        return "ei ole tavallinen tiedosto";
    case ENOTDIR:
        return "polussa on tiedosto, joka ei ole hakemisto";
    case ENAMETOOLONG:
        return "nimi on liian pitkä";
    case EIO:
        return "laite ei toimi";
    case EINVAL:
        return "nimi ei kelpaa";
    case EBUSY:
        return "on toisen ohjelman käytössä";
    default:
        return "järjestelmän virhe " + std::to_string(error);
    }
}

bool is_file(std::string const& path) {
    return disk::kind_of(path) == disk::Kind::file;
}

} // namespace

std::string SampleFont::kept(std::string const& name) {
    if (base::is_font_name(name))
        name_ = name;
    return name_;
}

kehystin::Date today() {
    auto const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    auto const local = disk::local_time(now);
    return base::to_date({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday});
}

Status each(Files const& files, std::function<Status(std::string const&)> const& command) {
    auto status = Status::quiet;
    for (auto const& file : files) {
        try {
            status = worse(status, command(file));
        } catch (std::bad_alloc const&) {
            complain(file, "muisti ei riitä");
            status = Status::failed;
        } catch (std::exception const& fault) {
            complain(file, std::string("ohjelmassa on virhe: ") + fault.what());
            status = Status::failed;
        }
    }
    return status;
}

std::string shown_name(std::string const& file) {
    return file == "-" ? "vakiosyöte" : plain(file);
}

void complain(std::string const& file, std::string_view what) {
    std::fprintf(stderr, "krt: %s: %s\n", shown_name(file).c_str(), plain(what).c_str());
}

std::optional<std::string> read_bytes(std::string const& file) {
    std::error_code ignored;
    if (file != "-" && disk::kind_of(file) == disk::Kind::folder) {
        complain(file, "on hakemisto");
        return std::nullopt;
    }
    auto const size = file == "-" ? 0 : fs::file_size(disk::path_of(file), ignored);
    if (!ignored && size > largest_input) {
        complain(file, "on liian suuri, enintään 64 Mt luetaan");
        return std::nullopt;
    }
    OpenFile const from(file == "-" ? stdin : disk::open_stream(file, disk::Open::to_read));
    auto bytes = from ? read_all(from.get(), ignored ? 0 : size) : std::nullopt;
    if (!bytes)
        complain(file, "ei voi lukea: " + fault_of(errno));
    else if (bytes->size() > largest_input) {
        complain(file, "on liian suuri, enintään 64 Mt luetaan");
        bytes.reset();
    }
    return bytes;
}

std::optional<kehystin::Reading> Reader::read(std::string const& file, std::string_view bytes,
                                              std::string* fault) const {
    std::string words;
    SampleFont sample;
    kehystin::Surroundings around;
    around.today = today();
    // A picture beside the card stays named so: the card may be moved with it.
    around.folder = beside;
    if (pictures == Pictures::looked_for)
        around.has_file = [&](std::string const& path) {
            return is_file(path.starts_with(beside) ? base::folder_part(file) + path.substr(1)
                                                    : path);
        };
    around.kept_font = [&](std::string const& name) { return sample.kept(name); };
    try {
        auto reading = kehystin::read_card(bytes, {}, around);
        if (reading.end == kehystin::Reading::End::read)
            return reading;
        words = "ei ole korttimalli";
    } catch (base::RuntimeError const& error) {
        words = "ei voi lukea: luku ei mahdu kortille (" + error.text() + ")";
    }
    complain(file, words);
    if (fault)
        *fault = words;
    return std::nullopt;
}

bool tell_faults(std::string const& file, kehystin::Reading const& reading) {
    auto const faults = faults_of(reading);
    if (!faults.empty())
        complain(file, faults);
    return faults.empty();
}

namespace {

/// The first failure of standard output; what follows it says nothing any more.
int output_error = 0;

void note_output(bool done) {
    if (!done && output_error == 0)
        output_error = errno;
    if (disk::reader_is_gone(fileno(stdout), output_error))
        throw NobodyReads();
}

} // namespace

bool print(std::string_view text) {
    if (output_error == 0)
        note_output(std::fwrite(text.data(), 1, text.size(), stdout) == text.size());
    return output_error == 0;
}

bool finish_output() {
    if (output_error == 0)
        note_output(std::fflush(stdout) == 0);
    if (output_error != 0)
        complain("vakiotuloste", "ei voi kirjoittaa: " + fault_of(output_error));
    return output_error == 0;
}

namespace {

/// Writes into an open file to the end. The error, or 0.
int write_all(std::FILE* to, std::string_view bytes) {
    bool const done = to && std::fwrite(bytes.data(), 1, bytes.size(), to) == bytes.size() &&
                      std::fflush(to) == 0;
    return done ? 0 : errno;
}

/// A copy under a name of its own first: an older one stays until the new one is whole.
int keep_backup(std::string const& file, std::string const& backup) {
    auto const copy = disk::new_file_beside(file);
    if (!copy)
        return errno;
    bool const done = disk::copy_bytes(file, *copy) && disk::keep_rights(file, *copy) &&
                      disk::rename(*copy, backup);
    int const error = done ? 0 : errno;
    if (!done)
        disk::remove(*copy);
    return error;
}

/// Where a name leads behind its links, also when nothing is there yet.
std::string behind_links(std::string const& name) {
    constexpr int most_links = 40; // as the system has it
    auto file = disk::path_of(name);
    std::error_code none;
    for (int i = 0; i < most_links && fs::is_symlink(file, none); ++i)
        file = file.parent_path() / fs::read_symlink(file, none);
    return disk::text_of(file);
}

struct Failure {
    int error = 0; ///< 0 for none
    std::string file = {};
};

/// A new file beside it takes its place when it is whole.
Failure replace_file(std::string const& file, std::string_view bytes, bool backup) {
    std::error_code ignored;
    auto const old = fs::symlink_status(disk::path_of(file), ignored);
    // Nothing but a file gives way to one.
    if (fs::exists(old) && !fs::is_regular_file(old))
        return {fs::is_symlink(old) ? ELOOP : EEXIST, file};
    if (fs::exists(old) && !disk::may_be_written(file))
        return {errno, file};
    auto const unfinished = disk::new_file_beside(file);
    if (!unfinished)
        return {errno, file};
    OpenFile to(disk::open_stream(*unfinished, disk::Open::emptied));
    Failure failure{write_all(to.get(), bytes), file};
    if (failure.error == 0 && disk::flush(fileno(to.get())) != 0)
        failure.error = errno;
    to.reset();
    if (failure.error == 0 && !disk::keep_rights(file, *unfinished))
        failure.error = errno;
    if (failure.error == 0 && backup && fs::exists(old)) {
        auto const kept = file + "~";
        failure.error = keep_backup(file, kept);
        if (failure.error != 0)
            failure.file = kept;
    }
    if (failure.error == 0 && !disk::rename(*unfinished, file))
        failure.error = errno;
    if (failure.error != 0)
        disk::remove(*unfinished);
    return failure;
}

/// What is no file of its own name, a device or a pipe, cannot be replaced.
Failure write_into(std::string const& file, std::string_view bytes) {
    OpenFile const to(disk::open_stream(file, disk::Open::to_write));
    return {write_all(to.get(), bytes), file};
}

Failure write_to(std::string const& file, std::string_view bytes, bool backup) {
    using disk::Kind;
    std::error_code none;
    auto const known = disk::kind_of(file);
    if (known == Kind::folder)
        return {EISDIR, file};
    auto const target = behind_links(file);
    // A name in /proc may lead to a file that has no name any more.
    bool const is_file =
        known == Kind::file && fs::equivalent(disk::path_of(target), disk::path_of(file), none);
    if ((known == Kind::file || known == Kind::special) && !is_file)
        return write_into(file, bytes);
    return replace_file(target, bytes, backup);
}

} // namespace

bool spares_source(std::string const& source, std::string const& target) {
    std::error_code none;
    bool const same =
        target != "-" && is_file(target) &&
        (source == "-" ? disk::is_open_as(fileno(stdin), target)
                       : fs::equivalent(disk::path_of(source), disk::path_of(target), none));
    if (same)
        complain(target, "on tiedosto, josta luetaan: sen päälle ei kirjoiteta");
    return !same;
}

bool write_whole(std::string const& file, std::string_view bytes, bool backup) {
    if (file == "-" || (!backup && disk::is_open_as(fileno(stdout), file)))
        return print(bytes);
    auto const failure = write_to(file, bytes, backup);
    if (failure.error != 0)
        complain(failure.file == behind_links(file) ? file : failure.file,
                 "ei voi kirjoittaa: " + fault_of(failure.error));
    return failure.error == 0;
}

} // namespace krt
