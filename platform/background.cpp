#include "platform/background.h"

#include <system_error>

namespace platform {

Background::~Background() {
    {
        std::lock_guard const lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void Background::run(std::function<void()> work) {
    if (!starts()) {
        work();
        return;
    }
    {
        std::lock_guard const lock(mutex_);
        works_.push_back(std::move(work));
    }
    changed_.notify_all();
}

bool Background::starts() {
    try {
        if (!thread_.joinable())
            thread_ = std::thread([this] { work_off(); });
        return true;
    } catch (std::system_error const&) {
        return false;
    }
}

void Background::finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return works_.empty(); });
}

void Background::work_off() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ends_ || !works_.empty(); });
        if (works_.empty())
            return;
        auto const& work = works_.front(); // a deque keeps it in its place while others come
        lock.unlock();
        work();
        lock.lock();
        works_.pop_front();
        changed_.notify_all();
    }
}

} // namespace platform
