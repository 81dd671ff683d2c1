#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "skyframe/model/Material.h"

namespace skyframe {
namespace {

std::string WriteLine(const CMaterial& material) {
  std::ostringstream strm;
  CTextWriter out(strm);
  material.WriteMaterial(out);
  out.Flush();
  return strm.str();
}

TEST(Material, LinesDifferInTheKindOnly) {
  CSteel steel;
  CConcrete concrete;
  for (CMaterial* pMaterial : {static_cast<CMaterial*>(&steel), static_cast<CMaterial*>(&concrete)}) {
    pMaterial->SetProperties(2.06e11, 0.3, 7900.0, 1.0, 2.0, 3.0);
    EXPECT_EQ(pMaterial->GetElasticModulus(), 2.06e11);
    EXPECT_EQ(pMaterial->GetPoissonRatio(), 0.3);
    EXPECT_EQ(pMaterial->GetUnitWeight(), 7900.0);
  }
  EXPECT_EQ(WriteLine(steel), "材料类型: Steel  初始弹性模量: 2.06e+11  材料容重: 7900  泊松比: 0.3\n");
  EXPECT_EQ(WriteLine(concrete), "材料类型: Concrete  初始弹性模量: 2.06e+11  材料容重: 7900  泊松比: 0.3\n");
}

TEST(Material, ReservedQueriesAnswerZero) {
  CSteel steel;
  steel.SetProperties(2.06e11, 0.3, 7900.0, 1.0, 2.0, 3.0);
  for (const double dValue : {steel.GetYieldStress(), steel.GetUltimateStress(), steel.GetYieldStrain(),
                              steel.GetUltimateStrain(), steel.GetTangentModulus(), steel.GetHardeningModulus()}) {
    EXPECT_EQ(dValue, 0.0);
  }
}

/// A kind that keeps the base version of SetProperties.
class CPlainMaterial : public CLinearElastic {
 public:
  void SetProperties(double a, double b, double c, double d, double e, double f) override {
    CMaterial::SetProperties(a, b, c, d, e, f);
  }

 protected:
  [[nodiscard]] std::string_view GetKindName() const override { return "Plain"; }
};

TEST(Material, BaseVersionPutsTheSecondValueIntoTheUnitWeight) {
  CPlainMaterial material;
  material.SetProperties(10.0, 20.0, 30.0, 40.0, 50.0, 60.0);
  EXPECT_EQ(material.GetElasticModulus(), 10.0);
  EXPECT_EQ(material.GetPoissonRatio(), 0.0);
  EXPECT_EQ(material.GetUnitWeight(), 20.0);
}

}  // namespace
}  // namespace skyframe
