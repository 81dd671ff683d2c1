#pragma once

#include <optional>
#include <string>

#include "skyframe/generate/Generate.h"
#include "skyframe/job/Language.h"
#include "skyframe/values/Capacities.h"

namespace skyframe::host {

// Every parameter of a generator, once: what it is called, what it means, where it is, its limits. Command line and
// windows are visitors of these functions.

/// What a generator's parameter is called on the command line and to a person.
struct GeneratorField {
  const char* pszOption;
  Words meaning;
};

/// Both ends belong to the range.
template <class T>
struct GeneratorRange {
  T lowest;
  T highest;
};
inline constexpr GeneratorRange<int> c_countRange = {1, c_nMaxNodes};
inline constexpr GeneratorRange<double> c_lengthRange = {1.0e-3, 1.0e5};
inline constexpr GeneratorRange<double> c_loadRange = {-1.0e9, 1.0e9};

template <class V>
void VisitFields(V& v, BuildingParameters& p) {
  v.Visit({"bays-x", {"Bays along X", "X 向跨数"}}, p.nBaysX, c_countRange);
  v.Visit({"bays-y", {"Bays along Y", "Y 向跨数"}}, p.nBaysY, c_countRange);
  v.Visit({"storeys", {"Storeys", "层数"}}, p.nStoreys, c_countRange);
  v.Visit({"span", {"Length of a bay, m", "跨度，m"}}, p.dSpan, c_lengthRange);
  v.Visit({"height", {"Height of a storey, m", "层高，m"}}, p.dHeight, c_lengthRange);
  v.Visit({"dead", {"Dead load, kN/m², case 0", "恒荷载，kN/m²，工况 0"}}, p.dDeadLoad, c_loadRange);
  v.Visit({"live", {"Live load, kN/m², case 1", "活荷载，kN/m²，工况 1"}}, p.dLiveLoad, c_loadRange);
  v.Visit({"wind", {"Wind along X, kN/m², case 2", "X 向风荷载，kN/m²，工况 2"}}, p.dWindLoad, c_loadRange);
}

template <class V>
void VisitFields(V& v, TowerParameters& p) {
  v.Visit({"panels", {"Panels one above the other", "节间数"}}, p.nPanels, c_countRange);
  v.Visit({"base", {"Side at the foot, m", "底边长，m"}}, p.dBase, c_lengthRange);
  v.Visit({"top", {"Side at the top, m", "顶边长，m"}}, p.dTop, c_lengthRange);
  v.Visit({"panel-height", {"Height of a panel, m", "节间高度，m"}}, p.dPanelHeight, c_lengthRange);
}

template <class V>
void VisitFields(V& v, DomeParameters& p) {
  v.Visit({"rings", {"Rings around the crown", "环数"}}, p.nRings, c_countRange);
  v.Visit({"segments", {"Fields around a ring", "每环分格数"}}, p.nSegments, {3, c_nMaxNodes});
  v.Visit({"span", {"Span, m", "跨度，m"}}, p.dSpan, c_lengthRange);
  v.Visit({"rise", {"Rise, m; at most half the span", "矢高，m，不大于跨度的一半"}}, p.dRise, c_lengthRange);
  v.Visit({"load", {"Load in plan, kN/m²", "水平投影面荷载，kN/m²"}}, p.dLoad, c_loadRange);
  v.Visit({"beams", {"Rigid beams instead of bars", "用刚接梁代替杆"}}, p.bBeams);
}

template <class V>
void VisitFields(V& v, ArchParameters& p) {
  v.Visit({"segments", {"Members, an even number; 2 makes bars", "杆件数，偶数；2 为两根杆"}}, p.nSegments,
          {2, c_nMaxNodes});
  v.Visit({"half-span", {"Half the span, m", "半跨，m"}}, p.dHalfSpan, c_lengthRange);
  v.Visit({"rise", {"Rise, m", "矢高，m"}}, p.dRise, c_lengthRange);
  v.Visit({"load", {"Load at the apex, kN, downwards", "顶点荷载，kN，向下"}}, p.dLoad, c_loadRange);
}

/// Why the values do not go together, as "--rise: must be at most half the span"; nothing when they do.
[[nodiscard]] std::optional<std::string> FindConflict(const BuildingParameters& parameters);
[[nodiscard]] std::optional<std::string> FindConflict(const TowerParameters& parameters);
[[nodiscard]] std::optional<std::string> FindConflict(const DomeParameters& parameters);
[[nodiscard]] std::optional<std::string> FindConflict(const ArchParameters& parameters);

[[nodiscard]] inline Job Generate(const BuildingParameters& parameters) { return GenerateBuilding(parameters); }
[[nodiscard]] inline Job Generate(const TowerParameters& parameters) { return GenerateTower(parameters); }
[[nodiscard]] inline Job Generate(const DomeParameters& parameters) { return GenerateDome(parameters); }
[[nodiscard]] inline Job Generate(const ArchParameters& parameters) { return GenerateArch(parameters); }

}  // namespace skyframe::host
