#pragma once

#include <string_view>

/// Fixed texts of the dense and the skyline matrix.
namespace skyframe::numeric::texts {

inline constexpr std::string_view c_strInPlaceProductShape =
    "The row of Matrix1 doesn't equal the col of Matrix2, while multiplying";
inline constexpr std::string_view c_strProductShape =
    "The row of CMatrix 1 doesn't equal the col of CMatrix 2, while multiplying";
/// Deliberate: the difference reports "adding" too.
inline constexpr std::string_view c_strSumRows = "The row of matrix1 doesn't equal the row of matrix2, while adding";
inline constexpr std::string_view c_strSumCols = "The col of matrix1 doesn't equal the col of matrix2, while adding";

/// Deliberate: the doubled "while".
inline constexpr std::string_view c_strAccessUnallocated =
    "The element buffer of SparseMatrix has not been allocated, while while doing operator()";
inline constexpr std::string_view c_strColOutOfRange = "The col is out of range, while doing operator()";
inline constexpr std::string_view c_strRowOutOfRange = "The row is out of range, while doing operator()";
inline constexpr std::string_view c_strMultiplyUnallocated =
    "The element buffer of SparseMatrix has not been allocated, while multiplying";
inline constexpr std::string_view c_strAddUnallocated =
    "The element buffer of SparseMatrix has not been allocated, while adding";
inline constexpr std::string_view c_strSolveUnallocated =
    "The element buffer of SparseMatrix has not been allocated, while ldlt solving";
inline constexpr std::string_view c_strVectorDefinition = "Vector Definition Error!";
inline constexpr std::string_view c_strUnstable = "结构几何可变";
inline constexpr std::string_view c_strFactorisation = "矩阵分解";
inline constexpr std::string_view c_strMatrixMemory = "内存不足，无法为稀疏矩阵分配存储空间";

}  // namespace skyframe::numeric::texts

namespace skyframe {
namespace texts = numeric::texts;
}  // namespace skyframe
