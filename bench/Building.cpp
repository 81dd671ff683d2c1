#include "Building.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "skyframe/hostdata/HostData.h"

namespace skyframe::bench {

namespace {

constexpr double c_dSpan = 6.0, c_dHeight = 3.5;
constexpr int c_nColumnSection = 102, c_nBeamSection = 202;
constexpr int c_nSeed = 20;

std::size_t Index(int i) { return static_cast<std::size_t>(i); }

void SetSection(int nGroup, double dArea, double dIx, double dIy, double dIz) {
  const int i = (nGroup - 1) * c_nShapesPerGroup + 1;
  SECT.m_fArea[i] = static_cast<float>(dArea);
  COMDAT.m_fIx[i] = static_cast<float>(dIx);
  COMDAT.m_fIy[i] = static_cast<float>(dIy);
  COMDAT.m_fIz[i] = static_cast<float>(dIz);
}

void AddBeam(int nI, int nJ, int nSection) {
  const int k = ABCD.m_nElements++;
  ABCD.m_nElementType[k] = 1;
  ABCD.m_nFirstNode[k] = nI;
  ABCD.m_nSecondNode[k] = nJ;
  ABCD.m_nSection[k] = nSection;
}

/// Every so manyth line carries beams along Y: the densest that fits.
int ChooseLineStep(const BuildingShape& shape) {
  int nStep = 1;
  const auto count = [&] {
    const int nLines = (shape.nX + nStep - 1) / nStep;
    return shape.nStoreys * (shape.nX * shape.nY + (shape.nX - 1) * shape.nY + nLines * (shape.nY - 1));
  };
  while (count() > c_nMaxElements) ++nStep;
  return nStep;
}

void AddNode(const BuildingShape& shape, int x, int y, int nLevel) {
  const int n = ++ABCD.m_nNodes;
  // Spans vary a little, so that no two modes coincide.
  ABCD.m_fX[n] = static_cast<float>(c_dSpan * x + 0.01 * x * x);
  ABCD.m_fY[n] = static_cast<float>(0.9 * c_dSpan * y + 0.02 * y * y);
  ABCD.m_fZ[n] = static_cast<float>(c_dHeight * nLevel);
  ABCD.m_nJoint[n] = 1;
  const int nClamped = nLevel == 0 ? 1 : 0;
  ABCD.m_nRestraint[n] = RestraintCode::EncodeRestraint({nClamped, nClamped, nClamped, nClamped, nClamped, nClamped});
  if (nLevel == 0 || (x + y) % 3 != 0) return;
  const int k = ABCD.m_nLoads;
  if (k >= c_nMaxLoads || shape.nStoreys < 1) return;
  ABCD.m_nLoads++;
  ABCD.m_nLoadNode[k] = n;
  ABCD.m_nLoadCode[k] = LoadCode::Encode(0, 2);
  ABCD.m_fLoadValue[k] = -50.0F;
}

}  // namespace

void FillBuilding(const BuildingShape& shape) {
  ResetHostData();
  SetSection(1, 360000, 1.8e10, 1.08e10, 1.08e10);
  SetSection(2, 180000, 4.0e9, 5.4e9, 1.35e9);
  for (int s = 0; s <= shape.nStoreys; ++s) {
    for (int y = 0; y < shape.nY; ++y) {
      for (int x = 0; x < shape.nX; ++x) AddNode(shape, x, y, s);
    }
  }
  ABCD.m_nLoadCases = 1;
  const auto node = [&](int x, int y, int s) { return (s * shape.nY + y) * shape.nX + x + 1; };
  const int nStep = ChooseLineStep(shape);
  for (int s = 1; s <= shape.nStoreys; ++s) {
    for (int y = 0; y < shape.nY; ++y) {
      for (int x = 0; x < shape.nX; ++x) {
        AddBeam(node(x, y, s - 1), node(x, y, s), c_nColumnSection);
        if (x + 1 < shape.nX) AddBeam(node(x, y, s), node(x + 1, y, s), c_nBeamSection);
        if (y + 1 < shape.nY && x % nStep == 0) AddBeam(node(x, y, s), node(x, y + 1, s), c_nBeamSection);
      }
    }
  }
}

std::unique_ptr<CAnalysisModel> BuildBuilding(const BuildingShape& shape) {
  FillBuilding(shape);
  CCommonData::OnReNodeCode();
  auto pModel = std::make_unique<CAnalysisModel>();
  pModel->BuildModelForModes(false);
  return pModel;
}

Pencil FormPencil(const CAnalysisModel& model) {
  Pencil pencil;
  pencil.n = model.GetFreeDofs();
  if (!model.AssembleStiffness(pencil.K, false, false) || !model.AssembleMass(pencil.M, false)) pencil.n = 0;
  return pencil;
}

SparseMatrix DeleteEquations(const SparseMatrix& A, int n, double dShare) {
  std::mt19937 random(c_nSeed);
  std::bernoulli_distribution isDeleted(dShare);
  std::vector<int> kept;
  std::vector<int> place(Index(n), -1);
  for (int i = 0; i < n; ++i) {
    if (isDeleted(random)) continue;
    place[Index(i)] = static_cast<int>(kept.size());
    kept.push_back(i);
  }
  std::vector<int> diag;
  for (int i = 0; i < static_cast<int>(kept.size()); ++i) {
    const int nOld = kept[Index(i)];
    const auto first = std::lower_bound(kept.begin(), kept.end(), nOld - A.GetHeights()[Index(nOld)] + 1);
    diag.push_back(i == 0 ? 0 : diag.back() + i - static_cast<int>(first - kept.begin()) + 1);
  }
  SparseMatrix B;
  B.SetProfile(static_cast<int>(diag.size()), diag);
  B.Fill(0.0);
  for (int i = 0; i < B.GetOrder(); ++i) {
    const int nOld = kept[Index(i)];
    for (int r = i - B.GetHeights()[Index(i)] + 1; r <= i; ++r) {
      B(r, i) = A.GetValues()[Index(A.GetDiagonal()[Index(nOld)] - nOld + kept[Index(r)])];
    }
  }
  return B;
}

SparseMatrix MakeRandomRagged(int n, int nMaxHeight) {
  std::mt19937 random(c_nSeed);
  std::uniform_int_distribution<int> height(1, nMaxHeight);
  std::uniform_real_distribution<double> entry(-1.0, 1.0);
  std::vector<int> diag = {0};
  for (int i = 1; i < n; ++i) diag.push_back(diag.back() + std::min(height(random), i + 1));
  SparseMatrix A;
  A.SetProfile(n, diag);
  A.Fill(0.0);
  for (int i = 0; i < n; ++i) {
    for (int r = i - A.GetHeights()[Index(i)] + 1; r < i; ++r) A(r, i) = entry(random);
    A(i, i) = 2.0 * nMaxHeight;
  }
  return A;
}

double CountOperations(const SparseMatrix& A, int n) {
  double dCount = 0.0;
  const auto top = [&](int i) { return i - A.GetHeights()[Index(i)] + 1; };
  for (int j = 0; j < n; ++j) {
    for (int i = top(j); i < j; ++i) dCount += 2.0 * std::max(0, i - std::max(top(i), top(j)));
    dCount += 3.0 * (j - top(j));
  }
  return dCount;
}

double CountEntries(const SparseMatrix& A, int n) {
  double dCount = 0.0;
  for (int i = 0; i < n; ++i) dCount += A.GetHeights()[Index(i)];
  return dCount;
}

double FormResidual(const SparseMatrix& A, const std::vector<double>& x, const std::vector<double>& b) {
  std::vector<double> Ax(x.size());
  A.MultiplyRows(x, Ax);
  double dError2 = 0.0, dNorm2 = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    dError2 += (Ax[i] - b[i]) * (Ax[i] - b[i]);
    dNorm2 += b[i] * b[i];
  }
  return std::sqrt(dError2 / dNorm2);
}

std::vector<double> MakeVector(int n, unsigned nSeed) {
  std::mt19937 random(nSeed);
  std::uniform_real_distribution<double> entry(-1.0, 1.0);
  std::vector<double> x(Index(n));
  for (double& d : x) d = entry(random);
  return x;
}

}  // namespace skyframe::bench
