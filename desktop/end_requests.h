// The machine wants the process to end: a signal, or the user logging out.
#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QSessionManager;

namespace desktop {

class EndRequests : public QObject {
  public:
    /// `keep` makes the user's work safe at once. `close` closes the program by its usual road;
    /// false when the user would rather stay. There is one of this class in a process.
    EndRequests(std::function<void()> keep, std::function<bool()> close);

    /// The user logs out: keeps the work, then asks as far as that is allowed. False when the user
    /// would rather stay.
    bool mayLogOut(std::function<bool()> const& mayAsk);

  private:
    void logOut(QSessionManager& manager);

    std::function<void()> keep_;
    std::function<bool()> close_;
    std::unique_ptr<QObject> signals_;
};

} // namespace desktop
