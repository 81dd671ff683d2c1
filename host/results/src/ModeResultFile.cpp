#include "skyframe/results/ModeResultFile.h"

#include "ResultFile.h"

namespace skyframe::host {

namespace {

std::vector<double> ReadFrequencies(CResultWords& words, int nModes) {
  std::vector<double> omega;
  words.Expect(words.Word() == "Eigen_And_Freq:");
  for (int i = 0; i < nModes && !words.HasFailed(); ++i) {
    words.Skip(1);
    omega.push_back(words.Number<double>());
    words.Skip(1);
  }
  return omega;
}

/// One block: its mark, the frequency, a line a node in host order. Node numbers are those of a renumbering.
std::vector<NodeValues> ReadShape(CResultWords& words, const std::vector<JobNode>& nodes) {
  std::vector<NodeValues> shape;
  words.Skip(2);
  for (std::size_t i = 0; i < nodes.size() && !words.HasFailed(); ++i) {
    words.Skip(1);
    shape.push_back(ReadNodeValues(words, nodes[i]));
  }
  return shape;
}

}  // namespace

Reading<ModeResultFile> ReadModeResultFile(const std::string& strPath, const std::vector<JobNode>& nodes) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    ModeResultFile file;
    file.nElements = ReadHead(words, "The_Data_of_Zan's_Mode_Analysis", nodes);
    const int nModes = words.Number<int>();
    words.Expect(nModes > 0);
    file.bShear = words.Number<int>() != 0;
    file.omega = ReadFrequencies(words, nModes);
    for (int i = 0; i < nModes && !words.HasFailed(); ++i) file.shapes.push_back(ReadShape(words, nodes));
    return file;
  });
}

}  // namespace skyframe::host
