#include "Shape.h"

#include <algorithm>
#include <cmath>
#include <istream>
#include <memory>
#include <optional>

#include "StaticResultFile.h"
#include "skyframe/platform/NumberText.h"
#include "skyframe/platform/Platform.h"
#include "texts.h"

namespace skyframe::gui {

namespace {

constexpr std::size_t c_nMostModes = 10000;

/// Words of a mode file.
class CModeWords {
 public:
  explicit CModeWords(const std::string& strPath)
      : m_pFile(GetPlatform().OpenForReading(strPath)), m_strm(m_pFile ? m_pFile->rdbuf() : nullptr) {}

  bool SkipTo(std::string_view strWord) {
    for (std::string strRead; m_strm >> strRead;) {
      if (strRead == strWord) return true;
    }
    return false;
  }
  void Skip(int nWords) {
    std::string strWord;
    while (nWords-- > 0) m_strm >> strWord;
  }
  template <class T>
  T Read() {
    T value{};
    m_strm >> value;
    return value;
  }
  [[nodiscard]] bool IsGood() const { return !m_strm.fail(); }

 private:
  std::unique_ptr<std::istream> m_pFile;  ///< null: not there
  std::istream m_strm;
};

std::string DescribeMode(std::size_t nMode, double dFrequency) {
  std::string strText = std::string(texts::c_strMode) + " " + std::to_string(nMode);
  strText += "   f = " + FormatGeneral(dFrequency) + " Hz";
  if (dFrequency > 0.0) strText += "   T = " + FormatGeneral(1.0 / dFrequency) + " s";
  return strText;
}

/// One block: "Node_DOF_When_FREQ_k:", the frequency, a line a node.
std::optional<Shape> ReadMode(CModeWords& words, std::size_t nMode, const std::vector<bool>& rigidJoints) {
  Shape shape;
  shape.bMode = true;
  shape.bRotations = true;
  words.Skip(1);
  shape.strTitle = DescribeMode(nMode, words.Read<double>());
  shape.values.resize(rigidJoints.size());
  for (std::size_t i = 0; i < rigidJoints.size() && words.IsGood(); ++i) {
    words.Skip(1);  // the node number; lines stand in host order
    for (std::size_t k = 0; k < (rigidJoints[i] ? 6U : 3U); ++k) shape.values[i][k] = words.Read<double>();
  }
  return words.IsGood() ? std::optional(std::move(shape)) : std::nullopt;
}

void AppendStatic(const std::string& strPath, std::string_view strTitle, std::size_t nNodes,
                  std::vector<Shape>& shapes) {
  const auto result = host::ReadStaticResultFile(strPath);
  if (!result || result->displacements.size() != nNodes) return;
  Shape shape;
  shape.strTitle = strTitle;
  for (const std::array<double, 3>& u : result->displacements) shape.values.push_back({u[0], u[1], u[2]});
  shapes.push_back(std::move(shape));
}

}  // namespace

double Shape::GetLargestTranslation() const {
  double dLargest = 0.0;
  for (const auto& u : values) dLargest = std::max(dLargest, std::hypot(u[0], u[1], u[2]));
  return dLargest;
}

std::vector<Shape> ReadModeShapes(const std::string& strPath, const std::vector<bool>& rigidJoints) {
  CModeWords words(strPath);
  words.Skip(5);  // signature, date, time, version, count of elements
  const bool bFits = words.Read<std::size_t>() == rigidJoints.size();
  words.Skip(2);
  const auto nModes = words.Read<std::size_t>();
  if (!words.IsGood() || !bFits || nModes > c_nMostModes || !words.SkipTo("Eigen_And_Freq:")) return {};
  for (std::size_t k = 0; k < 3 * nModes; ++k) words.Skip(1);
  std::vector<Shape> shapes;
  for (std::size_t nMode = 1; nMode <= nModes; ++nMode) {
    std::optional<Shape> shape = ReadMode(words, nMode, rigidJoints);
    if (!shape) return {};
    shapes.push_back(std::move(*shape));
  }
  return shapes;
}

std::vector<Shape> ReadShapes(const std::string& strJobPath, const std::vector<bool>& rigidJoints) {
  std::vector<Shape> shapes;
  AppendStatic(strJobPath + "_StaticLinearSol.txt", texts::c_strLinearState, rigidJoints.size(), shapes);
  AppendStatic(strJobPath + "_StaticNonlinearSol.txt", texts::c_strNonlinearState, rigidJoints.size(), shapes);
  std::vector<Shape> modes = ReadModeShapes(strJobPath + ".mode", rigidJoints);
  std::move(modes.begin(), modes.end(), std::back_inserter(shapes));
  return shapes;
}

}  // namespace skyframe::gui
