#include "skyframe/results/SpectrumResultFile.h"

#include <algorithm>

#include "ResultFile.h"

namespace skyframe::host {

namespace {

constexpr std::string_view c_strModeMasses = "各阶振型参与质量:";
constexpr std::string_view c_strComputedMass = "总计算参与质量:";
constexpr std::string_view c_strCombination = "Spectrum_Combine_method:";

/// Numbers up to a word that begins with a label.
std::vector<double> ReadList(CResultWords& words, std::string_view strLabel) {
  std::vector<double> values;
  while (!words.HasFailed() && !words.Peek().starts_with(strLabel)) values.push_back(words.Number<double>());
  return values;
}

std::vector<NodeValues> ReadNodes(CResultWords& words, std::span<const JobNode> nodes) {
  std::vector<NodeValues> values;
  for (std::size_t i = 0; i < nodes.size() && !words.HasFailed(); ++i) {
    words.Expect(words.Number<std::size_t>() == i + 1);
    values.push_back(ReadNodeValues(words, nodes[i]));
  }
  return values;
}

/// A bar has N alone, whatever the count of stations says.
SpectrumMember ReadMember(CResultWords& words) {
  SpectrumMember member;
  member.nElement = words.Number<int>();
  member.nType = words.Number<int>();
  const int nStations = words.Number<int>();
  if (member.nType == c_nBar) {
    member.stations.push_back({words.Number<double>()});
    return member;
  }
  for (int p = 0; p < nStations && !words.HasFailed(); ++p) {
    for (double& dValue : member.stations.emplace_back()) dValue = words.Number<double>();
  }
  return member;
}

SpectrumSupport ReadSupport(CResultWords& words, std::span<const JobNode> nodes) {
  SpectrumSupport support;
  support.nNode = words.Number<int>();
  words.Expect(support.nNode >= 1 && support.nNode <= std::ssize(nodes));
  if (!words.HasFailed()) support.forces = ReadNodeValues(words, nodes[static_cast<std::size_t>(support.nNode - 1)]);
  return support;
}

void ReadModes(CResultWords& words, SpectrumResultFile& file) {
  file.gamma = ReadList(words, c_strModeMasses);
  words.Skip(1);
  file.masses = ReadList(words, c_strComputedMass);
  file.dComputedMass = words.NumberBehind<double>(c_strComputedMass);
  file.dTotalMass = words.NumberBehind<double>("总参与质量:");
  file.damping = ReadList(words, c_strCombination);
  words.Expect(file.masses.size() == file.gamma.size() && file.damping.size() == file.gamma.size());
  words.Skip(1);
  const auto it = std::ranges::find(c_strModalCombinations, words.Word());
  words.Expect(it != c_strModalCombinations.end());
  file.nCombination = static_cast<int>(it - c_strModalCombinations.begin());
}

}  // namespace

Reading<SpectrumResultFile> ReadSpectrumResultFile(const std::string& strPath, const std::vector<JobNode>& nodes) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    SpectrumResultFile file;
    file.nElements = ReadHead(words, "The_Data_of_Zan's_Spectrum_Analysis", nodes);
    file.nFileModes = words.Number<int>();
    ReadModes(words, file);
    words.Expect(words.Word() == "Node_Dis:");
    file.displacements = ReadNodes(words, nodes);
    words.Expect(words.Word() == "Force:");
    while (!words.HasFailed() && words.Peek() != "Support:") file.members.push_back(ReadMember(words));
    words.Skip(1);
    do {
      file.supports.push_back(ReadSupport(words, nodes));
    } while (!words.Peek().empty());
    return file;
  });
}

Reading<VirtualModeFile> ReadVirtualModeFile(const std::string& strPath, const std::vector<JobNode>& nodes) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    VirtualModeFile file;
    words.Expect(words.Word() == "虚拟频率");
    file.omega = words.Number<double>();
    file.dHertz = words.Number<double>();
    words.Expect(words.Word() == "虚拟振型");
    file.shape = ReadNodes(words, nodes);
    return file;
  });
}

Reading<VirtualResponseFile> ReadVirtualResponseFile(const std::string& strPath) {
  return ReadResultFile(strPath, [](CResultWords& words) {
    VirtualResponseFile file;
    words.Expect(words.Word() == "虚拟振型");
    for (double* const pValue : {&file.gamma, &file.alpha, &file.dFactor}) *pValue = words.Number<double>();
    return file;
  });
}

}  // namespace skyframe::host
