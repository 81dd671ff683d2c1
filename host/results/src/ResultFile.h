#pragma once

#include <span>
#include <string>
#include <utility>

#include "ResultWords.h"
#include "skyframe/job/Job.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/results/Reading.h"
#include "skyframe/values/Findings.h"
#include "texts.h"

namespace skyframe::host {

/// Opens a file and reads it to its end by a function of the words.
template <class Read>
auto ReadResultFile(const std::string& strPath, Read read) {
  Reading<decltype(read(std::declval<CResultWords&>()))> reading;
  const auto pStream = GetPlatform().OpenForReading(strPath);
  if (!pStream) {
    reading.strError = Say(texts::c_cannotOpen);
    return reading;
  }
  CResultWords words(*pStream);
  auto content = read(words);
  words.Expect(words.Peek().empty());
  if (words.HasFailed()) {
    reading.strError = Say(texts::c_damaged);
  } else {
    reading.emplace(std::move(content));
  }
  return reading;
}

/// Title, date, time, version and the counts of a model with these nodes. Returns the count of elements.
int ReadHead(CResultWords& words, std::string_view strTitle, std::span<const JobNode> nodes);

/// Six values of a rigid node, three of others.
NodeValues ReadNodeValues(CResultWords& words, const JobNode& node);

}  // namespace skyframe::host
