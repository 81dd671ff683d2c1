#include "skyframe/results/StaticResultFile.h"

#include <algorithm>

#include "ResultFile.h"
#include "skyframe/values/ResultFiles.h"

namespace skyframe::host {

namespace {

constexpr std::array<std::string_view, c_nDiagrams> c_strDiagrams = {
    "MYZ:", "MZX:", "MXY:", "Qy:", "Qz:", "Fy:", "Fz:"};

void ExpectWords(CResultWords& words, std::initializer_list<std::string_view> expected) {
  for (const std::string_view strWord : expected) words.Expect(words.Word() == strWord);
}

/// A beam has "N=" and its diagrams; others have a line that tells of them, then "N =".
StaticMember ReadMember(CResultWords& words) {
  StaticMember member;
  member.nElement = words.Number<int>();
  const bool bBeam = words.Word() == "N=";
  if (!bBeam) ExpectWords(words, {"N", "="});
  member.dAxialForce = words.FixedNumber();
  for (std::size_t q = 0; bBeam && q < c_nDiagrams && !words.HasFailed(); ++q) {
    ExpectWords(words, {c_strDiagrams[q]});
    for (double& dValue : member.diagrams.emplace_back()) dValue = words.FixedNumber();
  }
  return member;
}

StaticSupport ReadSupport(CResultWords& words, std::size_t nNodes) {
  StaticSupport support;
  support.nNode = words.NumberBehind<int>(label::c_strNode);
  words.Expect(support.nNode >= 1 && static_cast<std::size_t>(support.nNode) <= nNodes);
  for (;;) {
    const auto it = std::ranges::find(label::c_strReactions, words.Peek());
    if (it == std::end(label::c_strReactions)) return support;
    words.Skip(1);
    support.forces[static_cast<std::size_t>(it - std::begin(label::c_strReactions))] = words.FixedNumber();
  }
}

std::vector<NodeValues> ReadDisplacements(CResultWords& words, std::size_t nNodes) {
  std::vector<NodeValues> displacements;
  while (displacements.size() < nNodes && !words.HasFailed()) {
    NodeValues& u = displacements.emplace_back();
    words.Expect(words.Number<std::size_t>() == displacements.size());
    for (std::size_t d = 0; d < 3; ++d) u[d] = words.Number<double>();
  }
  return displacements;
}

}  // namespace

Reading<StaticResultFile> ReadStaticResultFile(const std::string& strPath, std::size_t nNodes) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    StaticResultFile file;
    file.bNonlinear = words.Word() == "Nonlinear";
    ExpectWords(words, {"Solution", "Output:", "Member", "forces:", "ElementNumber", "AxialForce"});
    while (!words.HasFailed() && words.Peek() != "Reactions:") file.members.push_back(ReadMember(words));
    words.Skip(1);
    while (words.Peek().starts_with(label::c_strNode)) file.supports.push_back(ReadSupport(words, nNodes));
    ExpectWords(words, {"DOF", "Displacements:", "UX", "UY", "UZ"});
    file.displacements = ReadDisplacements(words, nNodes);
    return file;
  });
}

}  // namespace skyframe::host
