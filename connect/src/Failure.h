#pragma once

namespace skyframe {

/// Shows the message of the exception that is being handled. One that cannot be shown, for want of memory as likely
/// as not, is given up.
void TellException() noexcept;

}  // namespace skyframe
