#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "skyframe/platform/TextWriter.h"

namespace skyframe {

/// Linear elastic material. E in N/m2; the unit weight serves directly as mass density, kg/m3.
class CMaterial {
 public:
  CMaterial() = default;
  CMaterial(const CMaterial&) = delete;
  CMaterial& operator=(const CMaterial&) = delete;

  /// One line.
  virtual void WriteMaterial(CTextWriter& out) const = 0;
  /// Deliberate: this base version puts its second argument into the unit weight.
  virtual void SetProperties(double dE, double dNu, double dUnitWeight, double dReserved1, double dReserved2,
                             double dReserved3);
  [[nodiscard]] virtual double GetElasticModulus() const = 0;

  // Room for a material law: every query answers 0.
  [[nodiscard]] virtual double GetYieldStress() const = 0;
  [[nodiscard]] virtual double GetUltimateStress() const = 0;
  [[nodiscard]] virtual double GetYieldStrain() const = 0;
  [[nodiscard]] virtual double GetUltimateStrain() const = 0;
  [[nodiscard]] virtual double GetTangentModulus() const = 0;
  [[nodiscard]] virtual double GetHardeningModulus() const = 0;

  virtual ~CMaterial() = default;

  [[nodiscard]] double GetPoissonRatio() const { return m_dNu; }
  [[nodiscard]] double GetUnitWeight() const { return m_dUnitWeight; }

 protected:
  double m_dE = 0.0;
  double m_dNu = 0.0;
  std::array<double, 2> m_reserved = {};  ///< neither set nor read
  double m_dUnitWeight = 0.0;
};

/// Concrete and steel behave alike; they differ in the word of their output line.
class CLinearElastic : public CMaterial {
 public:
  void WriteMaterial(CTextWriter& out) const override;
  void SetProperties(double dE, double dNu, double dUnitWeight, double dReserved1, double dReserved2,
                     double dReserved3) override;
  [[nodiscard]] double GetElasticModulus() const override { return m_dE; }
  [[nodiscard]] double GetYieldStress() const override { return 0.0; }
  [[nodiscard]] double GetUltimateStress() const override { return 0.0; }
  [[nodiscard]] double GetYieldStrain() const override { return 0.0; }
  [[nodiscard]] double GetUltimateStrain() const override { return 0.0; }
  [[nodiscard]] double GetTangentModulus() const override { return 0.0; }
  [[nodiscard]] double GetHardeningModulus() const override { return 0.0; }

 protected:
  [[nodiscard]] virtual std::string_view GetKindName() const = 0;
};

class CConcrete final : public CLinearElastic {
 protected:
  [[nodiscard]] std::string_view GetKindName() const override { return "Concrete"; }
};

class CSteel final : public CLinearElastic {
 protected:
  [[nodiscard]] std::string_view GetKindName() const override { return "Steel"; }
};

using MaterialList = std::vector<std::unique_ptr<CMaterial>>;

/// List that element code reads; published by the model build, null when there is none.
extern const MaterialList* g_pMaterials;

}  // namespace skyframe
