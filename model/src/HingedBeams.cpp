#include "skyframe/model/HingedBeams.h"

#include "BeamMatrices.h"
#include "ElementWork.h"

namespace skyframe {

namespace {

constexpr int c_placesLeft[] = {0, 1, 2, 6, 7, 8, 9, 10, 11};
constexpr int c_placesRight[] = {0, 1, 2, 3, 4, 5, 6, 7, 8};
constexpr int c_placesBoth[] = {0, 1, 2, 6, 7, 8};

}  // namespace

const CMatrix& CHingedBeam::FormHingeMap(bool bShear) const {
  CMatrix& T = GetElementWork(GetDofCount()).hingeMap;
  FormHingeMatrix(GetProperties(bShear), m_hinge, m_dofPlaces, T);
  return T;
}

void CHingedBeam::Condense(const CMatrix& full, bool bShear, CMatrix& out) const {
  FormCongruence(full, FormHingeMap(bShear), out);
}

MemberVector CHingedBeam::Expand(const MemberVector& own, bool bShear) const {
  const CMatrix& T = FormHingeMap(bShear);
  MemberVector all = {};
  for (int i = 0; i < c_nMemberDofs; ++i) {
    for (int j = 0; j < GetDofCount(); ++j) all[i] += T[i][j] * own[j];
  }
  return all;
}

CBeamHingeLeft::CBeamHingeLeft() : CHingedBeam(HingedEnd::I, c_placesLeft) {}

CBeamHingeRight::CBeamHingeRight() : CHingedBeam(HingedEnd::J, c_placesRight) {}

CBeamHingeBoth::CBeamHingeBoth() : CHingedBeam(HingedEnd::Both, c_placesBoth) {}

const CMatrix& CBeamHingeBoth::FormMassMatrix(bool bConsistent, bool bShear) const {
  const BeamProperties p = GetProperties(bShear);
  CMatrix& mass = GetElementWork(GetDofCount()).mass;
  FormBarMass(p.rho * p.A * p.L, bConsistent, mass);
  return mass;
}

const CMatrix& CBeamHingeBoth::FormLocalStiffness(bool bShear) const {
  const BeamProperties p = GetProperties(bShear);
  CMatrix& local = GetElementWork(GetDofCount()).local;
  local.Fill(0.0);
  local[0][0] = local[3][3] = p.E * p.A / p.L;
  local[0][3] = local[3][0] = -p.E * p.A / p.L;
  return local;
}

}  // namespace skyframe
