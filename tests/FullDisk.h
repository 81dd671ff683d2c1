#pragma once

#include <sys/resource.h>

#include <csignal>

namespace skyframe::test {

/// A disk that takes no byte more, for the life of the object.
class CFullDisk {
 public:
  CFullDisk() : m_pPrevious(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_limit);
    const rlimit none = {0, m_limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
  }
  ~CFullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_limit);
    std::signal(SIGXFSZ, m_pPrevious);
  }
  CFullDisk(const CFullDisk&) = delete;
  CFullDisk& operator=(const CFullDisk&) = delete;

 private:
  rlimit m_limit = {};
  void (*m_pPrevious)(int);
};

}  // namespace skyframe::test
