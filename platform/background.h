// Work that runs beside the session, on one thread and in the order in which it came.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace platform {

class Background {
  public:
    Background() = default;
    /// Returns when everything is done.
    ~Background();
    Background(Background const&) = delete;
    Background& operator=(Background const&) = delete;

    /// The work raises nothing, and touches nothing that others change.
    void run(std::function<void()> work);
    /// Returns when everything that came until now is done.
    void finish();

  private:
    /// False where the machine has no thread to give: the work is then done at once.
    bool starts();
    void work_off();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> works_; ///< the first stays until it is done
    bool ends_ = false;
    std::thread thread_; ///< started with the first work
};

} // namespace platform
