#include "skyframe/results/StaticResultFile.h"

#include <iterator>

#include "ResultWords.h"
#include "skyframe/platform/Platform.h"

namespace skyframe::host {

std::optional<std::vector<NodeValues>> ReadStaticResultFile(const std::string& strPath, std::size_t nNodes) {
  constexpr std::string_view c_strHeading = "DOF Displacements: ";
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) return std::nullopt;
  const std::string strText(std::istreambuf_iterator<char>(*pStream), {});
  const std::size_t nHeading = strText.find(c_strHeading);
  if (nHeading == std::string::npos) return std::nullopt;

  CResultWords words(std::string_view(strText).substr(nHeading + c_strHeading.size()));
  words.Skip(3);  // the column titles
  std::vector<NodeValues> displacements;
  while (displacements.size() < nNodes && !words.HasFailed()) {
    words.Skip(1);  // the node number
    NodeValues& u = displacements.emplace_back();
    for (std::size_t d = 0; d < 3; ++d) u[d] = words.Number<double>();
  }
  const bool bWhole = !words.HasFailed() && displacements.size() == nNodes && words.Word().empty();
  return bWhole ? std::optional(std::move(displacements)) : std::nullopt;
}

}  // namespace skyframe::host
