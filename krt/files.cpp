#include "krt/files.h"

#include "base/text.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

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

/// Reads to the end instead of trusting a size: a pipe has none.
std::optional<std::string> read_all(std::FILE* from) {
    std::string bytes;
    constexpr std::size_t step = 256U * 1024;
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

/// The sample label of the editor begins with this font, and keeps the last one that it took.
class SampleFont {
  public:
    std::string kept(std::string const& name) {
        if (kehystin::is_font_name(name))
            name_ = name;
        return name_;
    }

  private:
    std::string name_ = "MS Sans Serif";
};

kehystin::Date today() {
    auto const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    return base::to_date({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday});
}

bool is_file(std::string const& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

} // namespace

void complain(std::string const& file, std::string_view what) {
    std::fprintf(stderr, "krt: %s: %.*s\n", file == "-" ? "vakiosyöte" : file.c_str(),
                 static_cast<int>(what.size()), what.data());
}

std::optional<std::string> read_bytes(std::string const& file) {
    std::error_code ignored;
    if (file != "-" && fs::is_directory(file, ignored)) {
        complain(file, "on hakemisto");
        return std::nullopt;
    }
    OpenFile const from(file == "-" ? stdin : std::fopen(file.c_str(), "rb"));
    auto bytes = from ? read_all(from.get()) : std::nullopt;
    if (!bytes)
        complain(file, std::string("ei voi lukea: ") + std::strerror(errno));
    else if (bytes->size() > largest_input) {
        complain(file, "on liian suuri, enintään 64 Mt luetaan");
        bytes.reset();
    }
    return bytes;
}

std::optional<kehystin::Reading> Reader::read(std::string const& file,
                                              std::string_view bytes) const {
    SampleFont sample;
    kehystin::Surroundings around;
    around.today = today();
    around.folder = base::folder_part(file);
    if (pictures == Pictures::looked_for)
        around.has_file = is_file;
    if (fonts == Fonts::judged)
        around.kept_font = [&](std::string const& name) { return sample.kept(name); };
    try {
        auto reading = kehystin::read_card(bytes, {}, around);
        if (reading.end == kehystin::Reading::End::read)
            return reading;
        complain(file, "ei ole korttimalli");
    } catch (base::RuntimeError const& error) {
        complain(file, "ei voi lukea: luku ei mahdu kortille (" + error.text() + ")");
    }
    return std::nullopt;
}

bool print(std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
}

bool write_whole(std::string const& file, std::string_view bytes, bool backup) {
    auto pattern = file + ".XXXXXX";
    int const descriptor = mkstemp(pattern.data());
    OpenFile to(descriptor < 0 ? nullptr : fdopen(descriptor, "wb"));
    bool written = to && std::fwrite(bytes.data(), 1, bytes.size(), to.get()) == bytes.size() &&
                   std::fflush(to.get()) == 0 && fsync(descriptor) == 0;
    int error = errno;
    to.reset();
    std::error_code failed;
    if (written) {
        // A new file has the rights that the old one had, or those that any new file gets.
        auto const old = fs::status(file, failed);
        auto const mask = umask(0);
        umask(mask);
        fs::permissions(pattern, fs::exists(old) ? old.permissions() : fs::perms(0666 & ~mask),
                        failed);
        if (backup && fs::exists(old))
            fs::copy_file(file, file + "~", fs::copy_options::overwrite_existing, failed);
        if (!failed || !backup)
            fs::rename(pattern, file, failed);
        written = !failed;
        error = failed.value();
    }
    if (!written) {
        if (descriptor >= 0)
            fs::remove(pattern, failed);
        complain(file, std::string("ei voi kirjoittaa: ") + std::strerror(error));
    }
    return written;
}

} // namespace krt
