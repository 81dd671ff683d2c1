#include "skyframe/model/Material.h"

#include "texts.h"

namespace skyframe {

const MaterialList* g_pMaterials = nullptr;

void CMaterial::SetProperties(double dE, double dNu, double /*dUnitWeight*/, double /*dReserved1*/,
                              double /*dReserved2*/, double /*dReserved3*/) {
  m_dE = dE;
  m_dUnitWeight = dNu;
}

void CLinearElastic::SetProperties(double dE, double dNu, double dUnitWeight, double /*dReserved1*/,
                                   double /*dReserved2*/, double /*dReserved3*/) {
  m_dE = dE;
  m_dNu = dNu;
  m_dUnitWeight = dUnitWeight;
}

void CLinearElastic::WriteMaterial(CTextWriter& out) const {
  out.Text(texts::c_strMaterialKind).Text(GetKindName());
  out.Text(texts::c_strElasticModulus).General(m_dE);
  out.Text(texts::c_strUnitWeight).General(m_dUnitWeight);
  out.Text(texts::c_strPoissonRatio).General(m_dNu).EndLine();
}

}  // namespace skyframe
