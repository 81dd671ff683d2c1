#pragma once

#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "skyframe/platform/HeadlessPlatform.h"

namespace skyframe::test {

inline std::ostream g_nowhere(nullptr);

/// Every file that is read holds the same text.
class CTextPlatform : public CHeadlessPlatform {
 public:
  explicit CTextPlatform(std::string strText)
      : CHeadlessPlatform(g_nowhere, g_nowhere), m_strText(std::move(strText)), m_pPrevious(InstallPlatform(this)) {}
  ~CTextPlatform() override { InstallPlatform(m_pPrevious); }
  CTextPlatform(const CTextPlatform&) = delete;
  CTextPlatform& operator=(const CTextPlatform&) = delete;

  std::unique_ptr<std::istream> OpenForReading(const std::string& /*strPath*/) override {
    return std::make_unique<std::istringstream>(m_strText);
  }

 private:
  std::string m_strText;
  IPlatform* m_pPrevious;
};

inline void Demand(bool bTrue) {
  if (!bTrue) std::abort();
}

}  // namespace skyframe::test
