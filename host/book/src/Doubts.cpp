#include "Doubts.h"

#include <algorithm>

#include "Figures.h"
#include "skyframe/report/ModalReport.h"
#include "texts.h"

namespace skyframe::host {

namespace {

template <class Result>
std::string GetTime(const Result& result) {
  return result.pStamp != nullptr ? result.pStamp->strTime : Tell({"run not known", "分析未知"});
}

const SpectrumChapter* FindChapterOfFile(const BookData& book) {
  const auto it =
      std::ranges::find_if(book.spectra, [](const SpectrumChapter& chapter) { return chapter.deviation.has_value(); });
  return it != book.spectra.end() ? &*it : nullptr;
}

std::string GetDirection(const SpectrumChapter& chapter) { return DescribeDirection(chapter.loads.direction); }

std::string TellNoModes(const BookData& book) {
  const ModalResult& modal = book.modal;
  const std::string strReason = modal.bThere ? Say(texts::c_notRead, {modal.strFile, modal.content.strError})
                                             : Tell({"There is no file {0}.", "没有文件 {0}。"}, {modal.strFile});
  return strReason + Tell({" Without modes nothing of the spectrum is formed or checked.",
                           "没有振型，反应谱各项不能求出，未作验算。"});
}

std::string TellOtherModes(const BookData& book) {
  if (!book.spectrum.content) {
    return Say(texts::c_notRead, {book.spectrum.strFile, book.spectrum.content.strError});
  }
  return Tell({"{0} ({1}) does not follow from the modes of {2} ({3}) as they are now. Run the spectrum again: what it "
               "gives with these modes is not checked, and the result file is that of other modes.",
               "{0}（{1}）不是由 {2}（{3}）现有的振型算得的。请重新进行反应谱分析：按现有振型的结果未作验算，"
               "结果文件属于另外的振型。"},
              {book.spectrum.strFile, GetTime(book.spectrum), book.modal.strFile, GetTime(book.modal)});
}

std::string TellNotFormed(const BookData& book, const SpectrumChapter& chapter) {
  const auto nModes = static_cast<int>(book.modal.content->omega.size());
  if (nModes < *chapter.job.nModes) {
    return Tell(
        {"The spectrum along {0} asks for {1} modes, {2} has {3}: it is not formed. Run the modes and the "
         "spectrum again.",
         "{0} 向反应谱需要 {1} 阶振型，{2} 只有 {3} 阶，未计算。请重新进行模态分析和反应谱分析。"},
        {GetDirection(chapter), std::to_string(*chapter.job.nModes), book.modal.strFile, std::to_string(nModes)});
  }
  return Tell({"The masses that the modes of {0} were normalised with are not known: the spectrum along {1} is not "
               "formed. Run the modes and the spectrum again.",
               "不知道 {0} 的振型按什么质量归一，{1} 向反应谱未计算。请重新进行模态分析和反应谱分析。"},
              {book.modal.strFile, GetDirection(chapter)});
}

std::string TellOtherMasses(const BookData& book, const SpectrumChapter& chapter) {
  return Tell({"The modes of {0} have the mass of {1}, the spectrum along {2} that of {3}. Its forces are those of the "
               "stiffness, as the run forms them, and G is that of the modes; they are the code's for neither mass and "
               "are not checked. Give both analyses one combination.",
               "{0} 的振型按 {1} 换算质量，{2} 向反应谱按 {3}。地震作用按刚度求出（与程序分析一致），G "
               "取振型所用质量；两种质量都不符合规范算法，未作验算。两项分析应采用同一组合。"},
              {book.modal.strFile, DescribeCombination(book.modal.parameters.value_or(ModalJob()).combination),
               GetDirection(chapter), DescribeCombination(chapter.job.combination)});
}

}  // namespace

std::vector<std::string> ListSpectrumDoubts(const BookData& book) {
  std::vector<std::string> list;
  const auto isOld = [](const SpectrumChapter& chapter) { return chapter.doubt == Doubt::OldModel; };
  if (book.spectra.empty() || std::ranges::any_of(book.spectra, isOld)) return list;  // told by the file
  if (!book.modal.content) return {TellNoModes(book)};
  const bool bFormed = std::ranges::any_of(book.spectra, &SpectrumChapter::IsFormed);
  if (bFormed && FindChapterOfFile(book) == nullptr) list.push_back(TellOtherModes(book));
  for (const SpectrumChapter& chapter : book.spectra) {
    if (!chapter.IsFormed()) list.push_back(TellNotFormed(book, chapter));
    if (chapter.doubt == Doubt::OtherMasses) list.push_back(TellOtherMasses(book, chapter));
  }
  return list;
}

std::vector<std::string> ListHistoryDoubts(const BookData& book) {
  if (!book.historyChapter || book.historyChapter->doubt != Doubt::OtherModes) return {};
  return {
      Tell({"{0} ({1}) was computed after {2} ({3}), whose damping came from the modes before. Run the time history "
            "again; its checks are left out.",
            "{0}（{1}）晚于 {2}（{3}）：时程分析的阻尼取自以前的振型。请重新进行时程分析；相关验算从略。"},
           {book.modal.strFile, GetTime(book.modal), book.history.strFile, GetTime(book.history)})};
}

std::vector<std::string> ListModeShortfalls(const BookData& book) {
  if (!book.basis || book.modal.bOutdated) return {};
  std::vector<std::array<double, 3>> effective;
  for (std::size_t i = 0; i < book.basis->GetCount(); ++i) {
    Vector3 L = SumInertia(*book.basis, i);
    for (double& d : L) d *= d;
    effective.push_back(L);
  }
  return ListShortfalls(SumMasses(*book.basis), effective);
}

std::vector<std::string> ListMissingSpectra(const BookData& book) {
  std::vector<std::string> list;
  const SpectrumChapter* const pOfFile = FindChapterOfFile(book);
  if (pOfFile == nullptr) return list;
  for (const SpectrumChapter& chapter : book.spectra) {
    if (&chapter == pOfFile) continue;
    list.push_back(
        Tell({"Forces of supports and members under the spectrum along {0}: {1} holds those along {2} alone, "
              "of the last spectrum run",
              "{0} 向反应谱的支座反力与构件内力：{1} 只有最后一次反应谱（{2} 向）的结果"},
             {GetDirection(chapter), book.spectrum.strFile, GetDirection(*pOfFile)}));
  }
  return list;
}

std::string DescribeQuakeOfFile(const BookData& book) {
  if (const SpectrumChapter* const pChapter = FindChapterOfFile(book)) return GetDirection(*pChapter);
  if (book.spectrum.pStamp == nullptr) return {};
  const auto isOfRun = [&](const SpectrumChapter& chapter) { return chapter.job == book.spectrum.parameters; };
  const auto it = std::ranges::find_if(book.spectra, isOfRun);
  return it != book.spectra.end() ? GetDirection(*it) : std::string();
}

}  // namespace skyframe::host
