#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::test {

/// Works with real windows by mouse and keyboard, following the same scripts as the scripted view.
/// A dialog without a script, or still open after its last step, is left by Esc; messages are read and
/// acknowledged. The platform with the windows is in force for the life of the object.
class IPerson {
 public:
  enum class Key { Return, Enter, Escape, Tab, CloseFrame };

  virtual ~IPerson() = default;

  virtual void AddScript(int nDialogId, std::vector<DialogStep> steps) = 0;
  [[nodiscard]] virtual const std::vector<std::string>& GetMessages() const = 0;
  [[nodiscard]] virtual const std::vector<std::string>& GetScriptErrors() const = 0;
  [[nodiscard]] virtual bool HasUnusedScripts() const = 0;

  /// Calls the action while the person sits at the windows that it opens.
  virtual void Watch(const std::function<void()>& action) = 0;
  /// Presses a key in the topmost dialog, or the close button of its frame.
  virtual void Press(Key key) = 0;
};

/// The person at the windows that this test program tries.
[[nodiscard]] std::unique_ptr<IPerson> MakePerson();

}  // namespace skyframe::test
