#pragma once

namespace skyframe {

/// Every spring group becomes undefined.
void ForgetSpringGroups();

/// Drops the order that OnRestoreNodeCode would undo.
void ForgetNodeOrder();

}  // namespace skyframe
