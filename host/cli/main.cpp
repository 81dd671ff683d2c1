#include <iostream>
#include <string>
#include <vector>

#include "skyframe/cli/CommandLine.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return skyframe::host::RunCommandLine(arguments, std::cout, std::cerr);
}
