#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <string>

#include "skyframe/job/Text.h"
#include "skyframe/run/Stamps.h"

namespace skyframe::host {

namespace {

/// 64 bits that tell one sequence of values from another: each word multiplied in as FNV-1a does a byte, its upper half
/// folded down so that all of its bits reach all of the sum's.
class CDigest {
 public:
  template <class... Values>
  void Add(const Values&... values) {
    (AddOne(values), ...);
  }

  [[nodiscard]] std::uint64_t Get() const { return m_nSum; }

 private:
  void AddWord(std::uint64_t nWord) {
    m_nSum = (m_nSum ^ nWord) * 0x100000001b3U;
    m_nSum ^= m_nSum >> 32U;
  }

  void AddOne(int nValue) { AddWord(static_cast<std::uint64_t>(static_cast<std::int64_t>(nValue))); }
  void AddOne(double dValue) { AddWord(std::bit_cast<std::uint64_t>(dValue + 0.0)); }  // -0 is 0
  void AddOne(const std::string& strText) {
    AddWord(strText.size());
    for (const char c : strText) AddWord(static_cast<unsigned char>(c));
  }
  template <std::size_t nCount>
  void AddOne(const std::array<int, nCount>& values) {
    for (const int nValue : values) AddOne(nValue);
  }
  void AddOne(const std::optional<int>& value) {
    AddOne(value ? 1 : 0);
    AddOne(value.value_or(0));
  }

  std::uint64_t m_nSum = 0xcbf29ce484222325U;
};

/// Lists cannot run into each other: each begins with its length.
template <class Entries, class AddEntry>
void AddList(CDigest& digest, const Entries& entries, AddEntry addEntry) {
  digest.Add(static_cast<int>(entries.size()));
  for (const auto& entry : entries) addEntry(entry);
}

}  // namespace

std::string FormModelMark(const Job& job) {
  CDigest digest;
  AddList(digest, job.nodes, [&](const JobNode& node) {
    digest.Add(node.nId, node.dX, node.dY, node.dZ, node.nJoint, node.restraint, node.nSpring);
  });
  AddList(digest, job.springs,
          [&](const JobSpring& spring) { digest.Add(spring.nGroup, spring.dKx, spring.dKy, spring.dKz); });
  AddList(digest, job.sections, [&](const JobSection& section) {
    digest.Add(section.strId, section.nShape, section.dArea, section.dIx, section.dIy, section.dIz);
  });
  AddList(digest, job.elements, [&](const JobElement& element) {
    digest.Add(element.nType, element.nNodeI, element.nNodeJ, element.nSection);
  });
  AddList(digest, job.inclinedSupports, [&](int nNode) { digest.Add(nNode); });
  AddList(digest, job.loads,
          [&](const JobLoad& load) { digest.Add(load.nCase, load.nNode, load.nDirection, load.dValue); });
  return Format("%016llx", static_cast<unsigned long long>(digest.Get()));
}

}  // namespace skyframe::host
