#pragma once

namespace skyframe {

// One driver an analysis: the complete script of a run.

void RunModal();
int RunSpectrum();
int RunTimeHistory();
void RunHistoryViewer();
void RunStatic();

}  // namespace skyframe
