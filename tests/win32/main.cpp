#include <gtest/gtest.h>

#include "ModuleContext.h"

int main(int nArguments, char** arguments) {
  ::testing::InitGoogleTest(&nArguments, arguments);
  const skyframe::CModuleContext look;  // every window of the tests as it is during a call into the module
  return RUN_ALL_TESTS();
}
