#pragma once

#include <optional>

#include "skyframe/scene/BentMember.h"
#include "skyframe/scene/Camera.h"
#include "skyframe/scene/Scene.h"

namespace skyframe::host {

/// A node or a member, by index.
struct ScenePart {
  enum class Kind { Node, Member };
  Kind kind = Kind::Node;
  int nIndex = 0;

  bool operator==(const ScenePart&) const = default;
};

/// What a person points at: a node within dReach pixels, else a member. Of several equally near ones that which is
/// nearest to the eye.
[[nodiscard]] std::optional<ScenePart> PickPart(const CDrawnPlaces& places, const CCamera& camera, PaintPoint at,
                                                double dReach, const CShownParts& shown = {});

}  // namespace skyframe::host
