#include "krt/commands.h"
#include "krt/deadline.h"
#include "krt/files.h"
#include "krt/painter.h"
#include "krt/shown.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace krt {

namespace {

/// The letters behind the last dot of a file's own name, in lower case.
std::string ending_of(std::string const& file) {
    auto ending = base::file_part(file);
    auto const dot = ending.rfind('.');
    ending.erase(0, dot == std::string::npos ? ending.size() : dot + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ending;
}

bool is_drawn(std::string const& ending) {
    constexpr std::array known = {"png", "svg", "pdf"};
    return std::find(known.begin(), known.end(), ending) != known.end();
}

/// The words of the program that paints.
std::vector<std::string> words_for(std::string const& file, std::string const& format,
                                   Drawing const& drawing) {
    std::vector<std::string> words{file, format, std::to_string(drawing.scale),
                                   std::to_string(drawing.size)};
    if (drawing.links)
        words.emplace_back("links");
    return words;
}

/// A file manager names a thumbnail as it likes, waits for it, and takes one that is there for a
/// true one.
Status draw_thumbnail(std::string const& file, Drawing const& drawing) {
    if (drawing.size < smallest_size || drawing.size > largest_size) {
        complain("--size", "koko on 16 - 1024");
        return Status::failed;
    }
    Deadline const deadline(std::chrono::milliseconds(800));
    auto shown = spares_source(file, drawing.file) ? read_to_show(file) : std::nullopt;
    if (!shown || shown->status != Status::quiet)
        return Status::findings;
    auto const painted = paint(words_for(file, "png", drawing), std::move(shown->card));
    Deadline::lift(); // what is written is written to its end
    return painted && write_whole(drawing.file, painted->bytes) ? Status::quiet : Status::findings;
}

} // namespace

Status draw(std::string const& file, Drawing const& drawing) {
    if (drawing.size != 0)
        return draw_thumbnail(file, drawing);
    auto const ending = drawing.file == "-" ? "png" : ending_of(drawing.file);
    if (!is_drawn(ending)) {
        complain(drawing.file, "kuvan pääte on .png, .svg tai .pdf");
        return Status::failed;
    }
    if (!(drawing.scale >= smallest_scale && drawing.scale <= largest_scale)) {
        complain("--scale", "skaala on 0.25 - 8");
        return Status::failed;
    }
    auto shown = spares_source(file, drawing.file) ? read_to_show(file) : std::nullopt;
    if (!shown)
        return Status::failed;
    // As it has been repaired; the other program has no questions left.
    auto const painted = paint(words_for(file, ending, drawing), std::move(shown->card));
    if (!painted || !write_whole(drawing.file, painted->bytes))
        return Status::failed;
    return worse(shown->status, painted->status);
}

} // namespace krt
