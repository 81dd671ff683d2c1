#pragma once

#include <string_view>

namespace skyframe::suffix {

// The files beside a job: job path plus one of these.

// Results.
inline constexpr std::string_view c_strStaticLinear = "_StaticLinearSol.txt";
inline constexpr std::string_view c_strStaticNonlinear = "_StaticNonlinearSol.txt";
inline constexpr std::string_view c_strModes = ".mode";
inline constexpr std::string_view c_strSpectrum = ".spec";
inline constexpr std::string_view c_strVirtualMode = "_VirtMode.spec";
inline constexpr std::string_view c_strVirtualResponse = "VIRTRESP.log";
inline constexpr std::string_view c_strHistory = "_HisTime.txt";
inline constexpr std::string_view c_strNodeHistory = "_node.txt";     ///< behind "_" and the node number
inline constexpr std::string_view c_strElementHistory = "_elem.txt";  ///< behind "_" and the element number
inline constexpr std::string_view c_strImpulseEcho = "_Loadinputtest.txt";

// Input of a time history.
inline constexpr std::string_view c_strImpulseLoad = "impulseload.log";
/// By direction X, Y, Z, oblique.
inline constexpr std::string_view c_strAcceleration[] = {"_Xacc.txt", "_Yacc.txt", "_Zacc.txt", "_Tacc.txt"};

}  // namespace skyframe::suffix

// Words that stand before the numbers of the static result files.
namespace skyframe::label {

inline constexpr std::string_view c_strNode = "结点号:";
/// By direction X Y Z RX RY RZ.
inline constexpr std::string_view c_strReactions[] = {
    "X向支反力", "Y向支反力", "Z向支反力", "YZ平面内转角向支反力", "ZX平面内转角向支反力", "XY平面内转角向支反力"};

}  // namespace skyframe::label
