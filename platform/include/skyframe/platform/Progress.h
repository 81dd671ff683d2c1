#pragma once

#include <string_view>

namespace skyframe {

/// A step of an analysis: counts the pieces that are done of it and tells the platform its fraction and name now and
/// again, up to 1 when all are done. Within another step it only has that one's last fraction told once more, so that
/// windows stay alive; within a step without pieces it is told in full, under that one's name.
/// Steps end in the reverse order of their beginnings.
class CProgress {
 public:
  /// The label must outlive the object. dDone: pieces that were done before.
  explicit CProgress(std::string_view strLabel, double dPieces = 0.0, double dDone = 0.0);
  ~CProgress();
  CProgress(const CProgress&) = delete;
  CProgress& operator=(const CProgress&) = delete;

  void Advance(double dPieces = 1.0) {
    m_dDone += dPieces;
    if (m_dDone >= m_dNextReport) Report();
  }

 private:
  void Report();
  void Tell() const;

  std::string_view m_strLabel;
  CProgress* m_pOuter;  ///< the step that is told
  bool m_bTold;         ///< itself
  double m_dPieces;
  double m_dDone;
  double m_dStride;  ///< pieces between two reports
  double m_dNextReport;
};

}  // namespace skyframe
