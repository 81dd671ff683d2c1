// Design spectrum: tables, damping corrections, the four segments and their ends, order of the checks.

#include "TestPlatform.h"
#include "skyframe/modal/DesignSpectrum.h"

namespace skyframe::test {
namespace {

TEST(DesignSpectrum, WorkedValues) {
  struct Case {
    double dAlphaMax, dTg, dZeta, T, dAlpha;
  };
  const Case cases[] = {
      {0.08, 0.35, 0.05, 0.2, 0.08},        {0.08, 0.35, 0.05, 1.0, 0.0310993},
      {0.08, 0.35, 0.02, 0.2, 0.1055319},   {0.08, 0.35, 0.02, 1.0, 0.0389268},
      {0.08, 0.35, 0.02, 3.0, 0.0205001},   {0.72, 0.55, 0.05, 1.0, 0.4203963},
      {0.08, 0.35, 0.05, 0.0, 0.45 * 0.08}, {0.08, 0.35, 0.05, 0.0198174, 0.0447196},
      {0.08, 0.35, 0.02, 0.0, 0.45 * 0.08},
  };
  for (const Case& c : cases) {
    EXPECT_NEAR(CDesignSpectrum(c.dAlphaMax, c.dTg).GetAlpha(c.T, c.dZeta), c.dAlpha, 6e-8) << "T = " << c.T;
  }
}

TEST(DesignSpectrum, TablesAndConstants) {
  EXPECT_EQ(c_dTwoPi, 6.2831852);  // Deliberate: truncated
  EXPECT_EQ(c_dSpectrumGravity, 9.8);
  const double c_dFrequent[] = {0.04, 0.08, 0.12, 0.16, 0.24, 0.32};
  const double c_dRare[] = {0.50, 0.72, 0.90, 1.20, 1.40};  // from the second intensity on
  const double c_dTg[3][4] = {{0.25, 0.35, 0.45, 0.65}, {0.30, 0.40, 0.55, 0.75}, {0.35, 0.45, 0.65, 0.90}};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(CDesignSpectrum(SpectrumSite{0, 6 + i, 1, 1}).GetAlphaMax(), c_dFrequent[i]);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(CDesignSpectrum(SpectrumSite{1, 7 + i, 1, 1}).GetAlphaMax(), c_dRare[i]);
  for (int k = 0; k < 24; ++k) {  // Deliberate: the rare earthquake does not lengthen Tg
    const int nGroup = k / 4 % 3, nClass = k % 4;
    EXPECT_EQ(CDesignSpectrum(SpectrumSite{k / 12, 8, nGroup + 1, nClass + 1}).GetTg(), c_dTg[nGroup][nClass]);
  }
}

TEST(DesignSpectrum, DampingFactorsAndTheirFloors) {
  constexpr double c_cases[][4] = {
      {0.0, 1.0, 0.02625, 1.8333333}, {0.20, 0.8, 0.00125, 0.625}, {0.33, 0.7697674, 0.0, 0.55}};
  for (const auto& [dZeta, dExpectedGamma, dExpectedEta1, dExpectedEta2] : c_cases) {
    const auto [dGamma, dEta1, dEta2] = FormDampingFactors(dZeta);
    EXPECT_NEAR(dGamma, dExpectedGamma, 1e-7) << dZeta;
    EXPECT_NEAR(dEta1, dExpectedEta1, 1e-12) << dZeta;
    EXPECT_NEAR(dEta2, dExpectedEta2, 1e-7) << dZeta;
  }
}

TEST(DesignSpectrum, SegmentsMeetAndEndsBelongToTheRight) {
  for (const auto& [Tg, zeta] : {std::pair{0.25, 0.02}, {0.35, 0.05}, {0.90, 0.25}}) {
    const CDesignSpectrum spectrum(0.08, Tg);
    const double dPlateau = FormDampingFactors(zeta).dEta2 * 0.08;
    for (const double T : {0.1, Tg, 5.0 * Tg}) {
      EXPECT_NEAR(spectrum.GetAlpha(std::nextafter(T, 0.0), zeta), spectrum.GetAlpha(T, zeta), 1e-14) << T;
    }
    EXPECT_EQ(spectrum.GetAlpha(0.1, zeta), dPlateau);
    EXPECT_EQ(spectrum.GetAlpha(Tg, zeta), dPlateau);
    EXPECT_GT(spectrum.GetAlpha(std::nextafter(6.0, 0.0), zeta), 0.0);
    EXPECT_EQ(spectrum.GetAlpha(6.0, zeta), 0.0);
  }
}

TEST(DesignSpectrum, SiteChecksComeInOrder) {
  const std::pair<SpectrumSite, std::string_view> cases[] = {
      {{2, 5, 0, 0}, "地震类型输入错误，请检查!"},
      {{-1, 7, 1, 1}, "地震类型输入错误，请检查!"},
      {{1, 5, 0, 0}, "地震烈度输入错误，请检查!"},
      {{0, 12, 1, 1}, "地震烈度输入错误，请检查!"},
      {{1, 6, 0, 0}, "6度地震不进行罕遇验算!"},
      {{0, 6, 0, 0}, "分组类型选择错误!"},
      {{1, 7, 4, 0}, "分组类型选择错误!"},
      {{0, 7, 3, 0}, "场地类型选择错误!"},
      {{0, 11, 1, 5}, "场地类型选择错误!"},
      {{0, 6, 1, 1}, ""},
      {{1, 11, 3, 4}, ""},
  };
  for (const auto& [site, strMessage] : cases) EXPECT_EQ(FindSiteError(site).value_or(""), strMessage);
}

TEST(DesignSpectrum, DirectionIsNormalised) {
  EXPECT_NEAR(NormaliseDirection({3.0, 0.0, -4.0}).value()[2], -0.8, 1e-16);
  for (const double dScale : {1e-200, 1e200}) {  // neither underflow nor overflow on the way
    EXPECT_NEAR(NormaliseDirection({dScale, dScale, 0.0}).value()[1], std::sqrt(0.5), 1e-15);
  }
  for (const double d : {0.0, std::nan(""), HUGE_VAL}) EXPECT_FALSE(NormaliseDirection({d, 0.0, 0.0})) << d;
}

TEST(DesignSpectrum, DampingOfALaterModeFollowsTheCurveOfTwo) {
  const std::vector<double> zeta = InterpolateDamping(std::vector{10.0, 25.0, 25.0, 50.0}, 0.02, 0.03);
  EXPECT_EQ(zeta[1], 0.03);
  EXPECT_NEAR(zeta[3], (0.1904762 / 50.0 + 0.00209524 * 50.0) / 2.0, 1e-7);
  EXPECT_EQ(InterpolateDamping(std::vector{10.0, 10.0, 10.0}, 0.02, 0.03)[2], 0.02);  // no second one
}

}  // namespace
}  // namespace skyframe::test
