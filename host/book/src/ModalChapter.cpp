// Natural periods and modes.

#include <algorithm>
#include <sstream>

#include "Chapters.h"
#include "Doubts.h"
#include "Figures.h"
#include "skyframe/job/Text.h"
#include "skyframe/plot/Plots.h"
#include "skyframe/values/SpectrumSite.h"
#include "texts.h"

namespace skyframe::host {

namespace {

constexpr std::size_t c_nModePictures = 3;

void WriteModeTable(CPage& page, const BookData& book) {
  const ModalBasis& basis = *book.basis;
  PageTable table;
  table.strCaption =
      Tell({"Periods, participating masses, shares of motion", "自振周期、振型参与质量与平动、扭转成分"});
  table.head = {Tell({"Mode", "振型"}), "T [s]", "f [Hz]", "m<sub>X</sub> [%]", "Σ", "m<sub>Y</sub> [%]", "Σ",
                "m<sub>Z</sub> [%]",    "Σ"};
  if (book.storeys) {
    for (const char* const pszHead : {"s<sub>X</sub>", "s<sub>Y</sub>", "s<sub>T</sub>"})
      table.head.emplace_back(pszHead);
  }
  table.strAlign = "cr";
  const auto show = [&book](const std::string& strShare) { return book.modal.bOutdated ? "—" : strShare; };
  Vector3 sum = {};
  for (std::size_t i = 0; i < basis.GetCount(); ++i) {
    std::vector<std::string>& row = table.rows.emplace_back();
    row = {std::to_string(i + 1), FormatFixed(basis.GetPeriod(i), 4),
           FormatFixed(basis.omega[i] * c_dHertzPerRadian, 4)};
    const Vector3 shares = FormMassShares(basis, i);
    for (std::size_t d = 0; d < 3; ++d) {
      sum[d] += shares[d];
      row.push_back(show(FormatPercent(shares[d])));
      row.push_back(show(FormatPercent(sum[d])));
    }
    if (!book.storeys) continue;
    const MotionShares& motion = book.shares[i];
    for (const double d : {motion.dX, motion.dY, motion.dTorsion}) row.push_back(show(FormatFixed(d, 2)));
  }
  page.Table(table);
  page.Formula(
      "m<sub>d,i</sub> = (r<sub>d</sub>ᵀ M φ<sub>i</sub>)² / (r<sub>d</sub>ᵀ M r<sub>d</sub>), &ensp; "
      "φ<sub>i</sub>ᵀ M φ<sub>i</sub> = 1");
  if (!book.storeys) return;
  page.Formula(
      "s<sub>X</sub> : s<sub>Y</sub> : s<sub>T</sub> = Σ<sub>j</sub> P<sub>X,j</sub>²/m<sub>j</sub> : "
      "Σ<sub>j</sub> P<sub>Y,j</sub>²/m<sub>j</sub> : Σ<sub>j</sub> L<sub>j</sub>²/J<sub>j</sub>");
  page.Text(
      Tell({"P and L are the inertia M φ of floor j and its moment about the floor's centre of mass, m and J its "
            "mass and moment of inertia. A mode with zeros moves within the floors.",
            "P、L 为第 j 层惯性力 M φ 的合力及其对质心的力矩，m、J 为该层质量与转动惯量。三项均为 0 "
            "的振型是楼层内的局部振动。"}));
}

void WriteFirstPeriods(CPage& page, const BookData& book) {
  if (!book.first.translation || !book.first.torsion || book.modal.bOutdated) return;
  const double T1 = book.basis->GetPeriod(*book.first.translation);
  const double Tt = book.basis->GetPeriod(*book.first.torsion);
  page.Text(Tell({"First period of translation T1 = {0} s (mode {1}), of torsion Tt = {2} s (mode {3}); Tt/T1 = {4}.",
                  "第一平动周期 T1 = {0} s（振型 {1}），第一扭转周期 Tt = {2} s（振型 {3}）；Tt/T1 = {4}。"},
                 {FormatFixed(T1, 4), std::to_string(*book.first.translation + 1), FormatFixed(Tt, 4),
                  std::to_string(*book.first.torsion + 1), FormatFixed(Tt / T1, 2)}));
}

void WriteCount(CPage& page, const BookData& book) {
  if (book.dCountedBelow <= 0.0) return;
  const std::string strLimit = FormatFixed(book.dCountedBelow * c_dHertzPerRadian, 4);
  const auto nFound = std::ranges::count_if(book.basis->omega, [&](double w) { return w < book.dCountedBelow; });
  if (!book.modesBelow) {
    return page.Warn("modes-not-counted", Tell({"The Sturm count failed: nothing is known about missed modes.",
                                                "Sturm 计数失败：不知道有无遗漏的振型。"}));
  }
  const std::string strFound = std::to_string(nFound), strCounted = std::to_string(*book.modesBelow);
  if (*book.modesBelow == nFound) {
    return page.Text(Tell({"A Sturm count finds {0} modes below {1} Hz, as many as the table: none is missing.",
                           "Sturm 计数：{1} Hz 以下有 {0} 个振型，与表中个数相同，没有遗漏。"},
                          {strCounted, strLimit}));
  }
  page.Warn(*book.modesBelow > nFound ? "missed-modes" : "modes-in-doubt",
            Tell({"A Sturm count finds {0} modes below {1} Hz, the table has {2}.",
                  "Sturm 计数：{1} Hz 以下有 {0} 个振型，表中为 {2} 个。"},
                 {strCounted, strLimit, strFound}));
}

void WriteModePictures(CPage& page, const BookData& book) {
  for (std::size_t i = 0; i < std::min(c_nModePictures, book.basis->GetCount()); ++i) {
    std::ostringstream err;
    PlotRequest request;
    request.kind = PlotRequest::Kind::Mode;
    request.nMode = static_cast<int>(i) + 1;
    const auto strPicture = DrawPlot(book.job, book.strJobPath, request, err);
    if (!strPicture) continue;
    page.Figure(Tell({"Mode {0}, T = {1} s", "振型 {0}，T = {1} s"},
                     {std::to_string(i + 1), FormatFixed(book.basis->GetPeriod(i), 4)}),
                *strPicture, 0.86);
  }
}

}  // namespace

void WriteModes(CPage& page, const BookData& book) {
  page.Chapter(Tell({"Dynamic properties", "自振特性"}));
  if (!Introduce(page, book.modal)) return;
  if (!book.basis) {
    return page.Warn("no-masses", Say(texts::c_noMasses));
  }
  WriteModeTable(page, book);
  for (const std::string& strShortfall : ListModeShortfalls(book))
    page.Warn("missing-mass", book.modal.strFile + ": " + strShortfall);
  WriteFirstPeriods(page, book);
  WriteCount(page, book);
  WriteModePictures(page, book);
}

}  // namespace skyframe::host
