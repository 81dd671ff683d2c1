#pragma once

#include "BookData.h"
#include "Page.h"

namespace skyframe::host {

void WriteProject(CPage& page, const BookData& book);
void WriteParameters(CPage& page, const BookData& book);
void WriteModel(CPage& page, const BookData& book);
void WriteLoads(CPage& page, const BookData& book);
void WriteStatics(CPage& page, const BookData& book);
void WriteModes(CPage& page, const BookData& book);
void WriteSpectra(CPage& page, const BookData& book);
void WriteHistory(CPage& page, const BookData& book);
void WriteChecks(CPage& page, const BookData& book);
void WriteForces(CPage& page, const BookData& book);
void WriteAppendices(CPage& page, const BookData& book);

/// Whether there is something to tell of a result; else, and of an older model, the reader is told.
template <class Result>
[[nodiscard]] bool Introduce(CPage& page, const Result& result);

}  // namespace skyframe::host
