#include <regex>

#include "CommandFolder.h"
#include "skyframe/platform/ChildProcesses.h"

namespace skyframe::test {
namespace {

// x is well, y has a warning (a combination without loads), z is a mechanism, bad is no job.
class ManyJobs : public ::testing::Test, protected CCommandFolder {
 protected:
  ManyJobs() {
    const std::string strStatic = R"({"type": "static", "nonlinear": false, "combination": {"0": 1}})";
    Write("_x.json", MakeCantilever("111111", strStatic));
    Write("_y.json", MakeCantilever("111111", R"({"type": "static", "nonlinear": false})"));
    Write("_z.json", MakeCantilever("101111", strStatic));
    Write("_bad.json", "{");
    std::filesystem::copy_file(GetPath("_x.json"), GetPath("_x"));
    std::error_code unable;  // these are then not there, which is no better
    for (const char* pszLoop : {"_l.json", "_m.json"})
      std::filesystem::create_symlink(GetPath(pszLoop), GetPath(pszLoop), unable);
  }

  /// The program in a process of its own, with these jobs; its status, and what it prints without times and folders.
  std::pair<int, std::string> Run(const Strings& jobs, const Strings& options = {}) const {
    Strings arguments = {"run"};
    for (const std::string& strJob : jobs) arguments.push_back(GetPath(strJob));
    arguments.insert(arguments.end(), options.begin(), options.end());
    CChildProcesses processes;
    std::string strReason;
    EXPECT_NE(processes.Start(SKYFRAME_PROGRAM, arguments, GetPath("_output"), strReason), 0) << strReason;
    const int nStatus = static_cast<int>(processes.Wait().nCode);
    std::string strText = std::regex_replace(Read("_output"), std::regex(R"(\d+\.\d\d)"), "T");
    for (std::size_t n; (n = strText.find(GetPath(""))) != std::string::npos;) strText.erase(n, GetPath("").size());
    return {nStatus, strText};
  }
};

TEST_F(ManyJobs, TheWorstStatusAndALineForEachInOrder) {
  const std::string strX = "     T s  _x.json: ok\n", strY = "     T s  _y.json: ok, with warnings, see _y_run.log\n",
                    strZ = "     T s  _z.json: failed, see _z_run.log\n",
                    strBad = "     T s  _bad.json: refused, see _bad_run.log\n";
  const std::tuple<Strings, Strings, int, std::string> cases[] = {
      {{"_x.json", "_y.json"}, {}, 0, strX + strY + "2 jobs in T s: 1 ok, 1 with warnings, 0 failed or refused\n"},
      {{"_y.json", "_x.json"},
       {"--strict"},
       3,
       strY + strX + "2 jobs in T s: 1 ok, 1 with warnings, 0 failed or refused\n"},
      {{"_z.json", "_y.json", "_x.json"},
       {"--strict"},
       1,
       strZ + strY + strX + "3 jobs in T s: 1 ok, 1 with warnings, 1 failed or refused\n"},
      {{"_x.json", "_bad.json", "_z.json"},
       {},
       2,
       strX + strBad + strZ + "3 jobs in T s: 1 ok, 0 with warnings, 2 failed or refused\n"},
      {{"_l.json", "_m.json"},
       {},
       2,
       "     T s  _l.json: refused, see _l_run.log\n     T s  _m.json: refused, see _m_run.log\n"
       "2 jobs in T s: 0 ok, 0 with warnings, 2 failed or refused\n"},
  };
  for (const auto& [jobs, options, nStatus, strEnd] : cases) {
    for (const char* const pszAtOnce : {"1", "3"}) {
      Strings all = options;
      all.insert(all.end(), {"--jobs", pszAtOnce});
      const auto [nActual, strText] = Run(jobs, all);
      EXPECT_EQ(nActual, nStatus);
      EXPECT_TRUE(strText.ends_with("\n\n" + strEnd)) << strText;
      EXPECT_EQ(std::ranges::count(strText, '['), std::ssize(jobs)) << strText;
    }
  }
  EXPECT_EQ(Read("_x_run.log").find("Static analysis, linear\n"), 0U) << Read("_x_run.log");
  EXPECT_NE(Read("_x_StaticLinearSol.txt"), "");
  EXPECT_NE(Read("_bad_run.log").find("syntax error"), std::string::npos);
}

TEST_F(ManyJobs, WhatCannotGoTogetherIsRefusedBeforeAnyRuns) {
  const std::size_t nFiles = List().size();
  const std::tuple<Strings, Strings, std::string> cases[] = {
      {{"_x.json", "_y.json"}, {"--dialogs"}, "--dialogs: belongs to a run of one job\n"},
      {{"_x.json", "_y.json"}, {"--log", "a"}, "--log: belongs to a run of one job\n"},
      {{"_x.json", "_y.json", "_x"}, {}, "_x.json and _x: have the same result files\n"},
      {{"_x.json", "_y.json", "/../job_x.json"}, {}, "_x.json and /../job_x.json: have the same result files\n"},
      {{"_x.json", "_x_run.log"}, {}, "_x_run.log: belongs to the job; choose another name\n"},
#ifdef _WIN32
      {{"_x.json", "_X.JSON"}, {}, "_x.json and _X.JSON: have the same result files\n"},
#endif
  };
  std::filesystem::create_directory(GetPath(""));
  Write("_x_run.log", Read("_x.json"));
  for (const auto& [jobs, options, strError] : cases) {
    EXPECT_EQ(Run(jobs, options), std::pair(2, strError));
    EXPECT_EQ(Call({"run", GetPath(jobs[0]), GetPath(jobs[1])}).nStatus, 2);  // no program that could be started
  }
  EXPECT_EQ(List().size(), nFiles + 3);
}

/// Works in a folder while it lives.
class CInFolder {
 public:
  explicit CInFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
  CInFolder(const CInFolder&) = delete;
  CInFolder& operator=(const CInFolder&) = delete;
  ~CInFolder() {
    std::error_code error;
    std::filesystem::current_path(m_before, error);
  }

 private:
  const std::filesystem::path m_before = std::filesystem::current_path();
};

// A name that looks like an option, and one with blanks and signs of the shell.
TEST_F(ManyJobs, NamesAreTakenAsTheyStand) {
  const std::filesystem::path folder = std::filesystem::path(GetJobPath()).parent_path();
  const Strings names = {"-x.json", "a b $HOME 'c.json", "荷载.json"};
  for (const std::string& strName : names) {
    std::filesystem::copy_file(GetPath("_x.json"), folder / ToFilePath(strName));
  }
  const CInFolder inFolder(folder);
  CChildProcesses processes;
  std::string strReason;
  Strings arguments = {"run", "--jobs", "2", "--lang", "zh", "--"};
  arguments.insert(arguments.end(), names.begin(), names.end());
  EXPECT_NE(processes.Start(SKYFRAME_PROGRAM, arguments, GetPath("_output"), strReason), 0) << strReason;
  EXPECT_EQ(processes.Wait().nCode, 0);
  EXPECT_NE(Read("_output").find("3 个作业"), std::string::npos) << Read("_output");
  EXPECT_NE(Read("_output").find("完成 3 个，有警告 0 个，失败或被拒绝 0 个"), std::string::npos) << Read("_output");
  for (const char* pszResult : {"-x", "a b $HOME 'c", "荷载"}) {
    EXPECT_TRUE(std::filesystem::exists(folder / ToFilePath(std::string(pszResult) + "_StaticLinearSol.txt")))
        << pszResult;
  }
}

}  // namespace
}  // namespace skyframe::test
