#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <numbers>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "HostModel.h"
#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::test {

using Strings = std::vector<std::string>;
using Do = DialogStep;
using Steps = std::vector<DialogStep>;

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
  const Strings& GetMessages() const { return m_platform.GetMessages(); }
  /// What was told of each step of the work, in the order of the steps.
  using ToldSteps = std::vector<std::pair<std::string, std::vector<double>>>;
  const ToldSteps& GetProgress() const { return m_platform.m_progress; }

 private:
  std::ostringstream m_strmMessages;
  std::ostringstream m_strmConsole;
  struct CPlatform : CHeadlessPlatform {
    using CHeadlessPlatform::CHeadlessPlatform;
    void ReportProgress(double dFraction, std::string_view strLabel) override {
      const bool bSame = !m_progress.empty() && m_progress.back().first == strLabel;
      if (!bSame || dFraction < m_progress.back().second.back()) m_progress.push_back({std::string(strLabel), {}});
      m_progress.back().second.push_back(dFraction);
    }
    ToldSteps m_progress;
  } m_platform;
  IPlatform* m_pPrevious;
};

/// What every run of an analysis needs.
struct Session {
  CTestPlatform platform;
  CHostModel host;
  const CJobFolder job{"session"};
};

}  // namespace skyframe::test
