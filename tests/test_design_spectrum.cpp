// Design spectrum: tables, damping corrections, the four segments and their ends, order of the checks.

#include <gtest/gtest.h>

#include <cmath>

#include "skyframe/modal/DesignSpectrum.h"

namespace skyframe::test {
namespace {

TEST(DesignSpectrum, WorkedValues) {
  struct Case {
    double dAlphaMax, dTg, dZeta, T, dAlpha;
  };
  const Case cases[] = {
      {0.08, 0.35, 0.05, 0.05, 0.058},          {0.08, 0.35, 0.05, 0.2, 0.08},
      {0.08, 0.35, 0.05, 1.0, 0.0310993},       {0.08, 0.35, 0.05, 3.0, 0.0167939},
      {0.08, 0.35, 0.02, 0.2, 0.1055319},       {0.08, 0.35, 0.02, 1.0, 0.0389268},
      {0.08, 0.35, 0.02, 3.0, 0.0205001},       {0.72, 0.55, 0.05, 1.0, 0.4203963},
      {0.08, 0.35, 0.05, 0.0198174, 0.0447196}, {0.08, 0.35, 0.05, 0.0, 0.45 * 0.08},
      {0.08, 0.35, 0.02, 0.0, 0.45 * 0.08},     {0.08, 0.35, 0.05, 1e9, 0.0},
  };
  for (const Case& c : cases) {
    EXPECT_NEAR(CDesignSpectrum(c.dAlphaMax, c.dTg).GetAlpha(c.T, c.dZeta), c.dAlpha, 6e-8) << "T = " << c.T;
  }
}

TEST(DesignSpectrum, TablesOfIntensityAndSite) {
  const double c_dFrequent[] = {0.04, 0.08, 0.12, 0.16, 0.24, 0.32};
  const double c_dRare[] = {0.0, 0.50, 0.72, 0.90, 1.20, 1.40};
  const double c_dTg[3][4] = {{0.25, 0.35, 0.45, 0.65}, {0.30, 0.40, 0.55, 0.75}, {0.35, 0.45, 0.65, 0.90}};
  for (int nIntensity = 6; nIntensity <= 11; ++nIntensity) {
    EXPECT_EQ(CDesignSpectrum(SpectrumSite{0, nIntensity, 1, 1}).GetAlphaMax(), c_dFrequent[nIntensity - 6]);
    if (nIntensity == 6) continue;
    EXPECT_EQ(CDesignSpectrum(SpectrumSite{1, nIntensity, 1, 1}).GetAlphaMax(), c_dRare[nIntensity - 6]);
  }
  for (int nGroup = 1; nGroup <= 3; ++nGroup) {
    for (int nClass = 1; nClass <= 4; ++nClass) {
      for (const int nLevel : {0, 1}) {  // Deliberate: the rare earthquake does not lengthen Tg
        EXPECT_EQ(CDesignSpectrum(SpectrumSite{nLevel, 8, nGroup, nClass}).GetTg(), c_dTg[nGroup - 1][nClass - 1]);
      }
    }
  }
}

TEST(DesignSpectrum, DampingFactorsAndTheirFloors) {
  struct Case {
    double dZeta, dGamma, dEta1, dEta2;
  };
  const Case cases[] = {
      {0.05, 0.9, 0.02, 1.0},       {0.02, 0.95, 0.02375, 1.3191489},  {0.0, 1.0, 0.02625, 1.8333333},
      {0.20, 0.8, 0.00125, 0.625},  {0.21, 0.7967742, 0.0, 0.6163070}, {0.30, 0.775, 0.0, 0.5614035},
      {0.33, 0.7697674, 0.0, 0.55}, {1.0, 0.7272727, 0.0, 0.55},
  };
  for (const Case& c : cases) {
    const DampingFactors factors = FormDampingFactors(c.dZeta);
    EXPECT_NEAR(factors.dGamma, c.dGamma, 1e-7) << c.dZeta;
    EXPECT_NEAR(factors.dEta1, c.dEta1, 1e-12) << c.dZeta;
    EXPECT_NEAR(factors.dEta2, c.dEta2, 1e-7) << c.dZeta;
  }
}

TEST(DesignSpectrum, SegmentsMeetAndEndsBelongToTheRight) {
  for (const double Tg : {0.25, 0.35, 0.90}) {
    for (const double zeta : {0.02, 0.05, 0.25}) {
      SCOPED_TRACE(testing::Message() << "Tg " << Tg << ", zeta " << zeta);
      const CDesignSpectrum spectrum(0.08, Tg);
      const double eta2 = FormDampingFactors(zeta).dEta2;
      for (const double T : {0.1, Tg, 5.0 * Tg}) {
        EXPECT_NEAR(spectrum.GetAlpha(std::nextafter(T, 0.0), zeta), spectrum.GetAlpha(T, zeta), 1e-14);
      }
      EXPECT_EQ(spectrum.GetAlpha(0.1, zeta), eta2 * 0.08);
      EXPECT_EQ(spectrum.GetAlpha(Tg, zeta), eta2 * 0.08);
      EXPECT_GT(spectrum.GetAlpha(std::nextafter(6.0, 0.0), zeta), 0.0);
      EXPECT_EQ(spectrum.GetAlpha(6.0, zeta), 0.0);
      // curve before 5 Tg, straight line behind it
      const double h = 0.05;
      const double dBend = spectrum.GetAlpha(5.0 * Tg, zeta) - 2.0 * spectrum.GetAlpha(5.0 * Tg + h, zeta) +
                           spectrum.GetAlpha(5.0 * Tg + 2.0 * h, zeta);
      EXPECT_NEAR(dBend, 0.0, 1e-15);
      EXPECT_GT(spectrum.GetAlpha(3.0 * Tg, zeta) - 2.0 * spectrum.GetAlpha(3.0 * Tg + h, zeta) +
                    spectrum.GetAlpha(3.0 * Tg + 2.0 * h, zeta),
                1e-6);
    }
  }
}

TEST(DesignSpectrum, SiteChecksComeInOrder) {
  struct Case {
    SpectrumSite site;
    const char* pMessage;
  };
  const Case cases[] = {
      {{2, 5, 0, 0}, "地震类型输入错误，请检查!"},
      {{-1, 7, 1, 1}, "地震类型输入错误，请检查!"},
      {{1, 5, 0, 0}, "地震烈度输入错误，请检查!"},
      {{0, 12, 1, 1}, "地震烈度输入错误，请检查!"},
      {{1, 6, 0, 0}, "6度地震不进行罕遇验算!"},
      {{0, 6, 0, 0}, "分组类型选择错误!"},
      {{1, 7, 4, 0}, "分组类型选择错误!"},
      {{0, 7, 3, 0}, "场地类型选择错误!"},
      {{0, 11, 1, 5}, "场地类型选择错误!"},
      {{0, 6, 1, 1}, nullptr},
      {{1, 11, 3, 4}, nullptr},
  };
  for (const Case& c : cases) {
    const auto strError = FindSiteError(c.site);
    EXPECT_EQ(strError.value_or(""), c.pMessage ? c.pMessage : "");
  }
}

TEST(DesignSpectrum, DirectionIsNormalised) {
  const auto unit = NormaliseDirection({3.0, 0.0, -4.0});
  ASSERT_TRUE(unit);
  EXPECT_NEAR((*unit)[0], 0.6, 1e-16);
  EXPECT_NEAR((*unit)[2], -0.8, 1e-16);
  for (const double dScale : {1e-200, 1e200}) {  // neither underflow nor overflow on the way
    EXPECT_NEAR(NormaliseDirection({dScale, dScale, 0.0}).value()[1], std::sqrt(0.5), 1e-15);
  }
  EXPECT_FALSE(NormaliseDirection({0.0, 0.0, 0.0}));
  EXPECT_FALSE(NormaliseDirection({std::nan(""), 0.0, 0.0}));
  EXPECT_FALSE(NormaliseDirection({HUGE_VAL, 0.0, 0.0}));
}

TEST(DesignSpectrum, DampingInterpolatedThroughTwoModes) {
  // omega 10 and 25, zeta 0.02 and 0.03: a = 0.1904762, b = 0.00209524
  const std::vector<double> omega = {10.0, 25.0, 25.0, 50.0};
  const std::vector<double> zeta = InterpolateDamping(omega, 0.02, 0.03);
  EXPECT_EQ(zeta[0], 0.02);
  EXPECT_EQ(zeta[1], 0.03);
  EXPECT_NEAR(zeta[2], 0.03, 1e-15);
  EXPECT_NEAR(zeta[3], (0.1904762 / 50.0 + 0.00209524 * 50.0) / 2.0, 1e-7);
  // the second mode repeats the first: the curve goes through the first one that differs
  const std::vector<double> repeated = InterpolateDamping(std::vector<double>{10.0, 10.0, 25.0}, 0.02, 0.03);
  EXPECT_NEAR(repeated[2], 0.03, 1e-15);
  EXPECT_EQ(InterpolateDamping(std::vector<double>{10.0, 10.0, 10.0}, 0.02, 0.03)[2], 0.02);
}

}  // namespace
}  // namespace skyframe::test
