#include <iostream>

#include "skyframe/cli/CommandLine.h"
#include "skyframe/platform/ConsoleBuffer.h"
#include "skyframe/platform/Pages.h"
#include "skyframe/platform/Platform.h"

int main(int argc, char** argv) {
  skyframe::KeepFreedBlocks();
  const skyframe::CConsoleScope console(std::cout, std::cerr);
  return skyframe::host::RunCommandLine(skyframe::GetArguments(argc, argv), std::cout, std::cerr,
                                        skyframe::GetProgramPath());
}
