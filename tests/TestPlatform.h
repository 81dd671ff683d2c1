#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::test {

/// Headless platform in force for the life of the object; its streams are kept in strings.
class CTestPlatform {
 public:
  CTestPlatform() : m_platform(m_strmMessages, m_strmConsole), m_pPrevious(InstallPlatform(&m_platform)) {}
  ~CTestPlatform() { InstallPlatform(m_pPrevious); }
  CTestPlatform(const CTestPlatform&) = delete;
  CTestPlatform& operator=(const CTestPlatform&) = delete;

  CHeadlessPlatform& operator*() { return m_platform; }
  CHeadlessPlatform* operator->() { return &m_platform; }
  std::string GetConsole() const { return m_strmConsole.str(); }
  const std::vector<std::string>& GetMessages() const { return m_platform.GetMessages(); }

 private:
  std::ostringstream m_strmMessages;
  std::ostringstream m_strmConsole;
  CHeadlessPlatform m_platform;
  IPlatform* m_pPrevious;
};

}  // namespace skyframe::test
