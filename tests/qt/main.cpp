#include <gtest/gtest.h>

#include <QApplication>

int main(int nArguments, char** arguments) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&nArguments, arguments);
  const QApplication application(nArguments, arguments);
  return RUN_ALL_TESTS();
}
