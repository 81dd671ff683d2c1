#pragma once

namespace skyframe {

struct HistorySet;

/// Histories that the result viewer shows: those of the last complete time-history run, or of the file
/// read for the viewer; no steps before the first.
[[nodiscard]] const HistorySet& GetHistories();

}  // namespace skyframe
