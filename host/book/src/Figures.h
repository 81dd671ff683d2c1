#pragma once

#include <string>

#include "BookData.h"

namespace skyframe::host {

// Numbers and short texts as the report prints them.

/// Fixed decimals; what rounds to zero has no sign.
[[nodiscard]] std::string FormatFixed(double dValue, int nDecimals);
/// kN, kNm of N, Nm; two decimals, fewer for large ones.
[[nodiscard]] std::string FormatKilo(double dValue);
/// t of kg.
[[nodiscard]] std::string FormatTonnes(double dMass);
/// mm of m.
[[nodiscard]] std::string FormatMillimetres(double dLength);
/// Without the sign %.
[[nodiscard]] std::string FormatPercent(double dShare, int nDecimals = 1);
/// "1/1234"; a dash for 0.
[[nodiscard]] std::string FormatAngle(double dAngle);
/// Four significant digits.
[[nodiscard]] std::string FormatShort(double dValue);

/// "X", "−Y" or "(0.71, 0.71, 0)".
[[nodiscard]] std::string DescribeDirection(const Vector3& direction);
/// "−1.0 × case 0 − 0.5 × case 1"; a dash for none.
[[nodiscard]] std::string DescribeCombination(const JobCombination& combination);
[[nodiscard]] std::string DescribeStructure(const JobReport& report);
/// "GB 50011—2001".
[[nodiscard]] std::string GetCodeName(const JobReport& report);
[[nodiscard]] std::string DescribeIntensity(int nIntensity);
[[nodiscard]] std::string DescribeLevel(int nLevel);

/// Id of a node by its index.
[[nodiscard]] std::string GetNodeName(const Job& job, std::size_t nNode);

/// The item of a check.
[[nodiscard]] std::string DescribeCheck(const Check& check);
[[nodiscard]] std::string DescribeVerdict(const Check& check);
[[nodiscard]] std::string DescribeLimit(const Check& check);
[[nodiscard]] std::string DescribeValue(const Check& check);

}  // namespace skyframe::host
