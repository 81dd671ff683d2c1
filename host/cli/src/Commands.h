#pragma once

#include <memory>

#include "Command.h"

namespace skyframe::host {

[[nodiscard]] std::unique_ptr<CCommand> MakeRunCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakeCheckCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakePlotCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakeTableCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakeCompareCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakeReportCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakeGenerateCommand(const CommandContext& context);
[[nodiscard]] std::unique_ptr<CCommand> MakeSchemaCommand(const CommandContext& context);

}  // namespace skyframe::host
