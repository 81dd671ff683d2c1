#include <algorithm>
#include <cmath>
#include <memory>

#include "ResultHeader.h"
#include "skyframe/model/AnalysisModel.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/platform/Progress.h"
#include "skyframe/platform/WordReader.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe {
namespace {

bool Fail(std::string_view strText) {
  GetPlatform().ShowMessage(strText);
  return false;
}

/// Counts of elements, nodes, rigid and other nodes. Deliberate: nothing else identifies the model.
bool ReadCounts(CWordReader& reader, const CAnalysisModel& model) {
  const CNodeTable& nodes = model.GetNodes();
  bool bSame = true;
  for (const int nExpected : {static_cast<int>(model.GetElements().size()), nodes.GetNodeCount(), nodes.GetRigidCount(),
                              nodes.GetPinnedCount()}) {
    int nCount = 0;
    reader.Read(nCount);
    bSame = bSame && nCount == nExpected;
  }
  if (!bSame) return Fail(texts::c_strModeFileCounts);
  return !reader.HasFailed() || Fail(texts::c_strModeFileRead);
}

/// Its square neither under- nor overflows.
bool HasSquare(double d) { return std::isnormal(d * d); }

bool IsFrequency(double w) { return w > 0.0 && HasSquare(w); }

bool IsShape(const std::vector<double>& shape) {
  return std::ranges::all_of(shape, [](double d) { return d == 0.0 || HasSquare(d); });
}

bool SkipToFrequencies(CWordReader& reader) {
  while (!reader.HasFailed()) {
    if (reader.Next() == texts::c_strFrequencyMark) return true;
  }
  return Fail(texts::c_strModeFileRead);
}

/// From the first line up to the frequency list.
bool ReadHead(CWordReader& reader, CAnalysisModel& model) {
  if (reader.Next() != texts::c_strModeHeader) return Fail(texts::c_strModeFileForeign);
  reader.Skip(3);  // date, time, version: none of them is checked
  if (!ReadCounts(reader, model)) return false;
  reader.Read(model.m_nModes);
  if (reader.HasFailed()) return Fail(texts::c_strModeFileRead);
  if (model.m_nModes < model.m_nExpandModes) return Fail(texts::c_strTooManyExpanded);
  if (model.m_nModes <= 0) return Fail(texts::c_strModeFileCounts);
  reader.Read(model.m_bShear);
  return SkipToFrequencies(reader);
}

/// Anything but a finite number fails.
double ReadFinite(CWordReader& reader) {
  double dValue = 0.0;
  reader.Read(dValue);
  reader.Expect(std::isfinite(dValue));
  return dValue;
}

/// The first nKept of n frequencies; the list grows with what is there, whatever n says.
std::vector<double> ReadFrequencyList(CWordReader& reader, int nKept, int n) {
  std::vector<double> omega;
  for (int i = 0; i < n && !reader.HasFailed(); ++i) {
    ReadFinite(reader);  // number
    const double dOmega = ReadFinite(reader);
    ReadFinite(reader);  // Hz
    if (i < nKept) omega.push_back(dOmega);
  }
  return omega;
}

/// One block: the free equations of the shape. Records belong to nodes by position; restrained DOFs and
/// unused nodes are read over.
std::vector<double> ReadShape(CWordReader& reader, const CAnalysisModel& model) {
  const CNodeTable& nodes = model.GetNodes();
  std::vector<double> shape(static_cast<std::size_t>(model.GetFreeDofs()), 0.0);
  reader.Skip(1);
  ReadFinite(reader);  // Hz
  for (int nNode = 0; nNode < nodes.GetNodeCount() && !reader.HasFailed(); ++nNode) {
    ReadFinite(reader);  // node
    for (int nDirection = 0; nDirection < nodes.GetDofCount(nNode); ++nDirection) {
      const double dValue = ReadFinite(reader);
      const int e = nodes.FindDof(nNode, nDirection);
      if (e >= 0 && e < model.GetFreeDofs()) shape[static_cast<std::size_t>(e)] = dValue;
    }
  }
  return shape;
}

CMatrix FormMatrix(const std::vector<std::vector<double>>& columns, int nRows, int nCols) {
  CMatrix A(nRows, nCols, 0.0);
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    for (int k = 0; k < nRows; ++k) A[k][i] = columns[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)];
  }
  return A;
}

}  // namespace

bool CAnalysisModel::ReadModeFile(const std::string& strJobPath) {
  const std::unique_ptr<std::istream> pStream =
      GetPlatform().OpenForReading(FormResultPath(strJobPath, suffix::c_strModes));
  if (!pStream) return Fail(texts::c_strModeFileAccess);
  CWordReader reader(*pStream);
  if (!ReadHead(reader, *this)) return false;

  const int k = std::max(m_nExpandModes, 0);
  std::vector<double> omega = ReadFrequencyList(reader, k, m_nModes);
  std::vector<std::vector<double>> shapes;
  CProgress progress(texts::c_strReadModes, k);
  while (static_cast<int>(shapes.size()) < k && !reader.HasFailed()) {
    shapes.push_back(ReadShape(reader, *this));
    progress.Advance();
  }
  if (reader.HasFailed()) return Fail(texts::c_strModeFileRead);
  if (!std::ranges::all_of(omega, IsFrequency) || !std::ranges::all_of(shapes, IsShape)) {
    return Fail(texts::c_strModeFileCounts);
  }

  // Room for the virtual mode.
  const int nColumns = m_bVirtualModes == 1 && k < GetFreeDofs() ? k + 1 : k;
  omega.resize(static_cast<std::size_t>(nColumns), 0.0);
  Omega = std::move(omega);
  ModeShapes = FormMatrix(shapes, GetFreeDofs(), nColumns);
  ModesSolved = 1;
  m_bFrequenciesLoaded = true;
  m_bValid = true;
  return true;
}

bool CAnalysisModel::ReadModeFrequencies(const std::string& strJobPath) {
  const std::unique_ptr<std::istream> pStream =
      GetPlatform().OpenForReading(FormResultPath(strJobPath, suffix::c_strModes));
  if (!pStream) return Fail(texts::c_strModeFileAccess);
  CWordReader reader(*pStream);
  if (!ReadHead(reader, *this)) return false;
  if (!Omega.empty() || ModesSolved != 0) return true;

  std::vector<double> omega = ReadFrequencyList(reader, m_nModes, m_nModes);
  if (reader.HasFailed()) return Fail(texts::c_strModeFileRead);
  if (!std::ranges::all_of(omega, IsFrequency)) return Fail(texts::c_strModeFileCounts);
  Omega = std::move(omega);
  return true;
}

}  // namespace skyframe
