#include <CLI/CLI.hpp>
#include <cmath>

#include "Commands.h"
#include "NumberRange.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/compare/Compare.h"
#include "skyframe/job/Language.h"
#include "skyframe/job/Text.h"
#include "texts.h"

namespace skyframe::host {

namespace {

class CCompareCommand final : public CCommand {
 public:
  explicit CCompareCommand(const CommandContext& context) : CCommand("compare", Say(texts::c_compare), context) {}

  int Run() override {
    const std::optional<Job> first = LoadJob(m_strJobFile);
    const std::optional<Job> second = LoadJob(m_strOther);
    if (!first || !second) return c_nExitBadInput;
    WarnOfAge(*first, m_strJobFile);
    WarnOfAge(*second, m_strOther);
    const Comparison comparison =
        CompareResults({*first, GetJobPath(m_strJobFile)}, {*second, GetJobPath(m_strOther)}, m_dTolerance);
    for (const KindComparison& kind : comparison.kinds) Print(kind);
    if (!comparison.strError.empty()) return Refuse(comparison.strError);
    if (comparison.HasError()) return c_nExitBadInput;
    const bool bAbove = comparison.IsAbove();
    m_out << Say(bAbove ? texts::c_someAbove : texts::c_allWithin, {FormatNumber(m_dTolerance)}) << '\n';
    return bAbove ? c_nExitDifferent : c_nExitGood;
  }

 private:
  void Define(CLI::App& app) override {
    AddJobFile(app, Help(texts::c_solvedJob));
    app.add_option("other", m_strOther, Help(texts::c_compareOther))->required();
    app.add_option("--tolerance", m_dTolerance, Help(texts::c_tolerance))
        ->check(CNumberRange(0.0, 1.0))
        ->capture_default_str();
  }

  void Print(const KindComparison& kind) {
    m_out << Say(kind.kind) << '\n';
    if (!kind.strNote.empty()) m_out << "  " << kind.strNote << '\n';
    if (!kind.strError.empty()) (void)Refuse(kind.strError);
    for (const Difference& difference : kind.differences) {
      constexpr int c_nUnit = 10;  // columns
      m_out << Format("  %9.2e  %9.2e ", difference.GetRelative(), difference.GetAbsolute())
            << PadRight(difference.strUnit, c_nUnit)
            << Say(texts::c_difference, {Say(difference.quantity), Describe(difference)}) << '\n';
    }
  }

  /// What is no number has no sign, whatever the system makes of it.
  static std::string FormatValue(double dValue) { return std::isnan(dValue) ? "nan" : Format("%.8g", dValue); }

  static std::string Describe(const Difference& difference) {
    if (difference.GetAbsolute() == 0.0) return std::string(Say(texts::c_equal));
    const std::string strValues =
        Say(texts::c_twoValues, {FormatValue(difference.dFirst), FormatValue(difference.dSecond)});
    const std::string strText =
        difference.strPlace.empty() ? strValues : Say(texts::c_atPlace, {difference.strPlace, strValues});
    if (difference.bAbove) return Say(texts::c_aboveTolerance, {strText});
    return difference.bRounding ? Say(texts::c_rounding, {strText}) : strText;
  }

  std::string m_strOther;
  double m_dTolerance = 1.0e-6;
};

}  // namespace

std::unique_ptr<CCommand> MakeCompareCommand(const CommandContext& context) {
  return std::make_unique<CCompareCommand>(context);
}

}  // namespace skyframe::host
