#include "krt/commands.h"
#include "krt/files.h"
#include "krt/findings.h"

#include "card/writing.h"
#include "disk/disk.h"

#include <algorithm>
#include <set>
#include <string>

namespace krt {

namespace {

Status repair_file(std::string const& file, RepairTarget const& target) {
    if (target.in_place && (file == "-" || disk::is_special(file))) {
        complain(file, "ei ole tavallinen tiedosto");
        return Status::failed;
    }
    auto const bytes = read_bytes(file);
    if (!bytes)
        return Status::failed;
    auto reading = Reader{}.read(file, *bytes);
    if (!reading)
        return Status::failed;
    if (!reading->missing_picture.empty())
        reading->data.card.picture = reading->missing_picture;
    for (auto const& finding : reading->findings)
        if (is_fault(finding))
            complain(file, text_of(finding));
    bool const wrong = std::any_of(reading->findings.begin(), reading->findings.end(), is_fault);
    auto const status = wrong ? Status::findings : Status::quiet;
    if (!wrong && !target.always)
        return status;
    auto const written = kehystin::write_card(reading->data);
    // A picture that is missing changes nothing in the file, and nothing is kept of it.
    if (target.in_place && written == *bytes)
        return status;
    if (target.in_place)
        return write_whole(file, written, true) ? status : Status::failed;
    if (!target.file.empty())
        return write_whole(target.file, written) ? status : Status::failed;
    return print(written) ? status : Status::failed;
}

} // namespace

Status repair(Files const& files, RepairTarget const& target) {
    std::set<std::string> done;
    return each(files, [&](std::string const& file) {
        // Repaired in place a second time, a file's backup would be its repaired self.
        bool const again =
            target.in_place && disk::is_there(file) && !done.insert(disk::one_name_of(file)).second;
        return again ? Status::quiet : repair_file(file, target);
    });
}

} // namespace krt
