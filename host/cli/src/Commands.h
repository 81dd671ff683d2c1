#pragma once

#include <memory>
#include <ostream>

#include "Command.h"

namespace skyframe::host {

[[nodiscard]] std::unique_ptr<CCommand> MakeRunCommand(std::ostream& out, std::ostream& err);
[[nodiscard]] std::unique_ptr<CCommand> MakeCheckCommand(std::ostream& out, std::ostream& err);
[[nodiscard]] std::unique_ptr<CCommand> MakePlotCommand(std::ostream& out, std::ostream& err);
[[nodiscard]] std::unique_ptr<CCommand> MakeGenerateCommand(std::ostream& out, std::ostream& err);
[[nodiscard]] std::unique_ptr<CCommand> MakeSchemaCommand(std::ostream& out, std::ostream& err);

}  // namespace skyframe::host
