#pragma once

#include "JobReader.h"

namespace skyframe::host {

[[nodiscard]] JobReport ReadReportFields(CJobObject& object);
/// What is set; an empty object when nothing is.
[[nodiscard]] Json WriteReportFields(const JobReport& report);
/// JSON Schema.
[[nodiscard]] Json DescribeReportFields();

}  // namespace skyframe::host
