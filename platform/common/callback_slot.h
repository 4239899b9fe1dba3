#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <utility>

namespace zor::platform {

/// A callback that one thread replaces while others call it. No lock is held while the callback
/// runs or dies, so that it may replace itself; a call that is under way keeps the callback that it
/// began with alive.
template <class Argument>
class CallbackSlot {
 public:
  using Callback = std::function<void(Argument)>;

  /// An empty function clears the slot. `armed` is what callers test without a lock; it is written
  /// under the lock, so that concurrent calls cannot leave it out of step with the slot.
  void Set(Callback callback, std::atomic<bool>& armed) {
    std::shared_ptr<const Callback> changed;
    if (callback) changed = std::make_shared<const Callback>(std::move(callback));
    const std::lock_guard lock(mutex_);
    callback_.swap(changed);
    armed.store(callback_ != nullptr, std::memory_order_relaxed);
    // `lock` is released before `changed` lets the former callback go.
  }

  /// Does nothing when the slot is empty; what the callback throws passes.
  void Call(Argument argument) const {
    if (const std::shared_ptr<const Callback> callback = Current()) (*callback)(argument);
  }

 private:
  std::shared_ptr<const Callback> Current() const {
    const std::lock_guard lock(mutex_);
    return callback_;
  }

  mutable std::mutex mutex_;
  std::shared_ptr<const Callback> callback_;
};

}  // namespace zor::platform
