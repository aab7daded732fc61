#include "krt/commands.h"
#include "krt/files.h"
#include "krt/page.h"
#include "krt/shown.h"

#include "base/text.h"

namespace krt {

Status form(std::string const& file, std::string const& target) {
    auto shown = spares_source(file, target) ? read_to_show(file) : std::nullopt;
    if (!shown)
        return Status::failed;
    auto const page = page_of(
        {shown->card, shown->linking, base::folder_part(file), [&](std::string const& what) {
             complain(file, what);
             shown->status = Status::findings;
         }});
    bool const done = target.empty() ? print(page) : write_whole(target, page);
    return done ? shown->status : Status::failed;
}

} // namespace krt
