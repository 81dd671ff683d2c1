#include "Figures.h"

#include <algorithm>
#include <cmath>

#include "skyframe/job/Text.h"
#include "skyframe/job/Wording.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::array<Words, c_strStructures.size()> c_structures = {{{"steel frame", "钢框架结构"},
                                                                     {"concrete frame", "钢筋混凝土框架结构"},
                                                                     {"frame-wall structure", "框架-抗震墙结构"},
                                                                     {"wall structure", "抗震墙结构"},
                                                                     {"tower", "塔架"},
                                                                     {"dome", "网壳"},
                                                                     {"other", "其他"}}};
constexpr std::array<Words, c_strIntensities.size()> c_intensities = {{{"6 (0.05g)", "6度（0.05g）"},
                                                                       {"7 (0.10g)", "7度（0.10g）"},
                                                                       {"7 (0.15g)", "7度（0.15g）"},
                                                                       {"8 (0.20g)", "8度（0.20g）"},
                                                                       {"8 (0.30g)", "8度（0.30g）"},
                                                                       {"9 (0.40g)", "9度（0.40g）"}}};
constexpr std::array<Words, 2> c_levels = {{{"frequent", "多遇地震"}, {"rare", "罕遇地震"}}};
constexpr std::string_view c_strDash = "—";

std::string SayAt(std::span<const Words> words, int nIndex) {
  return std::string(Say(words[static_cast<std::size_t>(nIndex)]));
}

bool IsAngle(CheckKind kind) { return kind == CheckKind::Drift || kind == CheckKind::RareDrift; }

bool IsMovement(CheckKind kind) {
  return kind == CheckKind::TopDisplacement || kind == CheckKind::Deflection || kind == CheckKind::QuakeTopDisplacement;
}

bool IsHistory(CheckKind kind) {
  return kind == CheckKind::HistoryShear || kind == CheckKind::MeanHistoryShear || kind == CheckKind::HistoryDuration;
}

bool IsPercentage(CheckKind kind) {
  return kind == CheckKind::MassParticipation || kind == CheckKind::ShearWeight || kind == CheckKind::HistoryShear ||
         kind == CheckKind::MeanHistoryShear;
}

/// A check's value or limit.
std::string FormatQuantity(CheckKind kind, double dValue) {
  if (IsAngle(kind)) return FormatAngle(dValue);
  if (IsPercentage(kind)) return FormatPercent(dValue, kind == CheckKind::ShearWeight ? 2 : 1) + " %";
  if (kind == CheckKind::HistoryDuration) return FormatFixed(dValue, 1) + " T₁";
  return FormatFixed(dValue, 2);
}

bool IsLeast(CheckKind kind) { return IsPercentage(kind) || kind == CheckKind::HistoryDuration; }

}  // namespace

std::string FormatFixed(double dValue, int nDecimals) {
  if (!std::isfinite(dValue)) return std::string(c_strDash);
  const std::string strText = Format("%.*f", nDecimals, dValue);
  return strText.find_first_of("123456789") == std::string::npos && strText.front() == '-' ? strText.substr(1)
                                                                                           : strText;
}

std::string FormatKilo(double dValue) {
  constexpr double c_dLarge = 1.0e5;
  const double dKilo = 1.0e-3 * dValue;
  return FormatFixed(dKilo, std::abs(dKilo) < c_dLarge ? 1 : 0);
}

std::string FormatTonnes(double dMass) {
  constexpr double c_dSmall = 1.0e4;  // kg
  return FormatFixed(1.0e-3 * dMass, std::abs(dMass) < c_dSmall ? 3 : 1);
}
std::string FormatMillimetres(double dLength) { return FormatFixed(1.0e3 * dLength, 2); }
std::string FormatPercent(double dShare, int nDecimals) { return FormatFixed(100.0 * dShare, nDecimals); }

std::string FormatAngle(double dAngle) {
  constexpr double c_dLeast = 1.0e-9;
  return std::abs(dAngle) < c_dLeast ? std::string(c_strDash) : Format("1/%.0f", 1.0 / std::abs(dAngle));
}

std::string FormatShort(double dValue) { return Format("%.4g", dValue); }

std::string DescribeDirection(const Vector3& direction) {
  constexpr double c_dZero = 1.0e-9;
  for (std::size_t d = 0; d < 3; ++d) {
    if (std::abs(std::abs(direction[d]) - 1.0) < c_dZero) {
      return std::string(direction[d] < 0.0 ? "−" : "").append(c_strAxes[d]);
    }
  }
  if (std::ranges::all_of(direction, [](double d) { return d == 0.0; })) return std::string(c_strDash);
  return Format("(%.3g, %.3g, %.3g)", direction[0], direction[1], direction[2]);
}

std::string DescribeCombination(const JobCombination& combination) {
  return combination.empty() ? std::string(c_strDash) : FormatCombination(combination);
}

std::string DescribeStructure(const JobReport& report) {
  return report.nStructure ? SayAt(c_structures, *report.nStructure)
                           : Tell({"not stated in the job", "作业文件未说明"});
}

std::string GetCodeName(const JobReport& report) {
  return "GB 50011—" + std::string(c_strEditions[static_cast<std::size_t>(CCodeLimits(report).GetEdition())]);
}

std::string DescribeIntensity(int nIntensity) { return SayAt(c_intensities, nIntensity); }
std::string DescribeLevel(int nLevel) { return SayAt(c_levels, nLevel); }

std::string GetNodeName(const Job& job, std::size_t nNode) { return std::to_string(job.nodes[nNode].nId); }

std::string DescribeVerdict(const Check& check) {
  if (check.verdict == Verdict::NotChecked) {
    if (check.doubt == Doubt::OtherModes && IsHistory(check.kind)) return std::string(Say(texts::c_uncheckedHistory));
    return SayAt(texts::c_unchecked, static_cast<int>(check.doubt));
  }
  if (check.verdict == Verdict::NoLimit) return std::string(Say(texts::c_noLimit));
  const bool bGood = check.verdict == Verdict::Satisfied;
  if (check.bInformation)
    return std::string(Say(bGood ? texts::c_satisfiedForInformation : texts::c_notSatisfiedForInformation));
  return std::string(Say(bGood ? texts::c_satisfied : texts::c_notSatisfied));
}

std::string DescribeLimit(const Check& check) {
  if (!check.limit) return std::string(c_strDash);
  return (IsLeast(check.kind) ? "≥ " : "≤ ") + FormatQuantity(check.kind, check.limit->dValue);
}

std::string DescribeValue(const Check& check) {
  if (check.verdict == Verdict::NotChecked) return std::string(c_strDash);
  if (!IsMovement(check.kind)) return FormatQuantity(check.kind, check.dValue);
  const std::string strValue = FormatMillimetres(check.dValue) + " mm";
  return check.dLength > 0.0 && check.dValue > 0.0 ? strValue + " = L/" + FormatFixed(check.dLength / check.dValue, 0)
                                                   : strValue;
}

}  // namespace skyframe::host
