#include "Command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "skyframe/advice/Advice.h"
#include "skyframe/cli/CommandLine.h"
#include "skyframe/job/Text.h"
#include "skyframe/platform/OutputFile.h"
#include "skyframe/platform/Platform.h"
#include "skyframe/results/ResultKind.h"
#include "skyframe/results/ResultList.h"
#include "skyframe/run/JobRunner.h"
#include "skyframe/run/Stamps.h"
#include "skyframe/values/ResultFiles.h"
#include "texts.h"

namespace skyframe::host {

namespace {

namespace fs = std::filesystem;

/// Files that the analyses of a job read and write.
constexpr std::string_view c_strJobSuffixes[] = {suffix::c_strStaticLinear,    suffix::c_strStaticNonlinear,
                                                 suffix::c_strModes,           suffix::c_strSpectrum,
                                                 suffix::c_strVirtualMode,     suffix::c_strVirtualResponse,
                                                 suffix::c_strHistory,         suffix::c_strImpulseEcho,
                                                 suffix::c_strImpulseLoad,     suffix::c_strAcceleration[0],
                                                 suffix::c_strAcceleration[1], suffix::c_strAcceleration[2],
                                                 suffix::c_strAcceleration[3], c_strStampSuffix};

}  // namespace

void CCommand::AddTo(CLI::App& program, CCommand*& pChosen) {
  CLI::App* pApp = program.add_subcommand(m_strName, m_strHelp);
  pApp->callback([this, &pChosen] { pChosen = this; });
  Define(*pApp);
}

void CCommand::AddJobFile(CLI::App& app) { AddJobFile(app, Help(texts::c_jobFile)); }

void CCommand::AddJobFile(CLI::App& app, const std::string& strHelp) {
  app.add_option("job", m_strJobFile, strHelp)->required()->type_name("FILE");
}

std::optional<Job> CCommand::LoadJob(const std::string& strJobFile) {
  JobFile file = ReadJobFile(strJobFile);
  PrintProblems(strJobFile, file.errors, "");
  PrintProblems(strJobFile, file.warnings, Say(texts::c_warning));
  m_bInputWarned = m_bInputWarned || !file.warnings.empty();
  return file.errors.empty() ? std::optional(std::move(file.job)) : std::nullopt;
}

void CCommand::PrintProblems(const std::string& strFile, const std::vector<JobProblem>& problems,
                             std::string_view strKind) {
  for (const JobProblem& problem : problems) {
    m_err << EscapeControls(strFile) << ": " << FormatProblem(problem, strKind)
          << (problem.strName.empty() ? "" : " [" + problem.strName + "]") << '\n';
  }
}

int CCommand::Deliver(const std::string& strOutput, const std::string& strText) {
  if (!strOutput.empty()) return Save(strOutput, strText);
  m_out << strText;
  return c_nExitGood;
}

int CCommand::Save(const std::string& strOutput, const std::string& strText) {
  COutputFile file(strOutput, OutputPlace::FileOrDevice);
  file.GetStream() << strText;
  return file.Commit() ? c_nExitGood : RefuseToWrite(file);
}

bool CCommand::IsSameFile(const std::string& strOne, const std::string& strOther) {
  const fs::path one = ToFilePath(strOne);
  const fs::path other = ToFilePath(strOther);
  std::error_code error;
  if (fs::equivalent(one, other, error)) return true;
  const std::string strPlace = FindPlace(strOne);
  return !strPlace.empty() && strPlace == FindPlace(strOther);
}

bool CCommand::IsJobFile(const std::string& strOutput, const std::string& strJobFile) {
  const std::string strJobPath = GetJobPath(strJobFile);
  return IsSameFile(strOutput, strJobFile) || std::ranges::any_of(c_strJobSuffixes, [&](std::string_view strSuffix) {
           return IsSameFile(strOutput, strJobPath + std::string(strSuffix));
         });
}

void CCommand::WarnOfAge(const Job& job, const std::string& strJobFile) {
  for (const ResultKind kind : c_resultKinds) {
    for (const Advice& advice : AdviseOnAge(job, GetJobPath(strJobFile), GetSuffix(kind))) {
      m_err << EscapeControls(FormatAdvice(advice)) << '\n';
    }
  }
}

int CCommand::RefuseJobFile(const std::string& strOutput) { return Refuse(Say(texts::c_belongsToJob, {strOutput})); }

int CCommand::RefuseToWrite(const COutputFile& file) {
  return Refuse(FormatFailure({file.GetPath(), file.GetError()}));
}

int CCommand::Refuse(std::string_view strReason) {
  m_err << EscapeControls(strReason) << '\n';
  return c_nExitBadInput;
}

}  // namespace skyframe::host
