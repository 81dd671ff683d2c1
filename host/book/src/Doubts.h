#pragma once

#include "BookData.h"

namespace skyframe::host {

// What the reader must know of results that do not belong together, in sentences.

[[nodiscard]] std::vector<std::string> ListSpectrumDoubts(const BookData& book);
[[nodiscard]] std::vector<std::string> ListHistoryDoubts(const BookData& book);
/// Directions in which the modes hold too little mass.
[[nodiscard]] std::vector<std::string> ListModeShortfalls(const BookData& book);
/// Spectra of the job whose forces the result file does not hold, which is that of the last one run.
[[nodiscard]] std::vector<std::string> ListMissingSpectra(const BookData& book);
/// Direction of the spectrum that the file holds; empty when it is not known.
[[nodiscard]] std::string DescribeQuakeOfFile(const BookData& book);

}  // namespace skyframe::host
