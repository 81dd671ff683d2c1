#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "skyframe/platform/Dialog.h"
#include "skyframe/platform/HeadlessPlatform.h"
#include "skyframe/platform/PaintContext.h"
#include "skyframe/platform/WindowPlatform.h"

namespace skyframe::test {

/// Works with real windows by mouse and keyboard, following the same scripts as the scripted view.
/// A dialog without a script, or still open after its last step, is left by Esc; messages are read and
/// acknowledged. The platform with the windows is in force for the life of the object.
class IPerson {
 public:
  enum class Key { Return, Enter, Escape, Tab, Up, Down, Left, Right, Seven, CloseFrame };

  IPerson() = default;
  virtual ~IPerson() = default;
  IPerson(const IPerson&) = delete;
  IPerson& operator=(const IPerson&) = delete;

  void AddScript(int nDialogId, std::vector<DialogStep> steps) { m_scripts[nDialogId].push_back(std::move(steps)); }
  [[nodiscard]] const std::vector<std::string>& GetMessages() const { return m_messages; }
  [[nodiscard]] const std::vector<std::string>& GetScriptErrors() const { return m_errors; }
  [[nodiscard]] bool HasUnusedScripts() const {
    return std::ranges::any_of(m_scripts, [](const auto& entry) { return !entry.second.empty(); });
  }

  /// Calls the action while the person sits at the windows that it opens.
  virtual void Watch(const std::function<void()>& action) = 0;
  /// The tip on a control of the topmost dialog.
  [[nodiscard]] virtual std::string ReadTip(int nControl) const = 0;
  [[nodiscard]] virtual CWindowPlatform& GetWindows() = 0;
  /// Presses a key in the topmost dialog, or the close button of its frame.
  virtual void Press(Key key) = 0;

 protected:
  [[nodiscard]] std::vector<DialogStep> TakeScript(int nDialogId) {
    auto& scripts = m_scripts[nDialogId];
    if (scripts.empty()) return {};
    std::vector<DialogStep> steps = std::move(scripts.front());
    scripts.pop_front();
    return steps;
  }
  void Report(int nDialogId, std::size_t nStep, int nControl, const std::string& strReason) {
    m_errors.push_back("dialog " + std::to_string(nDialogId) + ", step " + std::to_string(nStep) + ", control " +
                       std::to_string(nControl) + ": " + strReason);
  }
  /// Row of a list that a step means; -1: there is none.
  [[nodiscard]] static int FindRow(const IDialogView& view, const DialogStep& step) {
    const int nCount = view.GetItemCount(step.nId);
    if (step.nRow >= 0 && step.nRow < nCount) return step.nRow;
    for (int nRow = 0; step.nRow == -1 && nRow < nCount; ++nRow) {
      if (view.GetItemText(step.nId, nRow) == step.strText) return nRow;
    }
    return -1;
  }

  std::map<int, std::deque<std::vector<DialogStep>>> m_scripts;
  std::vector<std::string> m_messages;
  std::vector<std::string> m_errors;
};

/// The person at the windows that this test program tries.
[[nodiscard]] std::unique_ptr<IPerson> MakePerson();

inline constexpr int c_nPictureWidth = 200, c_nPictureHeight = 100;
/// Pixels, row by row, of a white picture that the windows' paint context has drawn on.
[[nodiscard]] std::vector<Colour> DrawPicture(const std::function<void(IPaintContext&)>& draw);

}  // namespace skyframe::test
