#include "cardfile/rescue_keeper.h"

#include "model/session.h"
#include "rescue/rescue.h"

#include <utility>

namespace kehystin {

using rescue::Rescue;
using rescue::What;

std::unique_ptr<Keeper> keeper;

bool begin_keeping() {
    if (!keeper || !keeper->store.keeps())
        return false;
    if (!keeper->running)
        keeper->running = std::make_unique<rescue::RunningSession>(keeper->store);
    if (!keeper->running->is_locked()) {
        keeper->running->lock_again();
        keeper->noted_file.clear();
    }
    auto const file = session.cardFormLoaded ? session.cardFile : std::string();
    if (keeper->noted_file != file) {
        keeper->running->note_file(file);
        keeper->noted_file = file;
    }
    return true;
}

void put_beside(Rescue one) {
    one.step = ++keeper->steps;
    auto name = rescue::name_beside(keeper->running->name(), ++keeper->numbers, one.kind);
    keeper->store.put(name, to_file(one));
    count_beside(std::move(name), std::move(one));
}

void count_beside(std::string name, Rescue one) {
    auto const sum = rescue::checksum(one.bytes);
    auto const is_after = one.kind == What::after;
    keeper->beside.push_back({std::move(name), one.kind, std::move(one.file),
                              is_after ? std::move(one.bytes) : std::string(), sum});
}

} // namespace kehystin
