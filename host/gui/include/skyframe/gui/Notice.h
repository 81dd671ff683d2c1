#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace skyframe::gui {

/// Tells listeners, in the order in which they came, that something has changed. They live as long as the notice.
class CNotice {
 public:
  void Connect(std::function<void()> listener) { m_listeners.push_back(std::move(listener)); }
  void Send() const {
    for (const auto& listener : m_listeners) listener();
  }

 private:
  std::vector<std::function<void()>> m_listeners;
};

}  // namespace skyframe::gui
