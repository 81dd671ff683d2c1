#include "skyframe/results/HistoryResultFile.h"

#include <algorithm>
#include <map>
#include <span>
#include <utility>

#include "ResultFile.h"

namespace skyframe::host {

namespace {

using Column = std::vector<double>;

constexpr std::array<std::string_view, c_nHistoryQuantities> c_strQuantities = {"X-direction", "Y-direction",
                                                                                "Z-direction", "Element"};
constexpr int c_nDirections = c_nHistoryForce;

/// Lines up to "--"; methods and assumptions without a name have no line.
HistoryRun ReadRun(CResultWords& words, const HistoryModel& model) {
  HistoryRun run;
  words.Skip(3);
  words.Expect(words.Number<int>() == model.nNodes);
  words.Skip(3);
  words.Expect(words.Number<int>() == model.nElements);
  words.Skip(3);
  run.nSteps = words.Number<int>();
  words.Expect(run.nSteps >= 0);
  while (!words.HasFailed() && !words.Word().ends_with("(s):")) {
  }
  run.dTimeStep = words.Number<double>();
  for (std::string_view strWord; !words.HasFailed() && strWord != "--";) {
    strWord = words.Word();
    if (strWord == "Newmark.") run.nMethod = c_nNewmarkMethod;
    if (strWord == "Nonlinear.") run.nAssumption = 1;
  }
  return run;
}

/// The label and the step's number, which may stand in the same word.
void SkipTimePoint(CResultWords& words, std::string_view strLabel) {
  const std::string_view strWord = words.Word();
  const bool bNumber = strWord.size() > strLabel.size();
  words.Expect(strWord.starts_with(strLabel));
  if (!bNumber) words.Skip(1);
}

/// Blocks of the nodes, then of the elements. getColumns(bElement, i) returns where the values go: a column a
/// quantity, or none for a block that is passed over.
template <class GetColumns>
void ReadBlocks(CResultWords& words, const HistoryModel& model, int nSteps, GetColumns getColumns) {
  for (const bool bElement : {false, true}) {
    for (int i = 0; i < (bElement ? model.nElements : model.nNodes) && !words.HasFailed(); ++i) {
      words.Expect(words.Word() == (bElement ? "Mem" : "Node"));
      words.Skip(1);
      words.Expect(words.Number<int>() == i + 1);
      const std::span<Column> columns = getColumns(bElement, i);
      for (int k = 0; k < nSteps && !words.HasFailed(); ++k) {
        SkipTimePoint(words, "Time.");
        if (columns.empty()) words.Skip(bElement ? 1 : c_nDirections);
        for (Column& values : columns) values.push_back(words.Number<double>());
      }
    }
  }
}

}  // namespace

Reading<HistoryResultFile> ReadHistoryFile(const std::string& strPath, const HistoryModel& model) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    HistoryResultFile file{ReadRun(words, model), {}, {}};
    ReadBlocks(words, model, file.nSteps, [&](bool bElement, int /*i*/) -> std::span<Column> {
      if (bElement) return {&file.forces.emplace_back(), 1};
      return file.displacements.emplace_back();
    });
    return file;
  });
}

Reading<std::vector<SingleHistory>> ReadHistories(const std::string& strPath, const HistoryModel& model,
                                                  std::span<const HistoryChoice> choices) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    const HistoryRun run = ReadRun(words, model);
    std::map<std::pair<bool, int>, std::array<Column, c_nDirections>> wanted;  // by kind and host number
    for (const HistoryChoice& choice : choices) wanted[{choice.nQuantity == c_nHistoryForce, choice.nNumber}] = {};
    ReadBlocks(words, model, run.nSteps, [&](bool bElement, int i) -> std::span<Column> {
      const auto it = wanted.find({bElement, i + 1});
      if (it == wanted.end()) return {};
      return std::span(it->second).first(bElement ? 1 : c_nDirections);
    });
    std::vector<SingleHistory> histories;
    for (const auto& [nQuantity, nNumber] : choices) {
      const bool bForce = nQuantity == c_nHistoryForce;
      const Column& values = wanted[{bForce, nNumber}][bForce ? 0 : static_cast<std::size_t>(nQuantity)];
      histories.push_back({run, nQuantity, values});
    }
    return histories;
  });
}

Reading<SingleHistory> ReadHistoryExtract(const std::string& strPath, const HistoryModel& model) {
  return ReadResultFile(strPath, [&](CResultWords& words) {
    SingleHistory history{ReadRun(words, model), 0, {}};
    const auto it = std::ranges::find(c_strQuantities, words.Word());
    words.Expect(it != c_strQuantities.end());
    history.nQuantity = static_cast<int>(it - c_strQuantities.begin());
    words.Skip(history.nQuantity == c_nHistoryForce ? 2 : 1);
    for (int k = 0; k < history.nSteps && !words.HasFailed(); ++k) {
      SkipTimePoint(words, "TimePoint:");
      history.values.push_back(words.Number<double>());
    }
    return history;
  });
}

}  // namespace skyframe::host
